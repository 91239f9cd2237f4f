// How the last move of a game ends it.
#pragma once

#include "practice/hall/Hall.h"

#include <optional>
#include <string>

namespace practice {

// The reason that the end line tells, and the result.
struct Ending {
    std::string reason;
    std::string result;
};

// "1-0" or "0-1": the result when `side` loses.
std::string lossOf(int side);

// True if both players are computers.
bool betweenComputers(Hall& hall, const Game& game);

// True in a game in which a side needs pieces to win.
bool needsMaterial(const Game& game);

// The end that the position of `game.facts` means; nothing while the game goes on.
std::optional<Ending> endingOf(Hall& hall, const Game& game);

} // namespace practice
