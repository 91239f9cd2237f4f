// The table of imlPieces: which image lists there are, of which family, and in which size.
#include "view/PieceLists.h"

#include "common/FixedArray.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr std::array<PieceFamily, 3> Families{{{"bookup", 0, 7}, {"quorl", 8, 15}, {"gnu", 16, 25}}};

const FixedArray<std::int16_t, PieceListCount - 1> Sizes = [] {
    constexpr std::array<std::int16_t, PieceListCount> table{76, 64, 54, 46, 38, 32, 28, 24,          // Bookup
                                                             76, 64, 54, 46, 38, 32, 28, 24,          // Quorl
                                                             76, 64, 54, 49, 45, 40, 37, 33, 29, 25}; // GNU
    FixedArray<std::int16_t, PieceListCount - 1> sizes;
    std::ranges::copy(table, sizes.begin());
    return sizes;
}();

} // namespace

const PieceFamily& pieceFamily(std::int16_t chessSet) {
    return chessSet == 0 ? Families[0] : chessSet == 1 ? Families[1] : Families[2];
}

const PieceFamily& familyOfList(int list) {
    return list < Families[1].first ? Families[0] : list < Families[2].first ? Families[1] : Families[2];
}

std::int16_t pieceListSize(int list) { return Sizes[list]; }

std::int16_t choosePieceList(std::int16_t chessSet, std::int16_t squarePixels) {
    const PieceFamily& family = pieceFamily(chessSet);
    int list = family.first;
    while (list < family.last && pieceListSize(list) > squarePixels) ++list;
    return static_cast<std::int16_t>(list);
}

int pieceImage(std::int16_t piece) {
    const int kind = std::abs(piece);
    if (kind < 1 || kind > 6) return 0;
    return piece < 0 ? kind + 6 : kind;
}
