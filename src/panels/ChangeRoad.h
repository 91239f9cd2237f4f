// How changes of the user go to the server: one command after the other, with pauses.
#pragma once

#include "common/Needed.h"

#include <string>
#include <vector>

// What the sending needs; outlives it, though the window that it began in may close in a pause.
struct ChangeRoad {
    // False when the line did not go out, because the connection or the program ends.
    Needed<bool(const std::string& text)> send;
    // Lets the server breathe between two commands; runs the message loop.
    Needed<void()> pause;
};

inline constexpr double ChangePause = 0.22; // seconds

// Sends the lines in order, a pause behind each. Ends at the first that does not go out, so that nothing of it reaches
// another session; false then.
bool sendEach(const std::vector<std::string>& lines, const ChangeRoad& road);
