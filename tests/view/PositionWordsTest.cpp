// A position in words.
#include "view/PositionWords.h"

#include <gtest/gtest.h>

TEST(DescribePosition, NamesThePiecesOfBothSidesKingFirst) {
    const auto pieces = [](int square) -> std::int16_t {
        return square == 4 ? 1 : square == 0 ? 3 : square == 12 ? 6 : square == 60 ? -1 : std::int16_t{0};
    };
    EXPECT_EQ(describePosition(pieces), "White: king e1, rook a1, pawn e2; Black: king e8");
}

TEST(DescribePosition, NamesAllSixKindsFromTheKingDown) {
    const auto pieces = [](int square) {
        return static_cast<std::int16_t>(square < 6 ? 6 - square : square >= 58 ? square - 64 : 0);
    };
    EXPECT_EQ(describePosition(pieces), "White: king f1, queen e1, rook d1, bishop c1, knight b1, pawn a1; "
                                        "Black: king h8, queen g8, rook f8, bishop e8, knight d8, pawn c8");
}

TEST(DescribePosition, ASideWithoutPiecesIsNoneAndACodeOfNoPieceIsNotNamed) {
    EXPECT_EQ(describePosition([](int) { return std::int16_t{127}; }), "White: none; Black: none");
}
