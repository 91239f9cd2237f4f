// Square numbers: a1 = 0, h1 = 7, a2 = 8, h8 = 63; 64 is the hand, the source of a drop.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

inline constexpr int HandSquare = 64;

// The file 0 to 7 and the rank 0 to 7 of square 0 to 63.
constexpr int fileOf(int square) { return square % 8; }
constexpr int rankOf(int square) { return square / 8; }

// The name of square 0 to 63, such as "e4"; the hand is "a9".
inline std::string zSquareName(int square) {
    return std::string(1, static_cast<char>('a' + fileOf(square))) + std::to_string(rankOf(square) + 1);
}

// The square of a name, from its first and its last character. A text that is no name gives a number that may lie
// outside 0 to 63; never faults.
inline std::int16_t zSquareNumber(std::string_view name) {
    if (name.empty()) return -1;
    const int file = static_cast<unsigned char>(name.front()) - 'a';
    const int digit = name.back() >= '0' && name.back() <= '9' ? name.back() - '0' : 0;
    return static_cast<std::int16_t>(file + 8 * (digit - 1));
}
