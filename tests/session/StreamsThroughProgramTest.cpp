// Recorded server text through the real socket and the whole program: what packets and pauses must not change.
#include "session/LinesByBatch.h"
#include "session/ProgramRig.h"

#include "common/RecordedText.h"
#include "common/modChess.h"
#include "platform/Colors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace {

struct Stream {
    const char* file;
    int positions; // that reach a board, counted apart from the program
    int styleSet;  // how often "Set Style 12" goes out
};

void PrintTo(const Stream& stream, std::ostream* out) { *out << stream.file; }

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

using Pace = ProgramRig::Pace;

// One message in one packet, with time to settle: what all others are compared with.
constexpr Pace Whole{1'000'000, 0, 50};
constexpr std::size_t Lines = 0;
constexpr std::size_t Small = 8192; // bytes of a stream that is sent byte for byte as well

struct Outcome {
    std::string console, boards, games, text;
    std::vector<std::string> commands, updates, holdings, sounds, messages;
    std::string fault;
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

Outcome outcomeOf(const std::string& stream, const Pace& pace) {
    ProgramRig rig;
    rig.holdTime();
    rig.connectNow();
    rig.learnPrompt();
    rig.replayMessages(stream, pace);
    rig.console().flush();
    Outcome outcome{rig.console().text(), rig.boardsText(), gamesText(rig), {},           rig.server.commands(),
                    rig.updates,          rig.holdings,     rig.sounds,     rig.messages, rig.fault.value_or("none")};
    for (const std::string& batch : rig.batches) outcome.text += batch;
    return outcome;
}

std::string traceOf(const Pace& pace) {
    return std::to_string(pace.packet) + " bytes a packet, " + std::to_string(pace.pauseMs) + " ms between them";
}

void expectSame(const Outcome& one, const Outcome& other) {
    EXPECT_EQ(one.games, other.games);
    EXPECT_EQ(one.updates, other.updates);
    EXPECT_EQ(one.messages, other.messages);
    EXPECT_EQ(one.fault, other.fault);
    EXPECT_TRUE(one.text == other.text) << "each byte is read once, in order";
}

// The commands but for those that ask for the moves of a game that began.
std::vector<std::string> apartFromLists(std::vector<std::string> commands) {
    std::erase_if(commands, [](const std::string& line) { return contains(line, "moves "); });
    return commands;
}

std::vector<std::string> withoutPrompts(std::vector<std::string> lines) {
    for (std::string& line : lines) {
        const auto prompt = line.find(FicsPrompt);
        if (prompt != line.npos) line.erase(prompt, 6);
    }
    return lines;
}

// A record that a client had wrapped is none, and is shown as it is.
std::ptrdiff_t rawRecords(const std::string& console) {
    std::istringstream text(console);
    std::ptrdiff_t count = 0;
    for (std::string line; std::getline(text, line);) count += contains(line, "<12> ") ? 1 : 0;
    return count;
}

class StreamsThroughProgram : public testing::TestWithParam<Stream> {};

} // namespace

TEST_P(StreamsThroughProgram, EveryPositionReachesItsBoardInOrder) {
    const std::string stream = recordedText(GetParam().file);
    const Outcome outcome = outcomeOf(stream, {7, 0, 0});
    const auto expected = positionsIn(stream);
    EXPECT_EQ(std::ssize(expected), GetParam().positions);
    EXPECT_EQ(outcome.updates, expected);
    EXPECT_EQ(std::ranges::count(outcome.commands, "Set Style 12"), GetParam().styleSet);
    EXPECT_EQ(outcome.fault, "none");
}

TEST_P(StreamsThroughProgram, MessagesInPacketsWithPausesChangeNothing) {
    const std::string stream = recordedText(GetParam().file);
    const Outcome whole = outcomeOf(stream, Whole);
    std::vector<Pace> paces{{7, 2, 50}, {100, 10, 50}, {Lines, 0, 50}, {Lines, 10, 50}};
    if (stream.size() < Small) paces.insert(paces.end(), {{1, 0, 50}, {1, 10, 50}});
    for (const Pace& pace : paces) {
        SCOPED_TRACE(traceOf(pace));
        const Outcome cut = outcomeOf(stream, pace);
        expectSame(whole, cut);
        EXPECT_EQ(whole.commands, cut.commands);
        EXPECT_TRUE(whole.console == cut.console);
        EXPECT_EQ(whole.boards, cut.boards);
        EXPECT_EQ(whole.holdings, cut.holdings);
        EXPECT_EQ(whole.sounds, cut.sounds);
    }
}

