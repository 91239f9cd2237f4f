// Tests of positions read from FEN texts.
#include "practice/chess/Position.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

TEST(Position, StartPositionIsRead) {
    const auto position = readFen(startFen);
    ASSERT_TRUE(position);
    EXPECT_EQ(position->rank(8), "rnbqkbnr");
    EXPECT_EQ(position->rank(4), "--------");
    EXPECT_EQ(position->rank(1), "RNBQKBNR");
    EXPECT_TRUE(position->whiteToMove);
    EXPECT_EQ(position->castling, "KQkq");
    EXPECT_EQ(position->at("e1"), 'K');
    EXPECT_EQ(position->at("e4"), '-');
}

TEST(Position, CountersAreReadAndHaveDefaults) {
    const auto position = readFen("8/8/8/4k3/8/4K3/4P3/8 b - - 7 41");
    ASSERT_TRUE(position);
    EXPECT_FALSE(position->whiteToMove);
    EXPECT_EQ(position->halfmoves, 7);
    EXPECT_EQ(position->moveNumber, 41);
    const auto bare = readFen("8/8/8/4k3/8/4K3/4P3/8 w");
    ASSERT_TRUE(bare);
    EXPECT_EQ(bare->moveNumber, 1);
    EXPECT_EQ(bare->halfmoves, 0);
}

TEST(Position, BrokenTextsAreRefused) {
    for (const char* text :
         {"", "rnbqkbnr w", "8/8/8/8/8/8/8 w", "9/8/8/8/8/8/8/8 w", "8/8/8/8/8/8/8/7 w", "8/8/8/8/8/8/8/8/8 w",
          "ppppppppp/8/8/8/8/8/8/8 w", "x7/8/8/8/8/8/8/8 w", "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR"}) {
        EXPECT_FALSE(readFen(text)) << text;
    }
}

TEST(Position, SquareNamesOfAnotherFormHaveNoIndex) {
    EXPECT_EQ(squareIndex("a1"), 0);
    EXPECT_EQ(squareIndex("h1"), 7);
    EXPECT_EQ(squareIndex("h8"), 63);
    for (const char* text : {"", "a", "i1", "a9", "a0", "A1", "a12"}) EXPECT_EQ(squareIndex(text), -1) << text;
}

TEST(Position, MaterialStrengthIsThirtyNineAtTheStart) {
    const auto position = readFen(startFen).value();
    EXPECT_EQ(materialStrength(position, true), 39);
    EXPECT_EQ(materialStrength(position, false), 39);
}

TEST(Position, MaterialStrengthCountsEachSideAlone) {
    const auto position = readFen("4k3/8/8/8/8/8/P7/R2QK2B w - - 0 1").value();
    EXPECT_EQ(materialStrength(position, true), 18);
    EXPECT_EQ(materialStrength(position, false), 0);
}

TEST(Position, AKingWithOneMinorPieceCannotMate) {
    EXPECT_FALSE(hasMatingMaterial(readFen("4k3/8/8/8/8/8/8/4K3 w").value(), true));
    EXPECT_FALSE(hasMatingMaterial(readFen("4k3/8/8/8/8/8/8/4KN2 w").value(), true));
    EXPECT_FALSE(hasMatingMaterial(readFen("4kb2/8/8/8/8/8/8/4K3 w").value(), false));
}

TEST(Position, APawnARookOrTwoPiecesCanMate) {
    EXPECT_TRUE(hasMatingMaterial(readFen("4k3/8/8/8/8/8/P7/4K3 w").value(), true));
    EXPECT_TRUE(hasMatingMaterial(readFen("4k3/8/8/8/8/8/8/R3K3 w").value(), true));
    EXPECT_TRUE(hasMatingMaterial(readFen("4k3/8/8/8/8/8/8/B1N1K3 w").value(), true));
}

TEST(Position, RepetitionKeyLeavesTheCountersOut) {
    EXPECT_EQ(repetitionKey("8/8/8/4k3/8/4K3/8/8 w - - 3 9"), repetitionKey("8/8/8/4k3/8/4K3/8/8 w - - 7 11"));
    EXPECT_NE(repetitionKey("8/8/8/4k3/8/4K3/8/8 w - - 3 9"), repetitionKey("8/8/8/4k3/8/4K3/8/8 b - - 3 9"));
    EXPECT_NE(repetitionKey("8/8/8/4k3/8/4K3/8/8 w KQ - 3 9"), repetitionKey("8/8/8/4k3/8/4K3/8/8 w K - 3 9"));
}

TEST(Position, AHandStandsInBracketsBehindTheRanks) {
    const auto position = readFen("4k3/8/8/8/8/8/8/4K1Q~1[QPNpbP] w - - 0 1");
    ASSERT_TRUE(position);
    EXPECT_EQ(position->handOf(true), "PPNQ");
    EXPECT_EQ(position->handOf(false), "PB");
    EXPECT_EQ(position->at("g1"), 'Q') << "a mark of promotion is no square";
    EXPECT_FALSE(readFen("4k3/8/8/8/8/8/8/4K3[Q w - - 0 1"));
    EXPECT_FALSE(readFen("4k3/8/8/8/8/8/8/4K3[Q3] w - - 0 1"));
}

TEST(Position, CastlingRightsAreLettersOfSidesOrOfRooks) {
    const auto usual = readFen("r3k2r/8/8/8/8/8/8/R3K2R w Kq - 0 1").value();
    EXPECT_TRUE(usual.mayCastle(true, true));
    EXPECT_FALSE(usual.mayCastle(true, false));
    EXPECT_FALSE(usual.mayCastle(false, true));
    EXPECT_TRUE(usual.mayCastle(false, false));
    const auto shuffled = readFen("1r3k1r/8/8/8/8/8/8/1R3K1R w Hb - 0 1").value();
    EXPECT_TRUE(shuffled.mayCastle(true, true));
    EXPECT_FALSE(shuffled.mayCastle(true, false));
    EXPECT_TRUE(shuffled.mayCastle(false, false));
    const auto turned = readFen("r2k3r/8/8/8/8/8/8/R2K3R w Kq - 0 1").value();
    EXPECT_TRUE(turned.mayCastle(true, false)) << "right of a king on d is his long side";
    EXPECT_TRUE(turned.mayCastle(false, true));
    EXPECT_FALSE(turned.mayCastle(true, true));
}

} // namespace
} // namespace practice
