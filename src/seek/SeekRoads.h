// What the seek graph needs of the rest of the program.
#pragma once

#include "common/Needed.h"
#include "seek/SeekAds.h"
#include "seek/frmMatch.h"
#include "settings/SettingsStore.h"

#include <cstdint>
#include <string>

// Given by whoever opens the graph; outlives it. Every member must be given.
struct SeekRoads {
    SettingsStore store; // section "Seek"
    // The table that the session's capture fills.
    SeekTable& ads;
    const MatchRoads& match;
    // The console's zSendMsg; drops the line while not connected.
    Needed<void(const std::string& text)> zSendMsg;
    // The session's: an answer is being captured, and arming a capture.
    Needed<bool()> BusyTest;
    Needed<void(std::int16_t state)> zSetstate;
    // Goes on with these characters in the console's typing line, which takes the keyboard.
    Needed<void(const std::string& characters)> typeInConsole;
    // The console's mnuXP is ticked.
    Needed<bool()> tallTitleBars;
    // Shows frmHistory, which starts anew with modChess.gHelpTopic.
    Needed<void()> startHistory;
    // The user has closed the graph: the console's mnuSeekGrf loses its tick.
    Needed<void()> closedByUser;
};
