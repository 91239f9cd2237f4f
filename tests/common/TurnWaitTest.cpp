// How long a question waits for its turn, and when it gives up.
#include "common/TurnWait.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

struct TurnWait : testing::Test {
    bool wait() {
        return awaitTurn({.BusyTest = [this] { return busy; },
                          .secondsOfDay = [this] { return now; },
                          .pump =
                              [this] {
                                  ++pumps;
                                  if (pumps == MostPumps) busy = false; // a wait without an end shows
                                  now += 0.5;
                                  inPump();
                              },
                          .isOpen = [this] { return open; }});
    }

    static constexpr int MostPumps = 100;
    bool busy = true;
    bool open = true;
    double now = 1000;
    int pumps = 0;
    std::function<void()> inPump = [] {};
};

} // namespace

TEST_F(TurnWait, WithoutAnotherCaptureThereIsNoWait) {
    busy = false;
    EXPECT_TRUE(wait());
    EXPECT_EQ(pumps, 0);
}

TEST_F(TurnWait, TheEndOfTheOtherCaptureIsItsTurn) {
    inPump = [this] { busy = pumps < 3; };
    EXPECT_TRUE(wait());
    EXPECT_EQ(pumps, 3);
}

TEST_F(TurnWait, MoreThanFourSecondsAreTheEndOfItsPatience) {
    EXPECT_FALSE(wait());
    EXPECT_EQ(pumps, 9); // after the eighth it is four seconds, not more
}

TEST_F(TurnWait, AnAnswerThatEndsAtTheVeryLastStillCounts) {
    inPump = [this] { busy = pumps < 9; };
    EXPECT_TRUE(wait());
}

TEST_F(TurnWait, AtMidnightItGivesUp) {
    now = 86399;
    inPump = [this] {
        if (now >= 86400) now = 0;
    };
    EXPECT_FALSE(wait());
    EXPECT_EQ(pumps, 2);
}

TEST_F(TurnWait, AWindowThatHasClosedGetsNoTurn) {
    inPump = [this] {
        busy = false;
        open = false;
    };
    EXPECT_FALSE(wait());
}
