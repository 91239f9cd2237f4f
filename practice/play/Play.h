// The course of a game: start, moves, offers, and all the ways it ends.
#pragma once

#include "practice/hall/Hall.h"

#include <string>

namespace practice {

// Starts a game between two players, shows it to both, and lets a computer think. The colours follow `terms` as the
// first player asked for them, else the hall's dice.
Game& startGame(Hall& hall, Player& first, Player& second, const Terms& terms);

// Puts a new game up under the lowest free number, without players and with its start position drawn.
Game& openGame(Hall& hall, const Terms& terms);

// Seats the two players of a game and shows them its start; `verb` is "Creating" or "Continuing".
void seatBoth(Hall& hall, Game& game, const std::string& verb);

// Puts the position behind the last of a game's moves on its board and asks the rules engine for its facts; then lets a
// computer think. Lines of the players wait meanwhile.
void learnPosition(Hall& hall, Game& game);

// Shows the board to players or the examiner, and to observers.
void showBoard(Hall& hall, const Game& game);

// Plays a legal move in engine form for the side to move. The rules engine is asked, and its answer tells players
// and observers, and ends the game at mate, stalemate, repetition, fifty moves, or the limit of moves.
void playMove(Hall& hall, Game& game, const std::string& move);

// Ends a game: the end line goes to everybody concerned and the game is gone afterwards. `result` is "1-0", "0-1",
// "1/2-1/2" or "*".
void endGame(Hall& hall, Game& game, const std::string& reason, const std::string& result);

// Ends the game if the flag of the side to move is down and the opponent wants that; true if it ended. Computers and
// players with the variable "autoflag" want it.
bool callFlag(Hall& hall, Game& game);

// Ends the game for a player who says that his opponent's flag is down, whosever turn it is; false if it is up.
bool claimFlag(Hall& hall, Game& game, const Player& player);

// Looks at the flags of all games; to be called a few times a second.
void watchClocks(Hall& hall);

// The player is gone: his game is aborted before each side's second move, and lost after.
void abandonGame(Hall& hall, Player& player);

// Adds a player to a game's observers, and takes him off; the second is false if he did not observe it.
void observeGame(Game& game, Player& player);
bool unobserveGame(Hall& hall, Player& player, int number);

// "Removing game 1 from observation list.": the word to somebody who observes no more.
std::string unobservedLine(int number);

// Takes a player off all games and gives the words for him, a line each; empty if he observed none.
std::string unobserveAll(Hall& hall, Player& player);

// Shows a block to the observers of a game.
void showObservers(Hall& hall, const Game& game, const std::string& text);

} // namespace practice
