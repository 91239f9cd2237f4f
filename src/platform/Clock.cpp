// The time of day and the steady time from the system's clocks.
#include "platform/Clock.h"

#include <algorithm>
#include <ctime>

double secondsOfDayAt(std::chrono::system_clock::time_point moment) {
    const auto whole = std::chrono::floor<std::chrono::seconds>(moment);
    const std::time_t seconds = std::chrono::system_clock::to_time_t(whole);
    std::tm local{};
    localtime_r(&seconds, &local);
    // A leap second would read 86400 and stands still instead.
    const int ofDay = local.tm_hour * 3600 + local.tm_min * 60 + std::min(local.tm_sec, 59);
    return ofDay + std::chrono::duration<double>(moment - whole).count();
}

double systemSecondsOfDay() { return secondsOfDayAt(std::chrono::system_clock::now()); }

std::int64_t systemSteadyMs() {
    const auto since = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(since).count();
}
