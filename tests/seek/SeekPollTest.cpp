// When the seek graph asks the server, and what it keeps off the console meanwhile.
#include "seek/SeekPoll.h"

#include "common/modChess.h"

#include <gmock/gmock.h>

#include <algorithm>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct SeekPollTest : testing::Test {
    int now = 0;
    int due = -1; // -1 while tmrSeek is off
    int every = 0;
    bool busy = false;
    std::vector<std::string> events; // with the time they happened at
    SeekPoll poll{hooks()};

    SeekPollTest() { modChess = {}; }
    ~SeekPollTest() override { modChess = {}; }

    void note(const std::string& what) { events.push_back(std::to_string(now) + " " + what); }
    SeekPollHooks hooks() {
        return {
            .startTimer =
                [this](int milliseconds) {
                    every = milliseconds;
                    due = now + milliseconds;
                },
            .stopTimer = [this] { due = -1; },
            .millisecondsOfDay = [this] { return now; },
            .BusyTest = [this] { return busy; },
            .zSetstate = [this](std::int16_t state) { note("state " + std::to_string(state)); },
            .zSendMsg = [this](const std::string& text) { note(text); },
            .enableSeek = [this] { note("cmdSeek"); },
        };
    }
    void passUntil(int time) {
        while (due >= 0 && due <= time) {
            now = due;
            due += every;
            poll.tmrSeek();
        }
        now = time;
    }
};

} // namespace

TEST_F(SeekPollTest, BeforeTheStartTheTimerHasNoInterval) { EXPECT_EQ(poll.interval, 0); }

TEST_F(SeekPollTest, TheFirstTickComesAfter100MillisecondsAndAsks) {
    poll.start();
    passUntil(99);
    EXPECT_THAT(events, IsEmpty());
    passUntil(100);
    EXPECT_THAT(events, ElementsAre("100 cmdSeek", "100 state 6", "100 sought"));
    EXPECT_EQ(poll.interval, 4000);
    EXPECT_EQ(modChess.Deadlines[2], 4100);
}

TEST_F(SeekPollTest, TheConsoleIsQuietFromTheFirstTickToTheSecond) {
    poll.start();
    EXPECT_FALSE(modChess.gConsoleQuiet);
    passUntil(100);
    EXPECT_TRUE(modChess.gConsoleQuiet);
    now = 300;
    poll.again();
    EXPECT_TRUE(modChess.gConsoleQuiet);
    passUntil(2300);
    EXPECT_FALSE(modChess.gConsoleQuiet);
}

TEST_F(SeekPollTest, AnAnswerBringsTheNextQuestionTwoSecondsLater) {
    poll.start();
    passUntil(100);
    now = 500;
    poll.again();
    EXPECT_EQ(modChess.Deadlines[2], 2500);
    EXPECT_EQ(poll.interval, 2000);
    events.clear();
    passUntil(2500);
    EXPECT_THAT(events, ElementsAre("2500 state 6", "2500 sought")) << "cmdSeek is enabled once";
    EXPECT_EQ(modChess.Deadlines[2], 6500);
}

TEST_F(SeekPollTest, WithoutAnAnswerTheWatchdogAsksAgain) {
    poll.start();
    passUntil(100);
    events.clear();
    passUntil(8100);
    EXPECT_THAT(events, ElementsAre("4100 state 6", "4100 sought", "8100 state 6", "8100 sought"));
}

TEST_F(SeekPollTest, TheWatchdogsTickLeavesTheDeadlineAndTheInterval) {
    poll.start();
    passUntil(4100);
    EXPECT_EQ(modChess.Deadlines[2], 4100);
    EXPECT_EQ(poll.interval, 4000);
    EXPECT_FALSE(modChess.gConsoleQuiet);
}

TEST_F(SeekPollTest, AnAnswerThatNeverEndsKeepsTheCaptureUpSoTheQuestionComesAfterSixSeconds) {
    poll.start();
    passUntil(100);
    busy = true; // the capture flag, for five seconds
    passUntil(5099);
    busy = false;
    events.clear();
    passUntil(6100);
    EXPECT_THAT(events, ElementsAre("6100 state 6", "6100 sought"));
}

TEST_F(SeekPollTest, WhileACaptureRunsNothingIsSentAndTwoSecondsPass) {
    busy = true;
    poll.start();
    passUntil(100);
    EXPECT_THAT(events, ElementsAre("100 cmdSeek"));
    EXPECT_EQ(poll.interval, 2000);
    EXPECT_EQ(modChess.Deadlines[2], 2100);
    EXPECT_TRUE(modChess.gConsoleQuiet);
    passUntil(2100);
    EXPECT_FALSE(modChess.gConsoleQuiet);
    EXPECT_THAT(events, ElementsAre("100 cmdSeek"));
    busy = false;
    passUntil(4100);
    EXPECT_THAT(events, ElementsAre("100 cmdSeek", "4100 state 6", "4100 sought"));
}

TEST_F(SeekPollTest, StoppedItIsIdle) {
    poll.start();
    passUntil(100);
    poll.stop();
    EXPECT_EQ(due, -1);
    EXPECT_EQ(modChess.Deadlines[2], 0);
}
