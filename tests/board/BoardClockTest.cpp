// Clocks: how they read, how they count, when they warn.
#include "board/BoardRig.h"

#include "common/Fault.h"

#include <gtest/gtest.h>

namespace {

// A running game with the clocks at the given seconds, white to move.
struct RunningClock : BoardRig {
    explicit RunningClock(int white, int relation = 1) {
        open({.relation = relation, .whiteClock = white, .blackClock = 60});
        tickAt(second); // takes the second that is running, whatever it counts
        game.Style12Record.WhiteClock = static_cast<std::int16_t>(white);
        game.ClockBackground[0] = ClockColor::Running;
        effects.clear();
    }
    void tickAt(double time) {
        second = time;
        game.tmrClock();
    }
};

std::string colorOf(int side, std::uint32_t color) {
    return "color " + std::to_string(side) + " " + std::to_string(color);
}

} // namespace

TEST(TimeFix, ReadsMinutesAndTwoDigitsOfSeconds) {
    EXPECT_EQ(zTimeFix(754), "12:34");
    EXPECT_EQ(zTimeFix(5), "0:05");
    EXPECT_EQ(zTimeFix(-5), "-0:05");
    EXPECT_EQ(zTimeFix(0), "0:00");
    EXPECT_EQ(zTimeFix(60), "1:00");
    EXPECT_EQ(zTimeFix(-61), "-1:01");
    EXPECT_EQ(zTimeFix(32767), "546:07");
    EXPECT_EQ(zTimeFix(-32768), "-546:08");
}

TEST(BoardClock, SleepsUntilJustBehindTheNextSecond) {
    EXPECT_EQ(untilNextSecond(1000.0), 1002);
    EXPECT_EQ(untilNextSecond(1000.25), 752);
    EXPECT_EQ(untilNextSecond(1000.9999), 3);
    EXPECT_EQ(untilNextSecond(86399.5), 502); // midnight
}

TEST(BoardClock, CountsOnlyWhenTheWholeSecondChanges) {
    RunningClock clock(300);
    clock.tickAt(1000.9);
    EXPECT_TRUE(clock.effects.empty());
    clock.tickAt(1001.0);
    EXPECT_EQ(clock.effects, std::vector<std::string>{"clock 0  4:59"});
    clock.tickAt(1001.1);
    EXPECT_EQ(clock.effects.size(), 1U);
}

TEST(BoardClock, ADelayedTickCountsOneSecondOnly) {
    RunningClock clock(300);
    clock.tickAt(1007.5);
    EXPECT_EQ(clock.game.Style12Record.WhiteClock, 299);
}

TEST(BoardClock, CountsTheSideToMove) {
    BoardRig rig;
    rig.open({.turn = "B", .whiteClock = 50, .blackClock = 60});
    rig.second = 2000;
    rig.game.tmrClock();
    EXPECT_EQ(rig.effects, std::vector<std::string>{"clock 1  0:59"});
    EXPECT_EQ(rig.game.Style12Record.WhiteClock, 50);
}

TEST(BoardClock, MidnightChangesTheSecondLikeAnyOther) {
    RunningClock clock(300);
    clock.tickAt(86399.95);
    clock.tickAt(0.05);
    EXPECT_EQ(clock.game.Style12Record.WhiteClock, 298);
}

TEST(BoardClock, AtWarnTimeNoFlashAndOneBelowItFlashes) {
    modChess.WarnTime = 10;
    RunningClock clock(11);
    clock.tickAt(1001);
    EXPECT_EQ(clock.effects, std::vector<std::string>{"clock 0  0:10"});
    clock.tickAt(1002);
    EXPECT_TRUE(clock.saw(colorOf(0, 0x7F7FFF)));
}

TEST(BoardClock, BelowWarnTimeTheLabelAlternatesEachSecond) {
    RunningClock clock(5);
    clock.tickAt(1001);
    clock.tickAt(1002);
    clock.tickAt(1003);
    EXPECT_EQ(clock.all("color"), (std::vector{colorOf(0, 0x7F7FFF), colorOf(0, 0xFFFFFF), colorOf(0, 0x7F7FFF)}));
    EXPECT_TRUE(clock.all("sound").empty());
}

TEST(BoardClock, WarnTimeZeroFlashesOnlyBelowZero) {
    RunningClock clock(2);
    modChess.WarnTime = 0;
    clock.tickAt(1001);
    clock.tickAt(1002);
    EXPECT_TRUE(clock.all("color").empty());
    clock.tickAt(1003);
    EXPECT_TRUE(clock.saw("clock 0  -0:01"));
    EXPECT_TRUE(clock.saw(colorOf(0, 0x7F7FFF)));
}

TEST(BoardClock, TheOpponentsAndAnObservedClockFlashAsWell) {
    for (const int relation : {-1, 0}) {
        RunningClock clock(5, relation);
        clock.tickAt(1001);
        EXPECT_TRUE(clock.saw(colorOf(0, 0x7F7FFF))) << relation;
    }
}

TEST(BoardClock, CountingBelowMinus32768Overflows) {
    RunningClock clock(-32768);
    try {
        clock.game.countSecond();
        FAIL() << "no fault";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.kind(), FaultKind::Overflow);
    }
    EXPECT_EQ(clock.game.Style12Record.WhiteClock, -32768);
}

TEST(BoardClock, AnOverflowEndsTheTimerEventOnly) {
    RunningClock clock(-32768);
    EXPECT_NO_THROW(clock.tickAt(1001));
    EXPECT_TRUE(clock.effects.empty());
}

TEST(BoardClock, ALineOverwritesWhatWasCountedDown) {
    RunningClock clock(300);
    clock.tickAt(1001);
    clock.tickAt(1002);
    clock.effects.clear();
    clock.receive({.relation = 1, .whiteClock = 300, .blackClock = 60});
    EXPECT_TRUE(clock.saw("clock 0  5:00"));
}

TEST(BoardClock, APositionEndsTheFlash) {
    RunningClock clock(5);
    clock.tickAt(1001);
    clock.receive({.ranks = AfterE4, .turn = "B", .relation = -1, .moveNumber = 1, .pretty = "e4"});
    EXPECT_EQ(clock.game.ClockBackground[0], ClockColor::Waiting);
    EXPECT_EQ(clock.game.ClockBackground[1], ClockColor::Running);
}

TEST(BoardClock, RelationTwoShowsTheClocksAndNeverStartsThem) {
    for (const int relation : {-2, 2, -3}) {
        BoardRig rig;
        modChess.NewGameFlag = true;
        rig.receive({.relation = relation, .whiteClock = 61});
        EXPECT_TRUE(rig.saw("clock 0  1:01")) << relation;
        EXPECT_FALSE(rig.saw("startClock")) << relation;
        EXPECT_TRUE(rig.saw("stopClock")) << relation;
    }
}

TEST(BoardClock, TwoRunningClocksEachKeepTheirOwnSecond) {
    RunningClock one(300);
    RunningClock other(200);
    one.tickAt(1001);
    other.tickAt(1001);
    EXPECT_EQ(one.game.Style12Record.WhiteClock, 299);
    EXPECT_EQ(other.game.Style12Record.WhiteClock, 199) << "though the first has seen that second";
    other.tickAt(1002);
    other.tickAt(1003);
    one.tickAt(1003);
    EXPECT_EQ(one.game.Style12Record.WhiteClock, 298);
    EXPECT_EQ(other.game.Style12Record.WhiteClock, 197);
}
