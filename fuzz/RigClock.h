// The time of a run, and the timers of the session in it.
#pragma once

#include "Require.h"
#include "session/SessionSurface.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

struct RigClock {
    std::int64_t now = 0; // ms

    void start(SessionTimer timer, int milliseconds) {
        require(milliseconds >= 0, "a timer has an interval");
        of(timer) = Running{now + milliseconds, milliseconds};
    }
    void stop(SessionTimer timer) { of(timer).reset(); }
    bool runs(SessionTimer timer) const { return timers_[static_cast<std::size_t>(timer)].has_value(); }

    // Which timer fires next, and when.
    struct Firing {
        SessionTimer timer;
        std::int64_t at;
    };
    std::optional<Firing> next() const {
        std::optional<Firing> first;
        for (int index = 0; index < SessionTimers; ++index) {
            const auto& running = timers_[static_cast<std::size_t>(index)];
            if (running && (!first || running->due < first->at)) {
                first = Firing{static_cast<SessionTimer>(index), running->due};
            }
        }
        return first;
    }

    // The timer has fired: one of those that repeat runs on.
    void fired(SessionTimer timer) {
        const bool repeats = timer == SessionTimer::tmrTCP || timer == SessionTimer::tmrClose;
        if (repeats) {
            of(timer)->due += of(timer)->interval;
        } else {
            stop(timer);
        }
    }

    std::int32_t millisecondsOfDay() const { return static_cast<std::int32_t>(now % 86'400'000); }

private:
    struct Running {
        std::int64_t due;
        int interval;
    };
    std::optional<Running>& of(SessionTimer timer) { return timers_[static_cast<std::size_t>(timer)]; }

    std::array<std::optional<Running>, SessionTimers> timers_;
};
