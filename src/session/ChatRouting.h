// Which chat box a tell goes to.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

// One instance, owned by whoever owns the console. The boxes are those of openWindows; where several fit, the oldest
// takes the tell.
struct ChatRouting {
    // The number of characters on the console: where a box is told to put its insertion point. As a rule that lies
    // behind the end of its own text.
    std::function<std::size_t()> consoleLength = [] { return std::size_t{0}; };

    // Hands `line` (a tell with its CR LF, or the rest of one without its backslash) to the box of modChess.TellTarget;
    // true if there is one. The user's own channel tell is taken and not shown.
    bool zChatBox(const std::string& line) const;
};

// The window number (see OpenWindows) of the box whose xBuddy equals `buddy`; -1 if there is none.
int findChat(const std::string& buddy);

// Makes the sender of the latest tell the proposal for the next box, modChess.NewBuddy; empty if he has a box already.
void proposeBuddy();
