// The moves of a game file's game, cut out of its text.
#pragma once

#include "common/Needed.h"

#include <cstdint>
#include <string_view>

// Where the cutting ended.
struct PgnEnd {
    std::int16_t number = 0; // of the move begun last, 0 for none
    std::int16_t state = 2;  // what was awaited: 0 white's move, 1 black's, 2 a number
};

// Cuts `text` at its blanks and gives each move to `store`: `side` 0 white's, 1 black's. Each move of white comes with
// an empty one of black. Words that are out of place are passed over or end the game, see the manual; what stands
// behind the last blank, and the last word in front of it, is not looked at. Faults (overflow) on a number past 16
// bits.
PgnEnd cutPgnMoves(std::string_view text,
                   const Needed<void(std::int16_t number, int side, std::string_view move)>& store);
