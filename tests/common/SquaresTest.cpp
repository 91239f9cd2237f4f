// Names and numbers of squares.
#include "common/Squares.h"

#include <gtest/gtest.h>

TEST(Squares, NamesRunFromA1OverH1ToH8) {
    EXPECT_EQ(zSquareName(0), "a1");
    EXPECT_EQ(zSquareName(7), "h1");
    EXPECT_EQ(zSquareName(8), "a2");
    EXPECT_EQ(zSquareName(63), "h8");
}

TEST(Squares, TheHandIsNamedAsTheFirstSquareOfANinthRow) { EXPECT_EQ(zSquareName(HandSquare), "a9"); }

TEST(Squares, TheNumberOfANameIsItsInverse) {
    for (int square = 0; square <= HandSquare; ++square) EXPECT_EQ(zSquareNumber(zSquareName(square)), square);
}

TEST(Squares, TheFirstAndTheLastCharacterCount) {
    EXPECT_EQ(zSquareNumber("exd5"), 36);
    EXPECT_EQ(zSquareNumber("e-4"), 28);
}

TEST(Squares, ATextThatIsNoNameGivesANumberWithoutAFault) {
    EXPECT_EQ(zSquareNumber(""), -1);
    EXPECT_EQ(zSquareNumber("a0"), -8);
    EXPECT_EQ(zSquareNumber("ax"), -8) << "no digit has the value 0";
    EXPECT_EQ(zSquareNumber("a:"), -8);
    EXPECT_EQ(zSquareNumber("@@"), -41);
    EXPECT_EQ(zSquareNumber("\xFF"
                            "9"),
              222);
}

TEST(Squares, EverySquareIsItsFileAndItsRank) {
    for (int square = 0; square < HandSquare; ++square) EXPECT_EQ(8 * rankOf(square) + fileOf(square), square);
}
