// Waiting for one's turn to ask the server something whose answer is captured.
#pragma once

#include "common/Needed.h"

// What the wait needs of its window and the session; the window may close meanwhile.
struct TurnHooks {
    Needed<bool()> BusyTest;       // another answer is being captured
    Needed<double()> secondsOfDay; // jumps back at midnight
    Needed<void()> pump;           // runs the message loop for a moment
    Needed<bool()> isOpen;         // the window that waits
};

// Waits for the end of other captures. False when it gives up: after more than 4 seconds, at midnight, and when the
// window has closed.
bool awaitTurn(const TurnHooks& hooks);
