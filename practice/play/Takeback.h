// Taking moves back.
#pragma once

#include "practice/hall/Hall.h"

namespace practice {

// Takes half-moves back with their time, shows the board to everybody concerned, and lets a computer think again; the
// game must have as many.
void takeBack(Hall& hall, Game& game, std::size_t halfmoves);

} // namespace practice
