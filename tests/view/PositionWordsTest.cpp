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

TEST(DescribePosition, APieceInHandIsNotOnTheBoard) {
    const auto inHand = [](int square) -> std::int16_t { return square == 64 ? 2 : 0; };
    EXPECT_EQ(describePosition(inHand), "White: none; Black: none");
}

TEST(DescribePosition, ASideWithoutPiecesIsNoneAndACodeOfNoPieceIsNotNamed) {
    EXPECT_EQ(describePosition([](int) { return std::int16_t{127}; }), "White: none; Black: none");
}

TEST(DescribeSquare, NamesTheSquareAndWhatStandsThere) {
    EXPECT_EQ(describeSquare(28, 6, false), "e4, white pawn");
    EXPECT_EQ(describeSquare(60, -1, false), "e8, black king");
    EXPECT_EQ(describeSquare(0, 3, false), "a1, white rook");
    EXPECT_EQ(describeSquare(63, -6, false), "h8, black pawn");
    EXPECT_EQ(describeSquare(36, 0, false), "e5, empty");
    EXPECT_EQ(describeSquare(36, 127, false), "e5, empty");
}

TEST(DescribeSquare, APieceThatIsLiftedIsInHand) {
    EXPECT_EQ(describeSquare(12, 6, true), "e2, white pawn, in hand");
    EXPECT_EQ(describeSquare(12, 0, true), "e2, empty");
}

TEST(DescribeMove, ASignOfCheckOrMateIsAWord) {
    EXPECT_EQ(describeMove("8.. Qg5+"), "8.. Qg5, check");
    EXPECT_EQ(describeMove("9. Qf7#"), "9. Qf7, checkmate");
    EXPECT_EQ(describeMove("1. e4"), "1. e4");
    EXPECT_EQ(describeMove(""), "");
}

TEST(DescribeMove, APreMoveIsTwoSquares) { EXPECT_EQ(describePreMove(52, 36), "pre-move e7 to e5"); }
