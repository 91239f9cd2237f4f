// The lines that a typing line sent, and the walk through them with Up and Down.
#pragma once

#include "common/FixedArray.h"

#include <cstdint>
#include <optional>
#include <string>

// Entry 0 is the text that was being edited when the user went up, 1 the newest line sent, 20 the oldest. The cursor is
// 0 on the edited text, else the entry on show. Lives for the run and is not saved.
struct CommandHistory {
    static constexpr int Last = 20;

    FixedArray<std::string, Last> entries;
    std::int32_t CommandCursor = 0;

    // Makes `text` entry 1; the oldest falls off, entry 0 stays. The cursor goes back to 0.
    void zPushCommand(const std::string& text);

    // The text to show after Up, or nothing if there is no older line; `edited` is what the typing line holds now.
    std::optional<std::string> up(const std::string& edited);

    // The text to show after Down, or nothing at the edited text. An edited text equal to the newest entry is not shown
    // again.
    std::optional<std::string> down();
};
