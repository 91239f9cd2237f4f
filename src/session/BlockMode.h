// Block Mode: console text piles up in modChess.BlockedText until the mode ends.
#pragma once

#include <functional>
#include <string>

// What the mode reaches out to. Unset members do nothing.
struct BlockModeHooks {
    std::function<std::string()> caption = [] { return std::string(); }; // of the client window
    std::function<void(const std::string& caption)> setCaption = [](const std::string&) {};
    // Moves the console's insertion point to its end and inserts the text there.
    std::function<void(const std::string& text)> insertAtEnd = [](const std::string&) {};
};

struct BlockMode {
    BlockModeHooks hooks;
    std::string BlockedCaption; // the window caption from before the mode

    // The Click of mnuBlocked: `mnuBlocked` is its tick and is turned over. Switching off lets the pile go at the end
    // of the console and puts the caption back.
    void toggle(bool& mnuBlocked);
};
