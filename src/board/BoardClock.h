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

// Minutes and two digits of seconds: 754 gives "12:34", -5 gives "-0:05".
std::string zTimeFix(int seconds);
