// Piece codes: king 1, queen 2, rook 3, bishop 4, knight 5, pawn 6; positive white, negative black, 0 empty.
#pragma once

#include <cstdint>

// The kinds of piece, as the absolute value of a code.
namespace Piece {
inline constexpr int King = 1;
inline constexpr int Queen = 2;
inline constexpr int Rook = 3;
inline constexpr int Bishop = 4;
inline constexpr int Knight = 5;
inline constexpr int Pawn = 6;
} // namespace Piece

// 1, -1 or 0.
constexpr int signOf(int number) { return (number > 0) - (number < 0); }

// The code of one character of a position text. Lower-cased it is compared with k, q, r, b, n, p; anything else is an
// empty square. A character that sorts above "Z" is black, whatever its case.
constexpr std::int16_t pieceCode(char letter) {
    const auto byte = static_cast<unsigned char>(letter);
    const auto signedCode = [byte](int code) { return static_cast<std::int16_t>(byte > 'Z' ? -code : code); };
    switch (byte >= 'A' && byte <= 'Z' ? byte + ('a' - 'A') : byte) {
    case 'k':
        return signedCode(1);
    case 'q':
        return signedCode(2);
    case 'r':
        return signedCode(3);
    case 'b':
        return signedCode(4);
    case 'n':
        return signedCode(5);
    case 'p':
        return signedCode(6);
    default:
        return 0;
    }
}
