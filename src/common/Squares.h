// Square numbers: a1 = 0, h1 = 7, a2 = 8, h8 = 63; 64 is the hand, the source of a drop.
#pragma once

#include <string>

inline constexpr int HandSquare = 64;

// The file 0 to 7 and the rank 0 to 7 of square 0 to 63.
constexpr int fileOf(int square) { return square % 8; }
constexpr int rankOf(int square) { return square / 8; }

// The name of square 0 to 63, such as "e4".
inline std::string squareName(int square) {
    return std::string(1, static_cast<char>('a' + fileOf(square))) + std::to_string(rankOf(square) + 1);
}
