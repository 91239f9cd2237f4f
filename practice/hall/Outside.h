// What the hall needs from outside: clocks and engines.
#pragma once

#include "practice/engine/SearchOrder.h"
#include "practice/engine/UciReplies.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace practice {

// What the hall cannot do itself. Every member must be set before use; answers may come at once or later, but only
// from the thread that calls the hall.
struct Outside {
    std::function<std::int64_t()> now;      // steady milliseconds
    std::function<std::string()> wallClock; // "Sat Nov 21, 02:42 UTC 2026"
    std::function<void(int milliseconds, std::function<void()>)> later;
    // Plays `move` (none if empty) on `fen` and hands over the facts of the position reached.
    std::function<void(const Rules&, const std::string& fen, const std::string& move,
                       std::function<void(PositionFacts)>)>
        rules;
    std::function<void(const SearchOrder&, std::function<void(std::vector<Candidate>)>)> search;
};

} // namespace practice
