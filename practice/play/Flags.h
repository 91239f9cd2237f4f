// Flags: whose time is over, and what that means.
#pragma once

#include "practice/hall/Hall.h"

namespace practice {

// Ends the game if the flag of the side to move is down and the opponent wants that; true if it ended. Computers and
// players with the variable "autoflag" want it.
bool callFlag(Hall& hall, Game& game);

// Ends the game for a player who says that his opponent's flag is down, whosever turn it is; false if it is up.
bool claimFlag(Hall& hall, Game& game, const Player& player);

// Looks at the flags of all games; to be called a few times a second.
void watchClocks(Hall& hall);

} // namespace practice
