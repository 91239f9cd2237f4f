// Asking the server for what a panel shows.
#pragma once

#include "common/Needed.h"
#include "common/TurnWait.h"

#include <cstdint>
#include <string>

// What the asking needs of its window and the session; the window may close while it waits.
struct PanelRequestHooks {
    TurnHooks turn;
    Needed<void(std::int16_t state)> zSetstate;
    Needed<void(const std::string& text)> zSendMsg;
};

// Wait for their turn, and give up silently where there is none. Then they have the answer captured, and ask: for the
// variables, and for the user's own finger notes, of which modChess.NotesText is emptied.
void askForVars(const PanelRequestHooks& hooks);
void askForNotes(const PanelRequestHooks& hooks);
