// How a game begins: its board, its players at it, and what they are shown.
#pragma once

#include "practice/hall/Hall.h"

#include <string>

namespace practice {

// Starts a game between two players, shows it to both, and lets a computer think. The colours follow `terms` as the
// first player asked for them, else the hall's dice. Both may have moved, and the game be over, when this returns.
void startGame(Hall& hall, Player& first, Player& second, const Terms& terms);

// Puts a new game up under the lowest free number, without players and with its start position drawn.
Game& openGame(Hall& hall, const Terms& terms);

// Seats the two players of a game and shows them its start; `verb` is "Creating" or "Continuing".
void seatBoth(Hall& hall, Game& game, const std::string& verb);

} // namespace practice
