// Taking moves back.
#pragma once

#include "practice/Hall.h"

namespace practice {

// Takes half-moves back with their time, shows the board to everybody concerned, and lets a computer think again; false
// if there are not so many.
bool takeBack(Hall& hall, Game& game, std::size_t halfmoves);

} // namespace practice
