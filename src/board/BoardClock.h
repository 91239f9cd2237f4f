// How a clock reads and which colours its label takes.
#pragma once

#include <cstdint>
#include <string>

// Background of a clock label. 0xBBGGRR; the last is the system's button colour by its system number.
namespace ClockColor {
inline constexpr std::uint32_t Running = 0xFFFFFF;
inline constexpr std::uint32_t Warning = 0x7F7FFF;
inline constexpr std::uint32_t Waiting = 0x8000000F;
} // namespace ClockColor

// How long `tmrClock` may sleep at that time of the day (seconds, with a fraction): until just behind the next whole
// second, 2 to 1002 milliseconds.
int untilNextSecond(double secondsOfDay);

// Minutes and two digits of seconds: 754 gives "12:34", -5 gives "-0:05".
std::string zTimeFix(int seconds);
