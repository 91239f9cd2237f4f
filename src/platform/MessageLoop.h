// The message loop: how a routine lets pending events run while it waits.
#pragma once

// Lets the pending window, socket and timer events run once, without waiting for more.
void pumpMessages();

// Runs the message loop for `seconds` (at least once; negative counts as 0). Measured with a steady clock, so midnight
// and a change of the system's time do not matter. After it, windows may be gone and boards may show other games.
void zWait(double seconds);
