// The anti-slip delays that the setting Mouse_Slip picks: what the user reads, and what is really waited.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

// One delay between letting go of the mouse and the move being taken.
struct MouseSlipDelay {
    std::string_view text; // in cboSlip
    int milliseconds;      // interval of tmrSlip; 0 takes the move at once
};

// At this interval the timer ends nothing: only the right button does.
inline constexpr int EndlessSlip = 60000;

// By modChess.MouseSlip. The delay is a little longer than its text, but for the last ones.
inline constexpr std::array<MouseSlipDelay, 12> mouseSlips{{
    {"Inactive", 0},
    {"150 mSec", 165},
    {"200 mSec", 220},
    {"250 mSec", 275},
    {"300 mSec", 330},
    {"400 mSec", 440},
    {"500 mSec", 550},
    {"750 mSec", 770},
    {"1 Sec", 1045},
    {"2 Sec", 2035},
    {"5 Sec", 5000},
    {"Infinite", EndlessSlip},
}};

// The delay of an index of the table in milliseconds; none for any other.
constexpr int slipDelay(int index) {
    const bool known = index >= 0 && index < static_cast<int>(mouseSlips.size());
    return known ? mouseSlips[static_cast<std::size_t>(index)].milliseconds : 0;
}
