// The moves of published games, walked on a board from their texts, against an engine that knows chess.
//
// Each text is decoded to the engine's squares and makes the engine's position. Where the decoder is to read a text in
// another way, it has to read it in just that way, and these moves are counted by kind.
#include "board/Game.h"
#include "board/MoveRules.h"
#include "board/PieceCodes.h"
#include "board/QuietGame.h"
#include "common/Squares.h"
#include "common/Text.h"
#include "common/modChess.h"
#include "practice/chess/MoveText.h"
#include "rules/EngineTalk.h"
#include "rules/GameTexts.h"

#include <gtest/gtest.h>

#include <iostream>
#include <map>
#include <memory>

namespace {

struct Squares {
    int from;
    int to;
    bool operator==(const Squares&) const = default;
};

// One half-move: its text, and what the engine says of it.
struct Told {
    std::string text;
    std::string move; // "e7e8q", "N@f3"
    practice::PositionFacts before;
    practice::PositionFacts after;
};

struct Kind {
    const char* variant; // as the engine calls it
    bool chess960 = false;
    bool anyDrop = false; // pieces come from another board
};

bool castles(const std::string& text) { return text.starts_with("O-O"); }

// Castling of a king and a rook that stand as in the usual game is told as the king taking his rook where any may
// castle.
Squares squaresOf(const Told& told) {
    const std::string& move = told.move;
    if (move[1] == '@') return {HandSquare, zSquareNumber(move.substr(2, 2))};
    const int from = zSquareNumber(move.substr(0, 2));
    if (castles(told.text) && move[0] == 'e' && move[2] == 'h') return {from, from + 2};
    if (castles(told.text) && move[0] == 'e' && move[2] == 'a') return {from, from - 2};
    return {from, zSquareNumber(move.substr(2, 2))};
}

// Both hands full: on a board of a pair anything may come from the other one.
std::string withFullHands(const std::string& fen) {
    const std::size_t end = fen.find_first_of("[ ");
    const std::size_t rest = fen.find(' ');
    return fen.substr(0, end) + "[QRBNPqrbnp]" + fen.substr(rest);
}

// A board that walks by the texts, and is put right where a text was read in another way.
struct Walk {
    std::unique_ptr<Game> owned = quietGame();
    Game& game = *owned;

    Walk() {
        modChess = {};
        game.beginLoad();
        game.finishLoad();
        game.GridLightOn = true;
        game.zFor(true);
    }

    void put(const std::string& fen) {
        const auto position = practice::readFen(fen).value();
        for (int square = 0; square < 64; ++square) {
            game.Board[square] = pieceCode(position.board[static_cast<std::size_t>(square)]);
        }
        game.Board[HandSquare] = 0;
        game.PromotePiece = 0;
    }

    bool standsAt(const std::string& fen) const {
        const auto position = practice::readFen(fen).value();
        for (int square = 0; square < 64; ++square) {
            if (game.Board[square] != pieceCode(position.board[static_cast<std::size_t>(square)])) return false;
        }
        return true;
    }

    Squares decode(const std::string& text) {
        std::int16_t from = 0;
        std::int16_t to = 0;
        bool ok = false;
        game.zdeAnn(text, game.Turn, from, to, ok);
        EXPECT_TRUE(ok) << text;
        return {from, to};
    }

