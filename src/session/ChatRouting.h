// Which chat box a tell goes to.
#pragma once

#include "common/Needed.h"

#include <cstddef>
#include <string>

struct ChatBox;
struct OpenWindow;

// One instance, owned by whoever owns the console. The boxes are those of openWindows; where several fit, the oldest
// takes the tell.
struct ChatRouting {
    // The number of characters on the console: where a box is told to put its insertion point. As a rule that lies
    // behind the end of its own text.
    Needed<std::size_t()> consoleLength;

    // Hands `line` (a tell with its CR LF, or the rest of one without its backslash) to the box of modChess.TellTarget;
    // true if there is one. The user's own channel tell is taken and not shown.
    bool zChatBox(const std::string& line) const;
};

// The window number (see OpenWindows) of the box whose xBuddy equals `buddy`; -1 if there is none.
int findChat(const std::string& buddy);

// The box of a window, null for one that is none, and that of a window number; a number that is no box faults
// (subscript).
ChatBox* chatOf(const OpenWindow& window);
ChatBox& chatAt(int windowNumber);

// Makes the sender of the latest tell the proposal for the next box, modChess.NewBuddy; empty if he has a box already.
void proposeBuddy();
