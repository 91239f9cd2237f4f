// Roads of a console around which there is nothing else: no sounds, no other windows. A rig replaces what it looks at.
#pragma once

#include "platform/QuietDoors.h"
#include "session/frmChessClient.h"

inline ClientRoads quietClientRoads(const SettingsStore& store) {
    const auto nothing = [] {};
    return {.store = store,
            .runningWindows = {.place = [](const WindowSection&) { return WindowPlace{}; },
                               .match = [] { return MatchSettings{}; }},
            .playSound = [](std::string_view, std::int16_t) {},
            .openBoard = nothing,
            .showMatch = nothing,
            .showSeek = nothing,
            .showHistory = nothing,
            .startHistory = nothing,
            .showExamine = [](std::int32_t) {},
            .doors = quietDoors(),
            .zParseVars = nothing,
            .zParseNotes = nothing};
}
