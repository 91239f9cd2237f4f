// The course of a game: start, moves, offers, and all the ways it ends.
#pragma once

#include "practice/Hall.h"

#include <string>

namespace practice {

// Starts a game between two players, shows it to both, and lets a computer think. The colours follow `terms` as the
// first player asked for them, else the hall's dice.
Game& startGame(Hall& hall, Player& first, Player& second, const Terms& terms);

// Plays a legal move in engine form for the side to move. The rules engine is asked, and its answer tells players
// and observers, and ends the game at mate, stalemate, repetition, fifty moves, or the limit of moves.
void playMove(Hall& hall, Game& game, const std::string& move);

// Ends a game: the end line goes to everybody concerned and the game is gone afterwards. `result` is "1-0", "0-1",
// "1/2-1/2" or "*".
void endGame(Hall& hall, Game& game, const std::string& reason, const std::string& result);

// "1-0" or "0-1": the result when `side` loses.
std::string lossOf(int side);

// Ends the game if a flag is down and the opponent of its owner wants that or claims it now; true if it ended.
// Computers and players with the variable "autoflag" want it.
bool callFlag(Hall& hall, Game& game, bool claimed);

// Looks at the flags of all games; to be called a few times a second.
void watchClocks(Hall& hall);

// The player is gone: his game is aborted before each side's second move, and lost after.
void abandonGame(Hall& hall, Player& player);

// Adds a player to a game's observers, and takes him off; the second is false if he did not observe it.
void observeGame(Game& game, Player& player);
bool unobserveGame(Hall& hall, Player& player, int number);

// "Removing game 1 from observation list.": the word to somebody who observes no more.
std::string unobservedLine(int number);

// Takes a player off all games without a word.
void unobserveAll(Hall& hall, Player& player);

// Shows a block to the observers of a game.
void showObservers(Hall& hall, const Game& game, const std::string& text);

} // namespace practice
