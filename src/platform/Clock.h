// The time of day, for what is prescribed in the seconds or milliseconds of the day, and the time that only goes on.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

// Seconds since local midnight with their fraction, 0 up to 86400 (not included), at a moment and by the system's
// clock.
double secondsOfDayAt(std::chrono::system_clock::time_point moment);
double systemSecondsOfDay();

// Milliseconds since some moment before the program began; no change of the system's time moves them.
std::int64_t systemSteadyMs();

// The replaceable clock. It jumps back to 0 at midnight: for a mere wait take `zWait`.
struct Clock {
    std::function<double()> secondsOfDay = systemSecondsOfDay;
    // Of any origin, never falling; measures how long a line has waited for its rest.
    std::function<std::int64_t()> steadyMs = systemSteadyMs;

    // Milliseconds since local midnight, 0 to 86399999.
    std::int32_t msOfDay() const { return static_cast<std::int32_t>(secondsOfDay() * 1000.0); }
};

// The clock of the program.
inline Clock wallClock;
