// How a game goes: the end line, what is kept, and players who leave theirs.
#pragma once

#include "practice/hall/Hall.h"

#include <string>

namespace practice {

// Ends a game: the end line goes to everybody concerned and the game is gone afterwards. `result` is "1-0", "0-1",
// "1/2-1/2" or "*".
void endGame(Hall& hall, Game& game, const std::string& reason, const std::string& result);

// The player is gone: his game is aborted before each side's second move, and lost after.
void abandonGame(Hall& hall, Player& player);

} // namespace practice
