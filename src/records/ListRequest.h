// Asking the server for a player's list of games.
#pragma once

#include "common/Needed.h"
#include "records/HistoryLists.h"

#include <cstdint>
#include <string>

// What the asking needs of its window and the session; the window may close while it waits.
struct ListRequestHooks {
    Needed<bool()> BusyTest;
    Needed<double()> secondsOfDay; // jumps back at midnight
    Needed<void()> pump;           // runs the message loop for a moment
    Needed<bool()> isOpen;         // the window; the two below are asked of an open one
    Needed<std::string()> player;
    Needed<void(const std::string& caption)> setCaption;
    Needed<void(std::int16_t state)> zSetstate;
    Needed<void(const std::string& text)> zSendMsg;
};

// `command` is that of a ListLook. Waits for the end of other captures; gives up silently after 4 seconds, at midnight,
// and when the window has closed. Then empties the list's count and handle, has the answer captured, and asks. A second
// one may run within the wait.
void zGo(const std::string& command, HistoryLists& lists, const ListRequestHooks& hooks);
