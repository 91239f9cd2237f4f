// The pieces in hand of a bughouse or crazyhouse game.
#pragma once

#include "common/FixedArray.h"

#include <cstdint>
#include <string>
#include <string_view>

// First index 0 queen, 1 rook, 2 bishop, 3 knight, 4 pawn; second 0 white, 1 black.
using HoldingCounts = FixedArray<FixedArray<std::int16_t, 1>, 4>;

// Both holdings of one line such as "<b1> game 5 white [QPP] black []".
struct HoldingsLine {
    HoldingCounts counts{};
    std::string whiteText; // the first bracket with its brackets; empty when the line has none
    std::string blackText; // the second
};

// Counts stop at the first character that is no piece letter of either case. Never faults.
HoldingsLine readHoldings(std::string_view line);
