// Challenges and seeks: what their dialog holds, and the line that goes out.
#pragma once

#include "settings/WindowSettings.h"

#include <array>
#include <string>

// The items of cboColor and cboType, by list index. Their texts are the server's words; index 0 sends none.
inline constexpr std::array<const char*, 3> MatchColors{"Auto Color", "White", "Black"};
inline constexpr std::array<const char*, 17> MatchTypes{
    "Normal Chess", "Crazyhouse", "Bughouse", "Losers", "Suicide", "Atomic", "Wild 0",  "Wild 1", "Wild 2",
    "Wild 3",       "Wild 4",     "Wild 5",   "Wild 6", "Wild 7",  "Wild 8", "Wild 8a", "Wild fr"};

// A box that shows one of a list: `index` -1 for a text that is no item.
struct ListChoice {
    int index = -1;
    std::string text;
};

// The dialog's controls as they stand; the start values are the designed ones. Texts are Latin-1.
struct Challenge {
    std::string txtTime = "2"; // minutes
    std::string txtInc = "12"; // seconds
    std::string txtMin = "0";
    std::string txtMax = "9999";
    std::string txtOpp;
    bool chkRated = true;
    bool chkServer = false;
    ListChoice cboColor{-1, "Auto Color"};
    ListChoice cboType{-1, "Normal"};
};

// The eight values. Faults (type mismatch) on a text that is no number, the empty text included, and (overflow) on one
// beyond 16 bits, in any of the four boxes, whether or not the line will hold it.
MatchSettings fieldsOf(const Challenge& challenge);

// The whole line, its blanks included: a challenge of txtOpp with `matchMode`, a seek without.
std::string challengeLine(const Challenge& challenge, bool matchMode);
