// What the controls of the options dialog stand for, and what they give back.
#pragma once

#include "common/modChess.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

// A tick box and the option that it shows.
struct TickOption {
    const char* name;
    const char* caption;
    std::int16_t ModChess::*held;
};

inline constexpr TickOption UseSounds{"chkSounds", "&Use Sounds", &ModChess::SoundOn};
inline constexpr TickOption ArrivalSound{"chkArrival", "A&rrival", &ModChess::SoundArrive};
inline constexpr TickOption PreMoves{"chkPreMove", "&Pre-Move", &ModChess::PreMoveOK};
inline constexpr TickOption Dragging{"chkDrag", "&Drag Mode", &ModChess::DragMode};
inline constexpr TickOption AlwaysQueen{"chkQueen", "Always Promote to &Queen", &ModChess::AutoQueen};
inline constexpr TickOption ConfirmResigning{"chkCnfResign", "Confirm &Resign / Draw", &ModChess::ConfirmResign};
inline constexpr TickOption SeekOffInGames{"chkSeekOff", "Seek &Off During Games", &ModChess::SeekOff};

// Whether the box of an option is ticked; nothing for a value that a tick box refuses, which leaves it as it is.
constexpr std::optional<bool> tickOf(std::int16_t value) {
    return value == 0 || value == 1 ? std::optional(value == 1) : std::nullopt;
}

// A tick box with two sounds to choose from, and the bit-coded switch that they make up.
struct SoundOption {
    const char* name;
    const char* caption;
    const char* choices;     // name of the array of two
    const char* first;       // caption: the beep
    const char* second;      // caption: the wave file
    const char* tickedWave;  // tried out when the box is ticked with the second sound
    const char* changedWave; // and when the second sound is clicked
    std::int16_t ModChess::*held;
};

inline constexpr std::array<SoundOption, 3> soundOptions{{
    {"chkMoves", "&Moves", "optMoves", "&Ding", "Cl&op", "capture.wav", "move.wav", &ModChess::SoundMove},
    {"chkGame", "Game Start / &End", "optStart", "D&ing", "C&lang", "fitebell.wav", "fitebell.wav",
     &ModChess::SoundStart},
    {"chkTell", "&Tell", "optTell", "Di&ng", "&Whistle", "whistle.wav", "whistle.wav", &ModChess::SoundTell},
}};

// The two halves of a sound switch.
struct SoundSetting {
    bool ticked = false; // bit 0
    bool second = false; // bit 1
};

constexpr SoundSetting soundSettingOf(std::int16_t value) { return {(value & 1) != 0, (value & 2) != 0}; }

// 3 ticked with the second sound, 1 ticked with the first, 2 and 0 the same unticked.
constexpr std::int16_t soundSwitchOf(SoundSetting setting) {
    return static_cast<std::int16_t>((setting.ticked ? 1 : 0) + (setting.second ? 2 : 0));
}

// The seven colours of the console, 0xBBGGRR.
struct ConsoleColors {
    std::int32_t Main = 0;
    std::int32_t Background = 0;
    std::int32_t Bar = 0;
    std::int32_t Tell = 0;
    std::int32_t Copy = 0;
    std::int32_t Type = 0;
    std::int32_t Shout = 0;

    friend bool operator==(const ConsoleColors&, const ConsoleColors&) = default;
};

// Those of the program, and putting others in their place.
ConsoleColors consoleColors();
void setConsoleColors(const ConsoleColors& colors);

// One entry of cboDefaults that sets colours.
struct ColorScheme {
    const char* name;
    ConsoleColors colors;
    bool whiteGraph; // the seek graph is white, and not in the console's colours
};

// In the order of cboDefaults, from its index 1.
inline constexpr std::array<ColorScheme, 3> colorSchemes{{
    {"Black", {33023, 0, 0xFFFFFF, 255, 14862761, 0, 0xFFFFFF}, true},
    {"Pastel", {0, 0xC0FFFF, 0xC0FFFF, 255, 0xFF0000, 0, 0x800080}, false},
    {"White", {0, 0xFFFFFF, 0xFFFFFF, 255, 0xFF0000, 0, 0x800080}, false},
}};

// One entry of cboDefaults that sets the font.
struct FontScheme {
    const char* name;
    const char* font;
};

// Behind the colours.
inline constexpr std::array<FontScheme, 2> fontSchemes{{{"FixedSys", "Fixedsys"}, {"Lucida", "Lucida COnsole"}}};

// The name that the preview has before the program has a font.
inline constexpr const char* DesignedFont = "Fixedsys";

// What a graph option gives: -1 for the white graph, else 0.
constexpr std::int16_t seekWhiteOf(bool white) { return white ? -1 : 0; }

// The seconds that `text` begins with, rounded half to even, 0 if it begins with no number; the nearest that the field
// can hold. Never faults.
std::int16_t warnTimeOf(std::string_view text);
