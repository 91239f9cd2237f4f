// Roads of a board around which there is nothing else: not connected, no sounds, no other windows. A rig replaces what
// it looks at.
#pragma once

#include "board/BoardRoads.h"
#include "platform/QuietDoors.h"

#include <string>

inline BoardRoads quietBoardRoads(const SettingsStore& store, CommandHistory& history) {
    const auto nothing = [] {};
    return {.store = store,
            .history = history,
            .zSendMsg = [](const std::string&) {},
            .zSend = [](const std::string&) { return false; },
            .print = [](const std::string&) {},
            .zWriteGame = [](const std::string&, const GameRecord&) {},
            .playSound = [](std::string_view, std::int16_t) {},
            .tellText = [](int) { return std::string(); },
            .showMatch = nothing,
            .showSeek = nothing,
            .showExamine = [](std::int32_t) {},
            .doors = quietDoors(),
            .consoleFrame = [] { return QRect(); },
            .enableBoardMenu = nothing};
}
