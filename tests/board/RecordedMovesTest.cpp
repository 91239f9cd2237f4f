// The moves of recorded games against the rules: each is accepted, and leads to the next line's position.
#include "board/MoveRig.h"

#include "board/Style12Line.h"
#include "common/RecordedText.h"
#include "common/Text.h"

#include <gtest/gtest.h>

#include <map>

namespace {

std::vector<Style12Record> recordsOf(const std::string& stream) {
    std::vector<Style12Record> records;
    for (const std::string& line : recordedLines(stream)) {
        const auto tokens = cutStyle12(line, LineEnd::RestIsToken);
        if (!tokens) continue;
        readStyle12PassingOver(*tokens, Style12Fields::All, records.emplace_back());
    }
    return records;
}

bool follows(const Style12Record& before, const Style12Record& after) {
    const auto ply = [](const Style12Record& record) { return 2 * record.MoveNumber + record.SideToMove; };
    return before.GameNumber == after.GameNumber && before.WhiteName == after.WhiteName &&
           before.BlackName == after.BlackName && ply(after) == ply(before) + 1 && after.PrettyMove != "none";
}

// From and to of "P/e2-e4", "P/@@-e5" and castling, the king standing on `king`.
std::pair<int, int> squaresOf(const std::string& verbose, int king) {
    if (verbose == "o-o") return {king, king + 2};
    if (verbose == "o-o-o") return {king, king - 2};
    const int from = mid(verbose, 3, 2) == "@@" ? HandSquare : zSquareNumber(mid(verbose, 3, 2));
    return {from, zSquareNumber(mid(verbose, 6, 2))};
}

// A live board that shows a record's position and takes the record's promotion.
struct RecordBoard : MoveRig {
    explicit RecordBoard(const Style12Record& record) : MoveRig("") {
        live();
        for (int square = 0; square < 64; ++square) {
            game.Board[square] = pieceCode(record.Position[static_cast<std::size_t>(square)]);
        }
        game.Turn = static_cast<std::int16_t>(1 - 2 * record.SideToMove);
    }

    int king() const {
        int square = 0;
        while (square < 64 && game.Board[square] != game.Turn) ++square;
        return square;
    }
};

void expectMove(const Style12Record& before, const Style12Record& after) {
    SCOPED_TRACE(std::to_string(before.MoveNumber) + " " + after.VerboseMove + " " + after.PrettyMove);
    RecordBoard board(before);
    const auto [from, to] = squaresOf(after.VerboseMove, board.king());
    if (from == HandSquare) {
        board.game.Board[HandSquare] =
            static_cast<std::int16_t>(board.game.Turn * std::abs(pieceCode(after.VerboseMove[0])));
    } else {
        ASSERT_TRUE(board.game.zMoveLegal(from, to));
    }
    if (const auto part = after.PrettyMove.find('='); part != std::string::npos) {
        board.game.PromotePiece = static_cast<std::int16_t>(std::abs(pieceCode(after.PrettyMove[part + 1])));
    }
    board.game.zSetFrom(from);
    std::string text = board.game.zMakeMove(to, true, true);
    for (int square = 0; square < 64; ++square) {
        EXPECT_EQ(board.game.Board[square], pieceCode(after.Position[static_cast<std::size_t>(square)])) << square;
    }
    std::string theirs = after.PrettyMove;
    if (theirs.ends_with('#')) theirs.back() = '+'; // there is no mate sign here
    EXPECT_EQ(text, theirs);
}

// The squares that the server's text is decoded to against those that the server tells, or how it is to be read else.
void expectDecoded(const Style12Record& before, const Style12Record& after, std::map<std::string, int>& kinds) {
    SCOPED_TRACE(std::to_string(before.MoveNumber) + " " + after.VerboseMove + " " + after.PrettyMove);
    RecordBoard board(before);
    const auto wanted = squaresOf(after.VerboseMove, board.king());
    std::int16_t from = 0;
    std::int16_t to = 0;
    bool ok = false;
    board.game.zdeAnn(after.PrettyMove, board.game.Turn, from, to, ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(to, wanted.second);
    if (from == wanted.first) {
        ++kinds["as told"];
        return;
    }
    EXPECT_EQ(board.game.Board[from], board.game.Turn * std::abs(pieceCode(after.VerboseMove[0])));
    EXPECT_TRUE(board.game.zMoveLegal(from, to));
    const bool drop = wanted.first == HandSquare;
    EXPECT_TRUE(drop || from < wanted.first) << "the lowest of two that can go there";
    ++kinds[drop ? "drop that a like piece can reach" : "twin that is pinned"];
}

struct Stream {
    const char* file;
    int moves;     // pairs of lines one half-move apart, counted apart
    int drops = 0; // of these, that are read as moves of pieces that can go there
};

void PrintTo(const Stream& stream, std::ostream* out) { *out << stream.file; }

class RecordedMoves : public testing::TestWithParam<Stream> {};

} // namespace

TEST_P(RecordedMoves, EachIsAcceptedAndGivesTheNextPositionAndTheServersText) {
    std::map<int, Style12Record> latest;
    int moves = 0;
    for (const Style12Record& record : recordsOf(GetParam().file)) {
        const auto before = latest.find(record.GameNumber);
        if (before != latest.end() && follows(before->second, record)) {
            ++moves;
            expectMove(before->second, record);
        }
        latest[record.GameNumber] = record;
    }
    EXPECT_EQ(moves, GetParam().moves);
}

TEST_P(RecordedMoves, EachTextIsDecodedToTheServersSquares) {
    std::map<int, Style12Record> latest;
    std::map<std::string, int> kinds;
    for (const Style12Record& record : recordsOf(GetParam().file)) {
        const auto before = latest.find(record.GameNumber);
        if (before != latest.end() && follows(before->second, record)) expectDecoded(before->second, record, kinds);
        latest[record.GameNumber] = record;
    }
    std::map<std::string, int> wanted{{"as told", GetParam().moves - GetParam().drops}};
    if (GetParam().drops > 0) wanted["drop that a like piece can reach"] = GetParam().drops;
    EXPECT_EQ(kinds, wanted);
}

INSTANTIATE_TEST_SUITE_P(
    Recorded, RecordedMoves,
    testing::Values(Stream{"server-a/01_anders_registered.raw", 31}, Stream{"server-a/02_berta_registered.raw", 28},
                    Stream{"server-a/03_guest_observer.raw", 20}, Stream{"server-a/20_bughouse_GuestABCD.raw", 9},
                    Stream{"server-a/21_bughouse_GuestEFGH.raw", 8}, Stream{"server-a/24_bughouse_observer.raw", 17},
                    Stream{"server-a/45_observer_two_games.raw", 4}, Stream{"server-b/01_anders_registered.raw", 29},
                    Stream{"server-b/02_berta_registered.raw", 28}, Stream{"server-b/03_long_game_smoves.raw", 417},
                    Stream{"server-b/10_examine_journal.raw", 32}, Stream{"server-b/20_bughouse_GuestEFGH.raw", 5, 1}));
