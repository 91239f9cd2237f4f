// Positions and moves in words, for assistive tools.
#include "view/PositionWords.h"

#include "common/Squares.h"
#include "view/PieceLists.h"

#include <array>

namespace {

constexpr std::array Words{"king", "queen", "rook", "bishop", "knight", "pawn"};

// Of the side whose six images begin with `firstImage`.
std::string describeSide(const std::function<std::int16_t(int)>& pieceAt, int firstImage) {
    std::string text;
    for (std::size_t kind = 0; kind < Words.size(); ++kind) {
        for (int square = 0; square < 64; ++square) {
            if (pieceImage(pieceAt(square)) != firstImage + static_cast<int>(kind)) continue;
            if (!text.empty()) text += ", ";
            text += std::string(Words[kind]) + " " + zSquareName(square);
        }
    }
    return text.empty() ? "none" : text;
}

} // namespace

std::string describePosition(const std::function<std::int16_t(int square)>& pieceAt) {
    return "White: " + describeSide(pieceAt, 1) + "; Black: " + describeSide(pieceAt, 7);
}

std::string describeSquare(int square, std::int16_t code, bool lifted) {
    const int image = pieceImage(code);
    if (image == 0) return zSquareName(square) + ", empty";
    const std::string piece = Words.at(static_cast<std::size_t>((image - 1) % 6));
    return zSquareName(square) + (image <= 6 ? ", white " : ", black ") + piece + (lifted ? ", in hand" : "");
}

std::string describeMove(std::string_view move) {
    const bool check = move.ends_with('+');
    const bool mate = move.ends_with('#');
    if (check || mate) move.remove_suffix(1);
    return std::string(move) + (check ? ", check" : mate ? ", checkmate" : "");
}

std::string describePreMove(int from, int to) { return "pre-move " + zSquareName(from) + " to " + zSquareName(to); }
