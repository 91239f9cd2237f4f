// What a board window needs of the rest of the program.
#pragma once

#include "common/CommandHistory.h"
#include "common/GameRecord.h"
#include "common/Needed.h"
#include "platform/PanelDoors.h"
#include "settings/SettingsStore.h"

#include <QRect>

#include <cstdint>
#include <string>
#include <string_view>

// Given by whoever opens boards; shared by all of them and outlives them. Every member must be given.
struct BoardRoads {
    SettingsStore store; // section "Board"
    // The console's own: the lines typed so far, wherever they were typed.
    CommandHistory& history;
    // The console's zSendMsg: a command that the program makes up; dropped when not connected.
    Needed<void(const std::string& text)> zSendMsg;
    // The console's zSend: a typed command, with echo and history. False, and nothing sent, when not connected.
    Needed<bool(const std::string& text)> zSend;
    // Text at the end of the console, with its own line ends.
    Needed<void(const std::string& text)> print;
    // Adds a game to a PGN file (path in the file system's own bytes), and tells the user how that went.
    Needed<void(const std::string& fileName, const GameRecord& record)> zWriteGame;
    Needed<void(std::string_view name, std::int16_t mode)> playSound;
    // The text of tell button 0 to 9, empty for none.
    Needed<std::string(int index)> tellText;
    // Shows frmMatch as modChess.MatchMode says.
    Needed<void()> showMatch;
    // Shows frmSeek and ticks the console's mnuSeekGrf.
    Needed<void()> showSeek;
    // Shows frmExamine for the board with this id.
    Needed<void(std::int32_t id)> showExamine;
    PanelDoors doors;
    // The console with its frame, in pixels of the screen; empty while there is none.
    Needed<QRect()> consoleFrame;
    // The console's mnuBoard becomes available again: the last board closes.
    Needed<void()> enableBoardMenu;
};
