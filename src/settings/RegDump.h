// The diagnostic dump of the settings, regdump.txt.
#pragma once

#include "common/Needed.h"
#include "settings/ClientSettings.h"
#include "settings/WindowSettings.h"

#include <string>

// Where the dump gets the running values of the other windows. Both members must be given.
struct RunningWindows {
    // The window's current place; of one that is not loaded the start values (0, 0 and its designed size, or 0 where
    // the section has no size).
    Needed<WindowPlace(const WindowSection&)> place;
    // The dialog values of frmMatch; of one that is not loaded all 0.
    Needed<MatchSettings()> match;
};

inline constexpr const char* RegDumpFile = "regdump.txt"; // in the current directory

// The text of the file: for each section its name on a line, then a line "key:  value" for each key. The value is the
// stored text; an absent number or flag gives the running value, an absent text its default. A sample:
//     Client
//     Registry_OK:  Yes
//     Left:  150
// The ten button commands are all labelled "Tell_0"; `XP_Style` and the sections Board and History are left out.
std::string zDumpReg(const SettingsStore& store, const ClientSettings& client, const RunningWindows& windows);

// Writes `text` to the file `path`, in place of what was there, readable by its owner alone because the password is in
// it. False when the file cannot be written; a symbolic link is not followed.
bool writeRegDump(const std::string& text, const std::string& path = RegDumpFile);
