// Tests of a game's clocks.
#include "practice/chess/GameClock.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

TEST(GameClock, EachSidesFirstMoveIsFree) {
    GameClock clock;
    clock.start(5, 2, 1000);
    EXPECT_EQ(clock.press(0, 61'000), 0);
    EXPECT_EQ(clock.press(1, 99'000), 0);
    EXPECT_EQ(clock.left[0], 300'000);
    EXPECT_EQ(clock.left[1], 300'000);
    EXPECT_TRUE(clock.running());
}

TEST(GameClock, LaterMovesTakeTimeAndEarnTheIncrement) {
    GameClock clock;
    clock.start(5, 2, 0);
    clock.press(0, 0);
    clock.press(1, 0);
    EXPECT_EQ(clock.press(0, 7'000), 7'000);
    EXPECT_EQ(clock.left[0], 295'000);
    EXPECT_EQ(clock.remaining(1, 1, 17'000), 290'000);
    EXPECT_EQ(clock.remaining(0, 1, 17'000), 295'000);
}

TEST(GameClock, AFlagFallsBelowZero) {
    GameClock clock;
    clock.start(1, 0, 0);
    clock.press(0, 0);
    clock.press(1, 0);
    EXPECT_EQ(clock.remaining(0, 0, 60'001), -1);
}

TEST(GameClock, TheClockStandsBeforeBothHaveMoved) {
    GameClock clock;
    clock.start(1, 0, 0);
    EXPECT_EQ(clock.remaining(0, 0, 500'000), 60'000);
    clock.press(0, 500'000);
    EXPECT_FALSE(clock.running());
}

TEST(GameClock, ASettledClockHasPaidForTheTurn) {
    GameClock clock;
    clock.start(1, 2, 0);
    clock.settle(0, 500'000);
    EXPECT_EQ(clock.left[0], 60'000) << "nothing to pay before both have moved";
    clock.press(0, 500'000);
    clock.press(1, 500'000);
    clock.settle(0, 507'000);
    EXPECT_EQ(clock.left[0], 53'000);
    EXPECT_EQ(clock.left[1], 60'000);
    EXPECT_EQ(clock.remaining(0, 0, 508'000), 52'000);
}

TEST(GameClock, AnUntimedGameNeverRuns) {
    GameClock clock;
    clock.start(0, 0, 0);
    for (int i = 0; i < 6; ++i) clock.press(i % 2, 100'000 * i);
    EXPECT_FALSE(clock.running());
    EXPECT_EQ(clock.remaining(0, 0, 9'000'000), 0);
}

TEST(GameClock, AClockGrowsToTheLimitAndNoFurther) {
    GameClock clock;
    clock.start(mostMinutes, mostIncrement, 0);
    clock.press(0, 0);
    clock.press(1, 0);
    EXPECT_EQ(clock.left[0], 32'760'000);
    clock.press(0, 5'000);
    EXPECT_EQ(clock.left[0], 32'767'000);
    clock.press(1, 5'000);
    clock.press(0, 1'005'000);
    EXPECT_EQ(clock.left[0], 32'766'000) << "a thousand seconds less, 999 more";
}

TEST(GameClock, NoMinutesWithAnIncrementStartWithTenSeconds) {
    GameClock clock;
    clock.start(0, 3, 0);
    EXPECT_EQ(clock.left[0], 10'000);
}

TEST(GameClock, TimesAreTextsOfMinutesAndSeconds) {
    EXPECT_EQ(moveTimeText(7'999), "(0:07)");
    EXPECT_EQ(clockText(127'000), "2:07");
    EXPECT_EQ(clockText(7'200'000), "120:00");
    EXPECT_EQ(clockText(-5), "0:00");
}

TEST(GameClock, SecondsAreRoundedOnBothSidesOfZero) {
    EXPECT_EQ(roundedSeconds(604'697), 605);
    EXPECT_EQ(roundedSeconds(604'400), 604);
    EXPECT_EQ(roundedSeconds(-1'600), -2);
}

TEST(GameClock, SecondsStayWithinSixteenBits) {
    EXPECT_EQ(roundedSeconds(32'767'499), 32'767);
    EXPECT_EQ(roundedSeconds(32'767'500), 32'767);
    EXPECT_EQ(roundedSeconds(900'000'000'000), 32'767);
    EXPECT_EQ(roundedSeconds(-32'767'500), -32'767);
}

} // namespace
} // namespace practice
