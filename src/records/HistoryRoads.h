// What the window of listed games needs of the rest of the program.
#pragma once

#include "common/Needed.h"
#include "records/HistoryLists.h"
#include "settings/SettingsStore.h"

#include <cstdint>
#include <string>

// Given by whoever opens the window; outlives it, and each call that it makes. Every member must be given.
struct HistoryRoads {
    SettingsStore store; // section "History"
    // What the session's captures fill.
    HistoryLists& lists;
    // The console's zSendMsg; drops the line while not connected.
    Needed<void(const std::string& text)> zSendMsg;
    // The session's: an answer is being captured, and arming a capture.
    Needed<bool()> BusyTest;
    Needed<void(std::int16_t state)> zSetstate;
    // Asks for the move list of a player's game, "Anders 5".
    Needed<void(const std::string& arguments)> zGetMoves;
    // The setting Handle.
    Needed<std::string()> handle;
    // Tells the user something in a box, behind the batch that is being read.
    Needed<void(const std::string& text)> tell;
};
