// Texts that tell of a game: board lines, move lists, tables.
#pragma once

#include "practice/games/Game.h"

#include <cstdint>
#include <string>

namespace practice {

// "(white vs. black)".
std::string pairing(const Game& game);

// "Game 1: ": how lines about a game begin.
std::string gameLabel(const Game& game);

// "white (rating) black (rating) unrated blitz 5 0".
std::string lineUp(const Game& game);

// "Game 1: white (rating) black (rating) unrated blitz 5 0".
std::string gameTitle(const Game& game);

// The board line as `viewer` gets it at the moment `now`; where pieces are dropped, the line with both hands follows.
std::string boardLineFor(const Game& game, const std::string& viewer, std::int64_t now);

// "{Game 1 (white vs. black) REASON} RESULT".
std::string endLine(const Game& game, const std::string& reason, const std::string& result);

// "br", "su", "zu": kind and rating mode as tables have them.
std::string kindLetters(const Terms& terms);

// A move list from the line with both names to the last of the moves.
std::string moveRows(const Game& game);

// The answer to "moves", from the line "Movelist for game" to the one that says that the game goes on.
std::string moveList(const Game& game);

// The game's row in the answer to "games", clocks as of `now`; an examined one has none.
std::string gamesRow(const Game& game, std::int64_t now);

} // namespace practice
