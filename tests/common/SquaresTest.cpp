// Squares and their names.
#include "common/Squares.h"

#include <gtest/gtest.h>

TEST(Squares, CountFromA1AlongTheRanksToH8) {
    EXPECT_EQ(squareName(0), "a1");
    EXPECT_EQ(squareName(7), "h1");
    EXPECT_EQ(squareName(8), "a2");
    EXPECT_EQ(squareName(28), "e4");
    EXPECT_EQ(squareName(63), "h8");
}

TEST(Squares, EverySquareIsItsFileAndItsRank) {
    for (int square = 0; square < HandSquare; ++square) EXPECT_EQ(8 * rankOf(square) + fileOf(square), square);
}
