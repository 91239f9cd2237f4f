// A position in words.
#include "view/PositionWords.h"

#include <gtest/gtest.h>

TEST(DescribePosition, NamesThePiecesOfBothSidesKingFirst) {
    const auto pieces = [](int square) -> std::int16_t {
        return square == 4 ? 1 : square == 0 ? 3 : square == 12 ? 6 : square == 60 ? -1 : std::int16_t{0};
    };
    EXPECT_EQ(describePosition(pieces), "White: king e1, rook a1, pawn e2; Black: king e8");
}

TEST(DescribePosition, ASideWithoutPiecesIsNoneAndACodeOfNoPieceIsNotNamed) {
    EXPECT_EQ(describePosition([](int) { return std::int16_t{127}; }), "White: none; Black: none");
}
