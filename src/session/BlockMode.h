// Block Mode: console text piles up in modChess.BlockedText until the mode ends.
#pragma once

#include "common/Needed.h"

#include <string>
#include <utility>

// What the mode reaches out to.
struct BlockModeHooks {
    Needed<std::string()> caption; // of the client window
    Needed<void(const std::string& caption)> setCaption;
    // Moves the console's insertion point to its end and inserts the text there.
    Needed<void(const std::string& text)> insertAtEnd;
};

struct BlockMode {
    BlockModeHooks hooks;
    std::string BlockedCaption; // the window caption from before the mode

    explicit BlockMode(BlockModeHooks reachedOut) : hooks(std::move(reachedOut)) {}

    // The Click of mnuBlocked: `mnuBlocked` is its tick and is turned over. Switching off lets the pile go at the end
    // of the console and puts the caption back.
    void toggle(bool& mnuBlocked);
};
