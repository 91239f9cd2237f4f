// The special keys of a typing line, in the console and on every board.
#pragma once

#include "common/CommandHistory.h"

#include <optional>
#include <string>

// Virtual key codes of KeyDown and, for Enter, of KeyPress.
enum TypingKey : int { KeyEnter = 13, KeyUp = 38, KeyDown = 40, KeyF5 = 116, KeyF7 = 118, KeyF8 = 119, KeyF9 = 120 };

// What a typing line does with a key.
struct TypingAnswer {
    bool taken = false;              // the key is consumed, and the insertion point goes to the end
    std::optional<std::string> text; // takes the place of what stands in the line; nothing leaves that
};

// Up and Down walk `history` from `line`, the text on show; F5, F7, F8 and F9 put in the first words of a command, F9
// with modChess.TellTarget. `game` is the number of the board's game, which kibitzes and whispers from a board name;
// the console gives none. Every other key is left.
TypingAnswer typingAnswer(int key, CommandHistory& history, const std::string& line, std::optional<int> game = {});
