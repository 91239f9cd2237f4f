// A position in words, for assistive tools.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

// "White: king e1, rook a1; Black: none": each side's pieces from the king down to the pawns, of each kind from a1 on.
// `pieceAt` gives the piece code on square 0 to 63.
std::string describePosition(const std::function<std::int16_t(int square)>& pieceAt);
