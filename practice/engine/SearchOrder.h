// What a search for moves is asked.
#pragma once

#include "practice/chess/Variants.h"

#include <string>
#include <vector>

namespace practice {

// A request to look for moves in a running game.
struct SearchOrder {
    Rules rules;
    std::string startFen;
    std::vector<std::string> moves; // from `startFen` on, in engine form
    int depth = 1;
    int proposals = 1;
};

} // namespace practice
