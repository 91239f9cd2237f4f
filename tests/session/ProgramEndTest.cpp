// How the program ends: in order by a signal, with its settings written; by a fault where one is told, without them.
#include "session/RunningProgram.h"

#include "TestPaths.h"
#include "board/BoardRig.h"
#include "common/RecordedText.h"
#include "platform/WaitUntil.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include <csignal>

namespace {

std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) all += text;
    return all;
}

std::string record(int moveNumber, const char* turn) {
    const auto line =
        LineOf{.turn = turn, .game = 7, .relation = 0, .moveNumber = moveNumber, .verbose = "P/e2-e4", .pretty = "e4"};
    return "\n\r" + line.text("\n\rfics% ");
}

constexpr int BetweenArrivalsMs = 400;

// Also the end of the batch before: what is sent afterwards is an arrival of its own, and a batch, as no prompt is
// learnt.
bool stillAnswers(RunningProgram& program) {
    runFor(BetweenArrivalsMs);
    const std::size_t before = program.server.received.size();
    program.server.send("\n\rlogin: "); // answered from the settings
    return waitUntil([&] { return program.server.received.size() > before; }, 15000);
}

void expectFault(const std::string& script, const std::string& line, const std::string& before = {}) {
    RunningProgram program;
    ASSERT_TRUE(program.start());
    program.server.send(before);
    ASSERT_TRUE(stillAnswers(program));
    const std::string settings = program.settingsText();
    const auto written = std::filesystem::last_write_time(program.settingsPath());
    program.server.sendLater(script);
    ASSERT_TRUE(program.ended());
    EXPECT_EQ(program.process.exitCode(), 1);
    EXPECT_THAT(program.errorLines(), testing::StartsWith(line + ", met by \"")) << "the limit and the text";
    EXPECT_EQ(program.settingsText(), settings);
    EXPECT_EQ(std::filesystem::last_write_time(program.settingsPath()), written);
}

std::string valueOf(const std::string& settings, const std::string& key) {
    const auto place = settings.find("\n" + key + "=");
    if (place == settings.npos) return "there is no such key";
    const auto begin = place + key.size() + 2;
    return settings.substr(begin, settings.find('\n', begin) - begin);
}

class EndBySignal : public testing::TestWithParam<int> {};

} // namespace

TEST(EndByFault, ABatchOf1002Lines) {
    expectFault(repeated("a\n", 1001) + "a\n\r",
                "brightrank: subscript error: subscript 1001 is outside 0 to 1000 (lines of one batch)");
}

TEST(EndByFault, NotABatchOf1001Lines) {
    RunningProgram program;
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(stillAnswers(program));
    program.server.send(repeated("a\n", 1000) + "a\n\r");
    EXPECT_TRUE(stillAnswers(program));
    EXPECT_EQ(program.process.state(), QProcess::Running);
}

TEST(EndByFault, ABughouseLineForAGameThatHasLeftItsBoard) {
    expectFault("\n\r<b1> game 7 white [P] black []\n\r",
                "brightrank: subscript error: bughouse holdings for a game that has no board",
                record(1, "B") + "\n\r{Game 7 (Anders vs. Berta) Berta resigns} 1-0\n\r");
}

TEST(EndByFault, NotABughouseLineWhileABoardIsIdleAndNoGameWasSeen) {
    RunningProgram program;
    ASSERT_TRUE(program.start());
    program.server.send("\n\r<b1> game 7 white [P] black []\n\r");
    EXPECT_TRUE(stillAnswers(program));
    EXPECT_EQ(program.process.state(), QProcess::Running);
}

TEST(EndByFault, Ply401OfAGame) {
    expectFault(record(1, "B") + record(201, "W") + record(201, "B"),
                "brightrank: subscript error: subscript 201 is outside 0 to 200 (rows of the move list)");
}

TEST(EndByFault, APlyBeforeTheFirst) {
    expectFault(record(0, "W"), "brightrank: subscript error: subscript -2 is outside 0 to 400 (half-moves of a game)");
}

TEST(EndByFault, NotPly400) {
    RunningProgram program;
    ASSERT_TRUE(program.start());
    ASSERT_TRUE(stillAnswers(program));
    program.server.send(record(1, "B") + record(200, "B") + record(201, "W"));
    EXPECT_TRUE(stillAnswers(program));
    EXPECT_EQ(program.process.state(), QProcess::Running);
}

TEST(EndByFault, ARecordedGameOf415Plies) {
    expectFault(recordedText("server-b/03_long_game_smoves.raw"),
                "brightrank: subscript error: subscript 201 is outside 0 to 200 (rows of the move list)");
}

TEST_P(EndBySignal, WritesTheSettingsAndEndsWithStatus0) {
    RunningProgram program;
    ASSERT_TRUE(program.start());
    program.signal(GetParam());
    ASSERT_TRUE(program.ended());
    EXPECT_EQ(program.process.exitCode(), 0);
    EXPECT_EQ(program.errorLines(), "");
    const std::string settings = program.settingsText();
    EXPECT_EQ(valueOf(settings, "Registry_OK"), "Yes");
    EXPECT_EQ(valueOf(settings, "Handle"), "Anders");
    EXPECT_EQ(valueOf(settings, "Warn_Time"), "10") << "a key that was not there is written";
    EXPECT_EQ(std::filesystem::status(program.settingsPath()).permissions(), std::filesystem::perms(0600));
    EXPECT_TRUE(waitUntil([&] { return !program.server.hasClient(); })) << "the connection is closed";
}

INSTANTIATE_TEST_SUITE_P(Of, EndBySignal, testing::Values(SIGTERM, SIGINT),
                         [](const auto& number) { return number.param == SIGTERM ? "SIGTERM" : "SIGINT"; });

TEST(EndBySignal, InTheMiddleOfABatchTooItEndsInOrder) {
    RunningProgram program;
    ASSERT_TRUE(program.start());
    program.server.send("\n\rhalf of a li");
    program.signal(SIGTERM);
    ASSERT_TRUE(program.ended());
    EXPECT_EQ(program.process.exitCode(), 0);
}

TEST(EndBySignal, ASecondStartReadsTheSettingsBackAndLeavesThemAsTheyWere) {
    RunningProgram program;
    ASSERT_TRUE(program.start());
    program.signal(SIGTERM);
    ASSERT_TRUE(program.ended());
    const std::string first = program.settingsText();
    ASSERT_TRUE(waitUntil([&] { return !program.server.hasClient(); }));
    ASSERT_TRUE(program.start()) << "host and port were read back";
    EXPECT_TRUE(stillAnswers(program));
    EXPECT_EQ(program.server.commands(), std::vector<std::string>{"Anders"}) << "the handle was read back";
    program.signal(SIGTERM);
    ASSERT_TRUE(program.ended());
    EXPECT_EQ(program.settingsText(), first);
}

TEST(EndBySignal, WithoutASettingsFileOneIsMadeForTheUserAlone) {
    RunningProgram program;
    std::filesystem::remove(program.settingsPath());
    program.process.start(QStringLiteral(BRIGHTRANK_PROGRAM), QStringList());
    ASSERT_TRUE(program.process.waitForStarted());
    runFor(1500); // its signals are not taken before it is up
    program.signal(SIGTERM);
    ASSERT_TRUE(program.ended());
    EXPECT_EQ(valueOf(program.settingsText(), "Registry_OK"), "Yes");
    EXPECT_EQ(std::filesystem::status(program.settingsPath()).permissions(), std::filesystem::perms(0600));
}
