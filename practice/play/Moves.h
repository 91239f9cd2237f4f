// Moves in a game: judged by the rules engine, shown to everybody, and the end that one may bring.
#pragma once

#include "practice/hall/Hall.h"

#include <string>

namespace practice {

// Puts the position behind the last of a game's moves on its board and asks the rules engine for its facts; then calls
// on whoever is to move. Lines of the players wait meanwhile. The rules may answer at once, so the game may be gone
// when this returns.
void learnPosition(Hall& hall, Game& game);

// Shows the board to players or examiners, and to observers.
void showBoard(Hall& hall, const Game& game);

// Plays a legal move in engine form for the side to move. The rules engine is asked, and its answer tells players
// and observers, and ends the game at mate, stalemate, repetition, fifty moves, or the limit of moves. In an examined
// game `triedBy` is the examiner who moves.
void playMove(Hall& hall, Game& game, const std::string& move, const std::string& triedBy = {});

} // namespace practice
