// The message loop: how a routine lets pending events run while it waits.
#pragma once

// Lets the pending window, socket and timer events run once, without waiting for more.
void pumpMessages();
