// The lines that a typing line sent, and the walk through them with Up and Down.
#include "common/CommandHistory.h"

#include <utility>

void CommandHistory::zPushCommand(const std::string& text) {
    for (int k = Last; k >= 2; --k) entries[k] = std::move(entries[k - 1]);
    entries[1] = text;
    CommandCursor = 0;
}

std::optional<std::string> CommandHistory::up(const std::string& edited) {
    if (CommandCursor == 0) entries[0] = edited;
    if (CommandCursor >= Last || entries[CommandCursor + 1].empty()) return std::nullopt;
    return entries[++CommandCursor];
}

std::optional<std::string> CommandHistory::down() {
    if (CommandCursor >= 2) return entries[--CommandCursor];
    if (CommandCursor != 1 || entries[0] == entries[1]) return std::nullopt;
    CommandCursor = 0;
    return entries[0];
}
