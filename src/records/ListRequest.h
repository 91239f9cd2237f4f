// Asking the server for a player's list of games.
#pragma once

#include "common/Needed.h"
#include "common/TurnWait.h"
#include "records/HistoryLists.h"

#include <cstdint>
#include <string>

// What the asking needs of its window and the session; the window may close while it waits.
struct ListRequestHooks {
    TurnHooks turn; // the two below are asked of an open window
    Needed<std::string()> player;
    Needed<void(const std::string& caption)> setCaption;
    Needed<void(std::int16_t state)> zSetstate;
    Needed<void(const std::string& text)> zSendMsg;
};

// `command` is that of a ListLook. Waits for its turn, and gives up silently where there is none. Then empties the
// list's count and handle, has the answer captured, and asks. A second one may run within the wait.
void zGo(const std::string& command, HistoryLists& lists, const ListRequestHooks& hooks);
