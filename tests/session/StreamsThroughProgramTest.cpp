// Recorded server text through the whole program, in packets of four sizes: what packets must not change.
#include "session/ProgramRig.h"

#include "TestPaths.h"
#include "common/modChess.h"
#include "platform/Colors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

namespace {

constexpr auto EveryPackets = {Packets::OneByte, Packets::SevenBytes, Packets::OneLine, Packets::UpToAPause};

struct Stream {
    const char* file;
    int positions; // that reach a board, counted apart from the program
    int styleSet;  // how often "Set Style 12" goes out
    // Lines that come to the console or not depending on where a batch ends, as the rules have it: the line behind a
    // tell, behind holdings and behind "backs up" is taken for the prompt; a line that begins with a control character
    // is dropped, but behind a prompt it does not begin with it.
    std::vector<std::string> batchLines = {};
};

void PrintTo(const Stream& stream, std::ostream* out) { *out << stream.file; }

std::string streamText(const std::string& name) {
    std::ifstream file(std::string(TEST_DATA) + "/streams/" + name, std::ios::binary);
    EXPECT_TRUE(file.good()) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

// The Style 12 lines of a stream as `ProgramRig::updates` notes them, read apart from the program's own reader.
std::vector<std::string> positionsIn(const std::string& stream) {
    std::istringstream text(stream);
    std::vector<std::string> positions;
    for (std::string line; std::getline(text, line);) {
        if (line.find("<12> ") == line.npos) continue;
        std::istringstream rest(line.substr(line.find("<12> ")));
        std::vector<std::string> word;
        for (std::string next; rest >> next;) word.push_back(next);
        if (word.size() < 31) continue;
        std::string squares;
        for (std::size_t rank = 8; rank >= 1; --rank) squares += word[rank];
        const int ply = 2 * std::stoi(word[26]) + (word[9] == "W" ? 0 : 1);
        positions.push_back("game " + word[16] + " " + squares + " ply " + std::to_string(ply) + " " + word[29]);
    }
    return positions;
}

// What a user reads: without prompts, blank lines, control characters and the bytes of the telnet protocol, without the
// answers to the log-on questions, whose echo stands wherever the question ended; and without a Style 12 line that
// happened to be the first of its batch, which is printed as it came.
std::vector<std::string> readable(const std::vector<std::string>& console, const Stream& stream) {
    std::vector<std::string> lines;
    for (std::string line : console) {
        std::erase_if(line, [](char c) { return c < ' ' || c > '~'; });
        while (line.starts_with(FicsPrompt)) line.erase(0, 6);
        line.erase(line.find_last_not_of(' ') + 1);
        const bool logOn = line.starts_with("login:") || line == "Anders" || line.starts_with("password:");
        const bool byBatch =
            std::ranges::any_of(stream.batchLines, [&](auto& part) { return line.find(part) != line.npos; });
        if (!line.empty() && !logOn && !byBatch && line.find("<12> ") == line.npos) lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> withoutPrompts(std::vector<std::string> lines) {
    for (std::string& line : lines) {
        const auto prompt = line.find(FicsPrompt);
        if (prompt != line.npos) line.erase(prompt, 6);
    }
    return lines;
}

struct Outcome {
    std::string boards, games;
    std::vector<std::string> console, commands, updates, holdings, sounds, messages;
    std::string fault;
    std::ptrdiff_t rawRecords = 0; // Style 12 lines on the console
};

// The part of the boards that does not depend on when the end of a game was noticed.
std::string gamesText(const ProgramRig& rig) {
    std::string text;
    for (const frmChessBoard* board : rig.boards()) {
        for (int square = 0; square < 64; ++square) text += std::to_string(board->game.Board[square]) + " ";
        for (const auto& row : board->game.MoveText) text += row[0] + " " + row[1] + " ";
        text += board->game.xMyRel() + " " + std::to_string(board->game.gameIndex) + "\n";
    }
    return text;
}

Outcome outcomeOf(const Stream& stream, Packets packets) {
    ProgramRig rig;
    rig.holdTime();
    rig.connectNow();
    rig.learnPrompt();
    rig.replay(streamText(stream.file), packets);
    const auto console = rig.consoleLines();
    return {rig.boardsText(),
            gamesText(rig),
            readable(console, stream),
            rig.server.commands(),
            rig.updates,
            withoutPrompts(rig.holdings),
            rig.sounds,
            rig.messages,
            rig.fault.value_or("none"),
            std::ranges::count_if(console, [](const auto& line) { return line.find("<12> ") != line.npos; })};
}

void expectSame(const Outcome& one, const Outcome& other) {
    EXPECT_EQ(one.games, other.games);
    EXPECT_EQ(one.updates, other.updates);
    EXPECT_EQ(one.holdings, other.holdings);
    EXPECT_EQ(one.commands, other.commands);
    EXPECT_EQ(one.messages, other.messages);
    EXPECT_EQ(one.fault, other.fault);
    EXPECT_EQ(one.console, other.console);
}

class StreamsThroughProgram : public testing::TestWithParam<Stream> {};
class RecordsOfServerA : public testing::TestWithParam<Stream> {};

} // namespace

TEST_P(StreamsThroughProgram, EveryPositionReachesItsBoardInOrder) {
    const Outcome outcome = outcomeOf(GetParam(), Packets::SevenBytes);
    const auto expected = positionsIn(streamText(GetParam().file));
    EXPECT_EQ(std::ssize(expected), GetParam().positions);
    EXPECT_EQ(outcome.updates, expected);
    EXPECT_EQ(std::ranges::count(outcome.commands, "Set Style 12"), GetParam().styleSet);
    EXPECT_EQ(outcome.fault, "none");
}

// Server A ends each prompt with a line break of its own, so an empty line stands in front of every record wherever the
// packets end. Server B may put a bell behind the prompt: then a packet that ends behind it leaves the record first.
TEST_P(RecordsOfServerA, AreNeverPrintedRaw) {
    for (const Packets packets : EveryPackets) EXPECT_EQ(outcomeOf(GetParam(), packets).rawRecords, 0);
}

TEST_P(StreamsThroughProgram, SmallPacketsChangeNothing) {
    const Outcome bytes = outcomeOf(GetParam(), Packets::OneByte);
    for (const Packets packets : {Packets::SevenBytes, Packets::OneLine}) {
        SCOPED_TRACE(packets == Packets::OneLine ? "one line a packet" : "seven bytes a packet");
        const Outcome other = outcomeOf(GetParam(), packets);
        expectSame(bytes, other);
        EXPECT_EQ(bytes.boards, other.boards);
        EXPECT_EQ(bytes.sounds, other.sounds);
    }
}

// A server that sends a whole session at once makes batches of many answers. All positions of a batch reach the boards
// before any of its lines is printed, so the end of a game is noticed when the next game has begun on its board:
// titles, clocks, the side at the bottom and the bells of games that ended may differ. No position, move or command
// does.
TEST_P(StreamsThroughProgram, AllAtOnceChangesNoGameAndNoCommand) {
    expectSame(outcomeOf(GetParam(), Packets::OneByte), outcomeOf(GetParam(), Packets::UpToAPause));
}

INSTANTIATE_TEST_SUITE_P(
    Recorded, StreamsThroughProgram,
    testing::Values(
        Stream{"server-a/01_anders_registered.raw",
               50,
               1,
               {"(told ", "shouts: hej alla", "Game drawn by agreement", "Anders moves: e4"}},
        Stream{"server-a/02_berta_registered.raw", 38, 1, {"(told "}},
        Stream{"server-a/03_guest_observer.raw", 24, 1, {"(told "}},
        Stream{"server-a/10_login_wrong_password.raw", 0, 1}, Stream{"server-a/12_login_unregistered_name.raw", 0, 1},
        Stream{"server-a/13_login_odd_names.raw", 0, 1}, Stream{"server-a/20_bughouse_GuestABCD.raw", 10, 1},
        Stream{"server-a/21_bughouse_GuestEFGH.raw", 9, 1}, Stream{"server-a/24_bughouse_observer.raw", 20, 1},
        Stream{"server-a/45_observer_two_games.raw", 7, 1},
        Stream{"server-b/01_anders_registered.raw", 44, 3, {"(told ", "not listening to channel"}},
        Stream{"server-b/02_berta_registered.raw", 36, 3, {"(told "}},
        Stream{"server-b/10_examine_journal.raw", 40, 3, {"agrees to be your partner"}},
        Stream{"server-b/20_bughouse_GuestEFGH.raw", 6, 3}));

INSTANTIATE_TEST_SUITE_P(
    AsPublished, StreamsThroughProgram,
    testing::Values(Stream{"text/bughouse_two_boards.txt", 59, 0, {"observe", "977", "^R"}},
                    Stream{"text/challenges.txt", 0, 0}, Stream{"text/finger.txt", 0, 0},
                    Stream{"text/game_start_with_seekinfo.txt", 4, 0}, Stream{"text/help_style12.txt", 0, 0},
                    Stream{"text/history.txt", 0, 0}, Stream{"text/login_failure.txt", 0, 0},
                    Stream{"text/login_guest_question.txt", 0, 0}, Stream{"text/login_guest_success.txt", 0, 1},
                    Stream{"text/login_screen.txt", 0, 0}, Stream{"text/login_success.txt", 0, 1},
                    Stream{"text/moves_crazyhouse.txt", 0, 0}, Stream{"text/moves_relayed.txt", 0, 0},
                    Stream{"text/moves_standard.txt", 0, 0}, Stream{"text/moves_with_milliseconds.txt", 0, 0},
                    Stream{"text/observation_two_games.txt", 15, 0}, Stream{"text/seek_announcements.txt", 0, 0},
                    Stream{"text/seek_taken.txt", 4, 0}, Stream{"text/session_1997.txt", 0, 0},
                    Stream{"text/smoves_standard_and_fr.txt", 1, 0}, Stream{"text/sought.txt", 0, 0},
                    Stream{"text/stored_history_journal.txt", 0, 0}, Stream{"text/style12_lines.txt", 6, 0},
                    Stream{"text/tells_shouts_events.txt", 0, 0}, Stream{"text/variables_guest.txt", 0, 0},
                    Stream{"text/variables_registered.txt", 0, 0}));

INSTANTIATE_TEST_SUITE_P(Recorded, RecordsOfServerA,
                         testing::Values(Stream{"server-a/01_anders_registered.raw", 50, 1},
                                         Stream{"server-a/02_berta_registered.raw", 38, 1},
                                         Stream{"server-a/24_bughouse_observer.raw", 20, 1}));

// Control characters in front of a line drop it, unless a prompt stands before them in the same arrival.
TEST(StreamsThroughProgram, BlockModeTextKeepsItsBoardAndCommandsInAllPackets) {
    const Stream stream{"server-a/14_block_mode_and_styles.raw", 1, 1};
    const Outcome bytes = outcomeOf(stream, Packets::OneByte);
    EXPECT_EQ(bytes.updates, positionsIn(streamText(stream.file)));
    for (const Packets packets : {Packets::SevenBytes, Packets::OneLine, Packets::UpToAPause}) {
        const Outcome other = outcomeOf(stream, packets);
        EXPECT_EQ(bytes.boards, other.boards);
        EXPECT_EQ(bytes.updates, other.updates);
        EXPECT_EQ(bytes.commands, other.commands);
    }
}

TEST(StreamsThroughProgram, AGameOf415PliesEndsTheProgramAtPly401InAllPackets) {
    const Stream stream{"server-b/03_long_game_smoves.raw", 419, 1};
    const auto positions = positionsIn(streamText(stream.file));
    for (const Packets packets : EveryPackets) {
        const Outcome outcome = outcomeOf(stream, packets);
        EXPECT_EQ(outcome.fault, "subscript error: subscript 201 is outside 0 to 200");
        ASSERT_EQ(outcome.updates.size(), 401U); // the start and 400 plies
        EXPECT_TRUE(std::equal(outcome.updates.begin(), outcome.updates.end(), positions.begin()));
    }
}

TEST(StreamsThroughProgram, TellsAndShoutsOfARecordedSessionHaveTheirColours) {
    ProgramRig rig;
    rig.holdTime();
    rig.connectNow();
    rig.learnPrompt();
    rig.replay(streamText("server-a/02_berta_registered.raw"), Packets::OneLine);
    const auto holds = [](const std::vector<std::string>& lines, const char* part) {
        return std::ranges::count_if(lines, [part](const auto& line) { return line.find(part) != line.npos; });
    };
    const auto red = rig.consoleLines(QColor(255, 0, 0));
    EXPECT_EQ(holds(red, " tells you: "), 2);
    EXPECT_EQ(holds(rig.consoleLines(), " tells you: "), 2);
    EXPECT_EQ(holds(rig.consoleLines(colorOf(modChess.ColorShout)), " shouts: "), 1);
    EXPECT_NE(modChess.ColorShout, modChess.ColorMain);
}