// Batches of many messages: all positions of one reach the boards before any of its lines is printed, so the end of a
// game may be noticed when the next game has begun on its board. Titles, clocks, the side at the bottom and the bells
// of games that ended may differ, and so may whether a list of moves was asked for. No position, move or other command
// does, and no line but where the rules look at its batch.
TEST_P(StreamsThroughProgram, MessagesWithoutPausesLoseAndDoubleNothing) {
    const std::string stream = recordedText(GetParam().file);
    const Outcome whole = outcomeOf(stream, Whole);
    const auto lines = shownLines(whole.console);
    modChess.gPrompt = FicsPrompt;
    const LinesByBatch byBatch(stream);
    std::vector<Pace> paces{{7, 0, 0}, {100, 10, 0}, {Lines, 10, 0}, {1'000'000, 0, 0}};
    if (stream.size() < Small) paces.push_back({1, 1, 0});
    for (const Pace& pace : paces) {
        SCOPED_TRACE(traceOf(pace));
        const Outcome cut = outcomeOf(stream, pace);
        expectSame(whole, cut);
        EXPECT_EQ(apartFromLists(whole.commands), apartFromLists(cut.commands));
        EXPECT_EQ(withoutPrompts(whole.holdings), withoutPrompts(cut.holdings));
        EXPECT_EQ(rawRecords(cut.console), rawRecords(whole.console)) << "no record is printed raw";
        const auto shown = shownLines(cut.console);
        for (const auto& line : missingIn(shown, lines)) EXPECT_TRUE(byBatch.contain(line)) << "lost: " << line;
        for (const auto& line : missingIn(lines, shown)) EXPECT_TRUE(byBatch.contain(line)) << "more: " << line;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Recorded, StreamsThroughProgram,
    testing::Values(
        Stream{"server-a/01_anders_registered.raw", 50, 1}, Stream{"server-a/02_berta_registered.raw", 38, 1},
        Stream{"server-a/03_guest_observer.raw", 24, 1}, Stream{"server-a/10_login_wrong_password.raw", 0, 1},
        Stream{"server-a/12_login_unregistered_name.raw", 0, 1}, Stream{"server-a/13_login_odd_names.raw", 0, 1},
        Stream{"server-a/14_block_mode_and_styles.raw", 0, 1}, Stream{"server-a/20_bughouse_GuestABCD.raw", 10, 1},
        Stream{"server-a/21_bughouse_GuestEFGH.raw", 9, 1}, Stream{"server-a/24_bughouse_observer.raw", 20, 1},
        Stream{"server-a/45_observer_two_games.raw", 7, 1}, Stream{"server-b/01_anders_registered.raw", 44, 3},
        Stream{"server-b/02_berta_registered.raw", 36, 3}, Stream{"server-b/10_examine_journal.raw", 40, 3},
        Stream{"server-b/20_bughouse_GuestEFGH.raw", 6, 3}));

INSTANTIATE_TEST_SUITE_P(
    AsPublished, StreamsThroughProgram,
    testing::Values(Stream{"text/bughouse_two_boards.txt", 59, 0}, Stream{"text/challenges.txt", 0, 0},
                    Stream{"text/finger.txt", 0, 0}, Stream{"text/game_start_with_seekinfo.txt", 4, 0},
                    Stream{"text/help_style12.txt", 0, 0}, Stream{"text/history.txt", 0, 0},
                    Stream{"text/login_failure.txt", 0, 0}, Stream{"text/login_guest_question.txt", 0, 0},
                    Stream{"text/login_guest_success.txt", 0, 1}, Stream{"text/login_screen.txt", 0, 0},
                    Stream{"text/login_success.txt", 0, 1}, Stream{"text/moves_crazyhouse.txt", 0, 0},
                    Stream{"text/moves_relayed.txt", 0, 0}, Stream{"text/moves_standard.txt", 0, 0},
                    Stream{"text/moves_with_milliseconds.txt", 0, 0}, Stream{"text/observation_two_games.txt", 15, 0},
                    Stream{"text/seek_announcements.txt", 0, 0}, Stream{"text/seek_taken.txt", 4, 0},
                    Stream{"text/session_1997.txt", 0, 0}, Stream{"text/smoves_standard_and_fr.txt", 1, 0},
                    Stream{"text/sought.txt", 0, 0}, Stream{"text/stored_history_journal.txt", 0, 0},
                    Stream{"text/style12_lines.txt", 6, 0}, Stream{"text/tells_shouts_events.txt", 0, 0},
                    Stream{"text/variables_guest.txt", 0, 0}, Stream{"text/variables_registered.txt", 0, 0}));

TEST(StreamsThroughProgram, AGameOf415PliesEndsTheProgramAtPly401InAllPackets) {
    const std::string stream = recordedText("server-b/03_long_game_smoves.raw");
    const auto positions = positionsIn(stream);
    for (const Pace& pace : {Whole, Pace{7, 2, 50}, Pace{Lines, 0, 0}, Pace{1'000'000, 0, 0}}) {
        const Outcome outcome = outcomeOf(stream, pace);
        EXPECT_TRUE(outcome.fault.starts_with("subscript error: subscript 201 is outside 0 to 200")) << outcome.fault;
        ASSERT_EQ(outcome.updates.size(), 401U); // the start and 400 plies
        EXPECT_TRUE(std::equal(outcome.updates.begin(), outcome.updates.end(), positions.begin()));
    }
}

TEST(StreamsThroughProgram, TellsAndShoutsOfARecordedSessionHaveTheirColours) {
    ProgramRig rig;
    rig.holdTime();
    rig.connectNow();
    rig.learnPrompt();
    rig.replayMessages(recordedText("server-a/02_berta_registered.raw"), Whole);
    const auto holds = [](const std::vector<std::string>& lines, const char* part) {
        return std::ranges::count_if(lines, [part](const auto& line) { return line.find(part) != line.npos; });
    };
    const auto red = rig.consoleLines(QColor(255, 0, 0));
    EXPECT_EQ(holds(red, " tells you: "), 2);
    EXPECT_EQ(holds(rig.consoleLines(), " tells you: "), 2);
    EXPECT_EQ(holds(rig.consoleLines(colorOf(modChess.ColorShout)), " shouts: "), 1);
    EXPECT_NE(modChess.ColorShout, modChess.ColorMain);
}
// A packet ends with a prompt by chance, so ten messages are one arrival: the end of game 1 is read behind the first
// positions of the next game 1, whose board is the old one's and goes with it.
TEST(StreamsThroughProgram, HoldingsOfAGameThatBeganInTheArrivalOfItsPredecessorsEndEndTheProgram) {
    const Outcome outcome = outcomeOf(recordedText("server-b/02_berta_registered.raw"), {100, 2, 0});
    EXPECT_EQ(outcome.fault, "subscript error: bughouse holdings for a game that has no board, met by "
                             "\"<b1> game 1 White [P] Black [] <- WP\"");
}
