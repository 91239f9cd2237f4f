// The time of day and the steady time from the system's clocks.
#include "platform/Clock.h"

#include <chrono>
#include <ctime>

double systemSecondsOfDay() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto whole = std::chrono::floor<std::chrono::seconds>(now);
    const std::time_t seconds = whole.count();
    std::tm local{};
    localtime_r(&seconds, &local);
    // A leap second would read 86400 and stands still instead.
    const int ofDay = local.tm_hour * 3600 + local.tm_min * 60 + (local.tm_sec > 59 ? 59 : local.tm_sec);
    return ofDay + std::chrono::duration<double>(now - whole).count();
}

std::int64_t systemSteadyMs() {
    const auto since = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(since).count();
}
