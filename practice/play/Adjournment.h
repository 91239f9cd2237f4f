// Adjourning games and going on with them.
#pragma once

#include "practice/games/Archive.h"
#include "practice/hall/Hall.h"

namespace practice {

// Keeps the game for another day and ends it without a result.
void adjournGame(Hall& hall, Game& game);

// Puts an adjourned game up again where it stood, with its clocks; both players must be free.
void resumeGame(Hall& hall, const KeptGame& kept);

} // namespace practice
