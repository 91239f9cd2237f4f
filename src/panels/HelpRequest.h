// Asks the server for a help page.
#pragma once

#include "common/Needed.h"
#include "common/TurnWait.h"

#include <cstdint>
#include <string>

// What the asking needs of its window and the session; the window may close while it waits.
struct HelpRequestHooks {
    TurnHooks turn;              // what is below is asked of an open window
    Needed<std::string()> topic; // may be empty
    Needed<void(std::int16_t state)> zSetstate;
    Needed<void(const std::string& text)> zSendMsg;
};

// Waits for its turn, and gives up silently where there is none. Then has the answer captured, from its first line, and
// asks. A second one may run within the wait.
void zGo(const HelpRequestHooks& hooks);