    // The lowest square from which a piece like that on `from` (or in the hand) may go to `to`; -1 for none.
    int lowestLike(int code, int to) {
        for (int square = 0; square < 64; ++square) {
            if (game.Board[square] == code && game.zMoveLegal(square, to)) return square;
        }
        return -1;
    }
};

// How `read` is to differ from the engine's squares; empty where it is not to.
struct Reading {
    const char* kind = "";
    Squares squares{};
};

bool namesWholeSquare(const std::string& text) {
    const std::string_view plain(text);
    return contains("KQRBN", plain.substr(0, 1)) && plain.size() > 4 && isdigit(plain[2]) != 0 &&
           (plain[3] == 'x' || isalpha(plain[3]) != 0) && isalpha(plain[1]) != 0;
}

// Castling by another king or rook than that of the usual game, which the text cannot tell.
bool castlesElsewhere(const Told& told, bool chess960) {
    return told.move[0] != 'e' ||
           (chess960 ? !contains("ah", told.move.substr(2, 1)) : std::abs(told.move[2] - 'e') != 2);
}

// By the position and the text alone, before the text is decoded.
Reading toldReading(Walk& walk, const Told& told, bool chess960) {
    Game& game = walk.game;
    const Squares squares = squaresOf(told);
    if (castles(told.text)) {
        const int king = game.Turn > 0 ? 4 : 60;
        const bool shortSide = told.text == "O-O";
        if (!shortSide && !told.text.starts_with("O-O-O")) return {"short castling with a sign", {king, king - 2}};
        if (castlesElsewhere(told, chess960)) return {"castling from elsewhere", {king, king + (shortSide ? 2 : -2)}};
        return {};
    }
    if (squares.from == HandSquare) {
        const int like = walk.lowestLike(game.Turn * std::abs(pieceCode(told.move[0])), squares.to);
        if (like < 0) return {};
        return {"drop that a like piece can reach", {like, squares.to}};
    }
    if (namesWholeSquare(told.text)) return {"whole square named", {-1, zSquareNumber(told.text.substr(1, 2))}};
    return {};
}

// A twin that the text does not tell apart, because chess does not let it go there.
bool isPinnedTwin(Walk& walk, const Told& told, const Squares& read) {
    const Squares squares = squaresOf(told);
    if (read.to != squares.to || read.from >= squares.from || squares.from == HandSquare) return false;
    if (walk.game.Board[read.from] != walk.game.Board[squares.from] || !walk.game.zMoveLegal(read.from, read.to))
        return false;
    const std::string other = zSquareName(read.from) + zSquareName(read.to);
    return std::ranges::none_of(told.before.legal, [&](const std::string& move) { return move.starts_with(other); });
}

using Counts = std::map<std::string, int>;

struct File {
    const char* name;
    Kind kind;
    Counts counts; // of moves
};

void PrintTo(const File& file, std::ostream* out) { *out << file.name; }

class DecodedGames : public testing::TestWithParam<File> {
protected:
    // How the move was read: "as the engine" or a kind that is told.
    std::string tryMove(Walk& walk, const Told& told) {
        Game& game = walk.game;
        const Reading reading = toldReading(walk, told, GetParam().kind.chess960);
        const Squares read = walk.decode(told.text);
        const Squares wanted = squaresOf(told);
        std::string kind = "as the engine";
        if (*reading.kind != 0) {
            kind = reading.kind;
            EXPECT_EQ(read.from, reading.squares.from >= 0 ? reading.squares.from : read.from);
            EXPECT_EQ(read.to, reading.squares.to);
        } else if (read != wanted) {
            kind = "twin that is pinned";
            EXPECT_TRUE(isPinnedTwin(walk, told, read))
                << told.move << " read as " << zSquareName(read.from) << zSquareName(read.to);
        }
        const int row = game.MoveRow;
        const std::int16_t turn = game.Turn;
        const std::string text = game.zStepForward(true);
        if (kind == "as the engine") {
            EXPECT_NE(text, "");
            if (contains(told.text, "=K")) {
                kind = "promotion to a king";
            } else {
                EXPECT_TRUE(walk.standsAt(told.after.fen));
            }
        }
        game.MoveRow = static_cast<std::int16_t>(turn < 0 ? row + 1 : row);
        game.Turn = static_cast<std::int16_t>(-turn);
        return kind;
    }

    void tryGame(const GameText& game, EngineTalk& engine, Counts& counts) {
        const auto begin = [this](const std::string& fen) {
            return GetParam().kind.anyDrop ? withFullHands(fen) : fen;
        };
        practice::PositionFacts before =
            engine.facts(begin(game.fen.empty() ? std::string(practice::startFen) : game.fen));
        Walk walk;
        walk.put(before.fen);
        for (const std::string& text : game.moves) {
            if (walk.game.MoveRow == LastMoveRow && walk.game.Turn < 0) {
                ++counts["game that a board cannot hold"];
                return;
            }
            SCOPED_TRACE(text + " in " + before.fen);
            const std::string move = practice::readMove(before, text, 'q').move;
            ASSERT_NE(move, "") << "the engine does not know the move";
            const Told told{text, move, before, engine.factsBehind(before.fen, move)};
            walk.game.MoveText[walk.game.MoveRow][(1 - walk.game.Turn) / 2] = text;
            const std::string read = tryMove(walk, told);
            ++counts[read];
            before = GetParam().kind.anyDrop ? engine.facts(begin(told.after.fen)) : told.after;
            if (read != "as the engine") walk.put(before.fen);
            if (HasFailure()) return;
        }
    }
};

} // namespace

TEST_P(DecodedGames, EachTextGivesTheEnginesSquaresAndPositionOrWhatIsTold) {
    const std::string program = findEngineProgram();
    ASSERT_FALSE(program.empty()) << "fairy-stockfish is not installed";
    EngineTalk engine(program);
    engine.play(GetParam().kind.variant, GetParam().kind.chess960);
    Counts counts;
    for (const GameText& game : gamesOf(GetParam().name)) {
        tryGame(game, engine, counts);
        if (HasFailure()) break;
    }
    for (const auto& [kind, count] : counts) std::cout << GetParam().name << ": " << count << " " << kind << "\n";
    EXPECT_EQ(counts, GetParam().counts);
}

INSTANTIATE_TEST_SUITE_P(
    Published, DecodedGames,
    testing::Values(
        File{"standard.pgn", {.variant = "chess"}, {{"as the engine", 2676}, {"game that a board cannot hold", 1}}},
        File{"crazyhouse.pgn",
             {.variant = "crazyhouse"},
             {{"as the engine", 12181}, {"drop that a like piece can reach", 458}, {"twin that is pinned", 4}}},
        File{"bughouse.bpgn",
             {.variant = "bughouse", .anyDrop = true},
             {{"as the engine", 1491}, {"drop that a like piece can reach", 72}, {"twin that is pinned", 1}}},
        File{"chess960.pgn",
             {.variant = "chess", .chess960 = true},
             {{"as the engine", 1374}, {"castling from elsewhere", 13}}},
        File{"wild5.pgn",
             {.variant = "chess"},
             {{"as the engine", 6741}, {"twin that is pinned", 7}, {"whole square named", 5}}},
        File{"losers.pgn", {.variant = "losers"}, {{"as the engine", 11511}}},
        File{"suicide.pgn", {.variant = "suicide"}, {{"as the engine", 9875}, {"promotion to a king", 37}}}));
