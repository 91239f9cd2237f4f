// A help panel and a self check without their windows.
#pragma once

#include "panels/SelfCheckSheet.h"

#include <cstdint>
#include <optional>
#include <string>

struct RigHelp {
    static constexpr std::int64_t FirstTick = 100; // ms

    std::string topic = "seek";
    std::string pane;
    std::string progress;
    bool autoClear = true;
    std::optional<std::int64_t> due; // tmrHelp
};

struct RigSelfCheck {
    SelfCheckSheet sheet;
    bool shownAnew = false;

    RigSelfCheck() {
        sheet.shownAnew = [this] { shownAnew = true; };
    }
};
