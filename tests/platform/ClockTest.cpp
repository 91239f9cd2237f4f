// The time of day and its replacement.
#include "platform/Clock.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ctime>

TEST(Clock, TheSystemsClockGivesTheLocalTimeOfDay) {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    const double expected = local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec;
    const double distance = systemSecondsOfDay() - expected;
    EXPECT_TRUE((distance >= 0 && distance < 5) || distance < -86000) << distance;
}

TEST(Clock, TheLastSecondOfAMinuteAndItsFractionCount) {
    const auto fullMinute = std::chrono::sys_days{std::chrono::year{2026} / 6 / 1};
    const double before = std::fmod(secondsOfDayAt(fullMinute), 60);
    const double last = std::fmod(secondsOfDayAt(fullMinute + std::chrono::milliseconds(59'250)), 60);
    EXPECT_EQ(before, 0);
    EXPECT_EQ(last, 59.25);
}

TEST(Clock, MillisecondsComeFromTheSecondsOfTheDay) {
    const Clock clock{[] { return 86399.9995; }};
    EXPECT_EQ(clock.msOfDay(), 86399999);
    EXPECT_EQ(Clock{[] { return 0.25; }}.msOfDay(), 250);
}

TEST(Clock, ATestReplacesTheClockOfTheProgram) {
    const Clock before = wallClock;
    wallClock.secondsOfDay = [] { return 12.5; };
    EXPECT_EQ(wallClock.msOfDay(), 12500);
    wallClock = before;
}
