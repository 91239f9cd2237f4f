// The computer players: who they are, how strong, and how they choose among an engine's proposals.
#pragma once

#include "practice/engine/UciReplies.h"
#include "practice/games/Seeks.h"

#include <random>
#include <string>
#include <vector>

namespace practice {

// One computer player. Its strength comes from three figures: how deep the engine looks, how many moves it proposes,
// and how much worse than the best a chosen move may be.
struct Computer {
    std::string name;
    int rating = 0;
    int depth = 1;
    int proposals = 1;
    int margin = 0;      // hundredths of a pawn
    Terms offer;         // the seek it keeps open
    bool seeks = true;   // keeps its ad open
    std::string about;   // one line for finger
    bool always = false; // one of the two that always play each other
    bool prompt = false; // answers at once instead of after a human delay
};

// The three opponents with an ad, weakest first, then one that answers at once, and then the two that always play each
// other.
const std::vector<Computer>& computers();

// Chooses among proposals that stand best first: each one within `margin` of the best has the same chance. With a
// mate in sight the best is taken. Empty for an empty list.
std::string chooseMove(const std::vector<Candidate>& proposals, int margin, std::mt19937& random);

} // namespace practice
