// Recorded games of two servers, line by line onto boards.
#include "board/RoutingRig.h"

#include "common/Fault.h"
#include "common/RecordedText.h"

#include <gtest/gtest.h>

#include <map>

namespace {

// The words of a line from its marker on, read apart from the program's own reader.
std::vector<std::string> wordsOf(const std::string& line) {
    std::istringstream text(line.substr(line.find("<12> ")));
    std::vector<std::string> words;
    for (std::string word; text >> word;) words.push_back(word);
    return words;
}

int codeOf(char letter) {
    static const std::map<char, int> codes{{'K', 1},  {'Q', 2},  {'R', 3},  {'B', 4},  {'N', 5},  {'P', 6},
                                           {'k', -1}, {'q', -2}, {'r', -3}, {'b', -4}, {'n', -5}, {'p', -6}};
    const auto found = codes.find(letter);
    return found == codes.end() ? 0 : found->second;
}

// Plays a stream; remembers the latest line and holdings of every game.
struct Replay : RoutingRig {
    std::map<int, std::vector<std::string>> latest;
    std::map<int, std::string> holdings;
    int positions = 0;

    void play(const std::string& line) {
        if (routing.zStyle12Line(line, true)) {
            ++positions;
            const auto words = wordsOf(line);
            latest[std::stoi(words[16])] = words;
            Game& board = boardAt(zFindBoard(modChess.Record.GameNumber));
            board.zSetPosition(false);
        } else if (line.find("<b1>") != line.npos) {
            boardAt(zFindBoard(modChess.Record.GameNumber)).zSetBughouse(line);
            holdings[modChess.Record.GameNumber] = line;
        }
    }
};

void expectBoard(const Game& board, const std::vector<std::string>& words) {
    for (int square = 0; square < 64; ++square) {
        const auto rank = static_cast<std::size_t>(8 - square / 8);
        EXPECT_EQ(board.Board[square], codeOf(words[rank][static_cast<std::size_t>(square % 8)]))
            << "square " << square;
    }
    EXPECT_EQ(board.Turn, words[9] == "W" ? 1 : -1);
    EXPECT_EQ(board.NextPly, 2 * std::stoi(words[26]) + (words[9] == "W" ? 0 : 1));
    EXPECT_EQ(board.Style12Record.WhiteName, words[17]);
    EXPECT_EQ(board.Style12Record.BlackName, words[18]);
    EXPECT_EQ(board.xMyRel(), words[19]);
}

struct Stream {
    const char* file;
    int positions; // lines with a position, counted apart
    std::size_t games;
};

void PrintTo(const Stream& stream, std::ostream* out) { *out << stream.file; }

class StreamReplay : public testing::TestWithParam<Stream> {};

} // namespace

TEST_P(StreamReplay, EveryGameEndsOnThePositionOfItsLastLine) {
    Replay replay;
    for (const std::string& line : recordedLines(GetParam().file)) replay.play(line + "\r\n");
    EXPECT_EQ(replay.positions, GetParam().positions);
    EXPECT_EQ(replay.latest.size(), GetParam().games);
    for (const auto& [number, words] : replay.latest) {
        SCOPED_TRACE("game " + std::to_string(number));
        expectBoard(boardAt(zFindBoard(static_cast<std::int16_t>(number))), words);
    }
}

INSTANTIATE_TEST_SUITE_P(Recorded, StreamReplay,
                         testing::Values(Stream{"server-a/01_anders_registered.raw", 50, 1},
                                         Stream{"server-a/03_guest_observer.raw", 24, 1},
                                         Stream{"server-a/24_bughouse_observer.raw", 20, 2},
                                         Stream{"server-a/45_observer_two_games.raw", 7, 2},
                                         Stream{"server-b/10_examine_journal.raw", 40, 1}));

TEST(StreamReplay, BughouseHoldingsAreThoseOfTheLatestLine) {
    Replay replay;
    for (const std::string& line : recordedLines("server-a/24_bughouse_observer.raw")) replay.play(line + "\r\n");
    ASSERT_FALSE(replay.holdings.empty());
    for (const auto& [number, line] : replay.holdings) {
        const auto open = line.find('[');
        const auto inside = line.substr(open + 1, line.find(']') - open - 1);
        const Game& board = boardAt(zFindBoard(static_cast<std::int16_t>(number)));
        EXPECT_EQ(board.Holdings[4][0], std::ranges::count(inside, 'P')) << line;
        EXPECT_EQ(board.Holdings[3][0], std::ranges::count(inside, 'N')) << line;
        EXPECT_TRUE(board.HoldingsShown);
    }
}

TEST(StreamReplay, AGameOf415PliesIsHeldUpTo400AndFaultsAfterIt) {
    Replay replay;
    std::map<int, std::string> moves; // by ply
    int faultedAt = 0;
    for (const std::string& line : recordedLines("server-b/03_long_game_smoves.raw")) {
        const bool position = line.find("<12> ") != line.npos;
        const auto words = position ? wordsOf(line) : std::vector<std::string>{};
        const int ply = position ? 2 * std::stoi(words[26]) + (words[9] == "B" ? 1 : 0) - 2 : 0;
        try {
            replay.play(line + "\r\n");
        } catch (const Fault& fault) {
            EXPECT_EQ(fault.kind(), FaultKind::Subscript);
            faultedAt = ply;
            break;
        }
        if (position) moves[ply] = words[29];
    }
    EXPECT_EQ(faultedAt, 401);
    const Game& board = *replay.boards.at(0);
    for (int ply = 1; ply <= 400; ++ply) EXPECT_EQ(board.MoveText[(ply + 1) / 2][(ply + 1) % 2], moves[ply]) << ply;
    EXPECT_EQ(board.LastRow, 200);
    EXPECT_EQ(board.LastCol, 1);
}
