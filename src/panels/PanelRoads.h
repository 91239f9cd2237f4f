// What the panels that ask the server need of the rest of the program.
#pragma once

#include "common/Needed.h"
#include "settings/SettingsStore.h"

#include <cstdint>
#include <string>

// Given by whoever opens them; outlives them, and each call that they make. Every member must be given.
struct PanelRoads {
    SettingsStore store; // sections "ICS_Vars", "Notes" and "Help"
    // The console's zSendMsg; drops the line while not connected.
    Needed<void(const std::string& text)> zSendMsg;
    // The session's: an answer is being captured, and arming a capture.
    Needed<bool()> BusyTest;
    Needed<void(std::int16_t state)> zSetstate;
};
