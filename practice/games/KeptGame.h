// A game that is over or adjourned, and the cells of the tables that tell of it.
#pragma once

#include "practice/games/Game.h"

#include <cstddef>
#include <memory>
#include <string>

namespace practice {

// A game as it stood at its end; nobody observes it and nothing is pending.
struct KeptGame {
    Game game;
    std::string reason; // "Ada resigns"
    std::string result; // "1-0"
    std::string ended;  // "Sat Nov 21, 02:42 UTC 2026"
};

using KeptGamePtr = std::shared_ptr<const KeptGame>;

// A copy of a game as it is kept.
KeptGamePtr keptGame(const Game& game, const std::string& reason, const std::string& result, const std::string& ended);

// True for one of its two players, letter case ignored; his side 0 or 1, which is 1 for anybody else.
bool isOf(const Game& game, const std::string& name);
std::size_t sideFor(const Game& game, const std::string& name);

// '+', '-' or '=': how one of its two players did in a game.
char resultSign(const KeptGame& kept, const std::string& name);

// The moves of a kept game as "moves" gives them, with the result in the last line.
std::string keptMoveList(const KeptGame& kept);

// Cells of tables; clients read these by columns.

// "Res", "Mat": how the game ended, in three columns.
std::string endLetters(const KeptGame& kept);

// A rating in four columns; a player without one has 0 here, as elsewhere "++++".
std::string ratingCell(const std::string& rating);

// "[ br  5   0]": private or not, kind, rated or not, times.
std::string typeCell(const Terms& terms);

// A handle in 13 columns, the rest of a longer one cut off.
std::string handleCell(const std::string& name);

} // namespace practice
