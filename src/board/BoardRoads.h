// What a board window needs of the rest of the program.
#pragma once

#include "common/CommandHistory.h"
#include "settings/SettingsStore.h"

#include <QFont>
#include <QRect>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

// Filled in by whoever opens boards; shared by all of them and outlives them. What is not filled in does nothing; only
// the history must be there before a key is typed.
struct BoardRoads {
    SettingsStore store; // section "Board"
    // The console's own: the lines typed so far, wherever they were typed.
    CommandHistory* history = nullptr;
    // The console's zSendMsg: a command that the program makes up; dropped when not connected.
    std::function<void(const std::string& text)> zSendMsg = [](const std::string&) {};
    // The console's zSend: a typed command, with echo and history. False, and nothing sent, when not connected.
    std::function<bool(const std::string& text)> zSend = [](const std::string&) { return false; };
    std::function<void(std::string_view name, std::int16_t mode)> playSound = [](std::string_view, std::int16_t) {};
    // The text of tell button 0 to 9, empty for none.
    std::function<std::string(int index)> tellText = [](int) { return std::string(); };
    // Shows frmMatch as modChess.MatchMode says.
    std::function<void()> showMatch = [] {};
    // The console with its frame, in pixels of the screen; empty while there is none.
    std::function<QRect()> consoleFrame = [] { return QRect(); };
    // The font of the console's command line.
    std::function<QFont()> typingFont = [] { return QFont(); };
    // The console's mnuBoard becomes available again: the last board closes.
    std::function<void()> enableBoardMenu = [] {};
};
