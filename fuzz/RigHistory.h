// A window of listed games without its window: who it asks for, and its timer.
#pragma once

#include "RigClock.h"
#include "records/ListRequest.h"
#include "records/ListTexts.h"
#include "session/Session.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

struct RigHistory {
    static constexpr std::int64_t FirstTick = 100; // ms

    Session& session;
    std::string player;
    std::string caption;
    std::optional<std::int64_t> due; // tmrHist
    int rows = 0;                    // on show

    explicit RigHistory(Session& whole) : session(whole) {}
};
