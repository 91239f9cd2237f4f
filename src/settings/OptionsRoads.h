// What the options dialog needs of the rest of the program.
#pragma once

#include "common/FixedArray.h"
#include "common/Needed.h"
#include "settings/SettingsStore.h"

#include <QPoint>

#include <string>
#include <string_view>

// What the console keeps of the options; the others are in modChess.
struct OptionsAccount {
    std::string handle;
    std::string password;
    FixedArray<std::string, 9> Tell; // the button commands
};

// Given by whoever opens the dialog; outlives it. Every member must be given.
struct OptionsRoads {
    SettingsStore store; // section "Options"
    // As they are now, and taking new ones, which the console and each new board then have.
    Needed<OptionsAccount()> account;
    Needed<void(const OptionsAccount& account)> takeAccount;
    // The sound of a wave file ("move.wav") and the beep, whatever the switches say.
    Needed<void(std::string_view name)> testWave;
    Needed<void()> testBeep;
    // Shows frmBoardColors with the corner of its frame at a point of the screen (pixels).
    Needed<void(QPoint corner)> showBoardColors;
};
