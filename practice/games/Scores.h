// What a player has won, lost and drawn of the games in his history.
#pragma once

#include "practice/games/Archive.h"

#include <string>
#include <utility>
#include <vector>

namespace practice {

// Games of one kind by their results.
struct Score {
    int won = 0;
    int lost = 0;
    int drawn = 0;

    int total() const { return won + lost + drawn; }
};

// The scores of a player's history by kind: "Blitz", "Wild", "Crazyhouse", in this order. A kind without a game is left
// out, so the totals sum up to the rows of "history".
std::vector<std::pair<std::string, Score>> scoresOf(const Archive& archive, const std::string& name);

// The table of "finger" with a row for each kind that was played; a player with a rating has a row for blitz at least.
// Empty without rows; the last line has no end.
std::string scoreTable(const Archive& archive, const std::string& name, const std::string& rating);

} // namespace practice
