// The time of day and its replacement.
#include "platform/Clock.h"

#include "common/InChild.h"
#include "settings/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <string>

namespace {

constexpr std::int32_t FirstLeapSecond = 78796800; // 30 June 1972, 23:59:60

std::string bigEndian(std::int32_t number) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift & 0xFF);
    return bytes;
}

// A compiled time zone without an offset, whose seconds count leap seconds as well, and which has one of them.
std::string zoneWithOneLeapSecond() {
    std::string zone = "TZif" + std::string(16, '\0');
    for (const std::int32_t count : {0, 0, 1, 0, 1, 4}) zone += bigEndian(count); // leap seconds; types, characters
    return zone + bigEndian(0) + std::string(2, '\0') + std::string("UTC\0", 4) + bigEndian(FirstLeapSecond) +
           bigEndian(1);
}

} // namespace

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

TEST(Clock, ALeapSecondReadsAsTheSecondBeforeIt) {
    const auto secondsAt = [](std::int64_t count) {
        return secondsOfDayAt(std::chrono::sys_seconds(std::chrono::seconds(count)));
    };
    EXPECT_EQ(std::fmod(secondsAt(FirstLeapSecond), 60), 0) << "where none is counted";
    const TemporaryFolder folder;
    folder.write("zone", zoneWithOneLeapSecond());
    EXPECT_TRUE(inChild([&] {
        ::setenv("TZ", (":" + (folder.path() / "zone").string()).c_str(), 1);
        ::tzset();
        if (secondsAt(FirstLeapSecond - 1) != 86399) ::_exit(1);
        if (secondsAt(FirstLeapSecond) != 86399) ::_exit(2);
        if (secondsAt(FirstLeapSecond + 1) != 0) ::_exit(3);
    }));
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
