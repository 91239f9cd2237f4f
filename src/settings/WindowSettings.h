// The sections of the windows other than the client: what they hold, how they are read, placed and written.
#pragma once

#include "settings/Placement.h"
#include "settings/SettingsStore.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// How one window is kept.
struct WindowSection {
    const char* name;         // of the section in the store
    const char* defFile;      // the older file, looked for in the current directory
    bool sized;               // the section has Width and Height
    std::optional<int> limit; // of the placement rule; none: no test (frmChessBoard has a rule of its own)
};

inline constexpr WindowSection BoardSection{"Board", "peistenam.def", true, 1};
inline constexpr WindowSection OptionsSection{"Options", "options.def", false, 1};
inline constexpr WindowSection SeekSection{"Seek", "seek.def", true, 1};
inline constexpr WindowSection HelpSection{"Help", "chesshelp.def", true, 1};
inline constexpr WindowSection NotesSection{"Notes", "notes.def", false, 1};
inline constexpr WindowSection VarsSection{"ICS_Vars", "vars.def", false, 1};
inline constexpr WindowSection ChatSection{"Chat", "chesschat.def", true, 1};
inline constexpr WindowSection HistorySection{"History", "chesshist.def", false, std::nullopt};
inline constexpr WindowSection MatchSection{"Match", "match.def", false, 1};

// The eight dialog values of frmMatch, all 0 until something is read.
struct MatchSettings {
    std::int16_t Time = 0;      // minutes
    std::int16_t Increment = 0; // seconds
    std::int16_t Rated = 0;
    std::int16_t ServerSettings = 0;
    std::int16_t Minimum = 0;
    std::int16_t Maximum = 0;
    std::int16_t Color = 0; // list index
    std::int16_t Type = 0;  // list index

    friend bool operator==(const MatchSettings&, const MatchSettings&) = default;
};

// One dialog value: its key, its field, and the default that `zGetReg` takes for an absent key.
struct MatchKey {
    const char* name;
    std::int16_t MatchSettings::*field;
    const char* fallback; // the empty text is no number, so an absent key ends the reading there
};

inline constexpr std::array<MatchKey, 8> matchKeys{{
    {"Time", &MatchSettings::Time, ""},
    {"Increment", &MatchSettings::Increment, ""},
    {"Rated", &MatchSettings::Rated, ""},
    {"Server_Settings", &MatchSettings::ServerSettings, ""},
    {"Minimum", &MatchSettings::Minimum, ""},
    {"Maximum", &MatchSettings::Maximum, ""},
    {"Color", &MatchSettings::Color, "0"},
    {"Type", &MatchSettings::Type, "0"},
}};

// Reads the section into `place`, whose Width and Height come in as the designed size. The first text that is no signed
// 16-bit number ends the routine silently; what was not yet read keeps its value.
void zGetReg(const SettingsStore& store, const WindowSection& section, WindowPlace& place);

// The same for the section Match, its eight dialog values behind the place.
void zGetReg(const SettingsStore& store, WindowPlace& place, MatchSettings& match);

// Writes the window's current `place` and makes the store durable.
void zSaveReg(const SettingsStore& store, const WindowSection& section, const WindowPlace& place);

// The same for the section Match with its dialog values.
void zSaveReg(const SettingsStore& store, const WindowPlace& place, const MatchSettings& match);

// Reads the values at which a window starts: its section once the store has been written, before that its older file if
// there is one. True when the section or a file was read.
bool readWindow(const SettingsStore& store, const WindowSection& section, WindowPlace& place);

// The same for frmMatch, whose older file has no `Type`.
bool readMatch(const SettingsStore& store, WindowPlace& place, MatchSettings& match);

// The same for a new frmChessBoard, whose older file also holds modChess.PGNPath and modChess.GamePath.
bool readBoard(const SettingsStore& store, WindowPlace& place);
