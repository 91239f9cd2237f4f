// A panel of variables or of notes without its window: whether it is loaded, and when it asks.
#pragma once

#include "panels/FingerNotes.h"
#include "panels/PanelRequest.h"
#include "panels/ServerVars.h"

#include <cstdint>
#include <memory>
#include <optional>

struct RigPanel {
    const char* className;
    void (*ask)(const PanelRequestHooks& hooks);
    std::shared_ptr<bool> loaded = {};    // null when it is not; another one for each load
    std::optional<std::int64_t> due = {}; // its question
};
