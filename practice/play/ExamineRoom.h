// Examined games: one player or several walk through the moves and may try others, anybody may watch.
#pragma once

#include "practice/games/Archive.h"
#include "practice/hall/Hall.h"

#include <string>

namespace practice {

// Puts a kept game on a player's board at its start, or a bare start position when `kept` is null; gives the answer.
// He watches none and has no ads meanwhile.
std::string startExamining(Hall& hall, Player& player, const KeptGame* kept);

// Makes an observer of the game that a player examines an examiner beside him, tells everybody at the board, and gives
// the answer. `to` watches no other game any more.
std::string shareExamining(Hall& hall, const Player& player, Player& to);

// Ends it for one examiner, and the game with the last of them, tells the others at the board, and gives the answer.
std::string stopExamining(Hall& hall, Player& player);

// Walk on along the kept moves, or back along those shown, and show the others at the board; give the answer with the
// board.
std::string goForward(Hall& hall, Player& player, int halfmoves);
std::string goBackward(Hall& hall, Player& player, int halfmoves);

// Goes back to where a try has left the kept moves; gives the answer with the board.
std::string revertToMainLine(Hall& hall, Player& player);

} // namespace practice
