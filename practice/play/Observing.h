// Observing games: who watches, and what watchers are shown.
#pragma once

#include "practice/hall/Hall.h"

#include <string>

namespace practice {

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
