// The parts of the rules that look at squares alone: paths, castling, en passant, names.
#include "board/MoveRig.h"

#include "board/MoveRules.h"

#include <gtest/gtest.h>

namespace {

// All squares of the empty board to which `test` says yes, as names.
template <typename Test>
std::string allFrom(const BoardSquares& board, std::string_view from, Test test) {
    std::string names;
    for (int to = 0; to < 64; ++to) {
        if (test(board, zSquareNumber(from), to) == -1) names += (names.empty() ? "" : " ") + zSquareName(to);
    }
    return names;
}

} // namespace

TEST(MovePaths, DiagonalsOfAnEmptyBoard) {
    const BoardSquares empty{};
    EXPECT_EQ(allFrom(empty, "d4", zDiagonalOK), "a1 g1 b2 f2 c3 e3 c5 e5 b6 f6 a7 g7 h8");
    EXPECT_EQ(allFrom(empty, "a4", zDiagonalOK), "d1 c2 b3 b5 c6 d7 e8") << "no way leads round the edge";
    EXPECT_EQ(allFrom(empty, "h4", zDiagonalOK), "e1 f2 g3 g5 f6 e7 d8");
}

TEST(MovePaths, RowsAndColumnsOfAnEmptyBoard) {
    const BoardSquares empty{};
    EXPECT_EQ(allFrom(empty, "d4", zStraightOK), "d1 d2 d3 a4 b4 c4 e4 f4 g4 h4 d5 d6 d7 d8");
    EXPECT_EQ(allFrom(empty, "h1", zStraightOK), "a1 b1 c1 d1 e1 f1 g1 h2 h3 h4 h5 h6 h7 h8") << "not itself";
}

TEST(MovePaths, ADiagonalIsClosedByAnyPieceOnTheWayButNotByTheLastOne) {
    MoveRig rig("Pf6 pb2");
    EXPECT_EQ(allFrom(rig.game.Board, "d4", zDiagonalOK), "g1 b2 f2 c3 e3 c5 e5 b6 f6 a7");
}

TEST(MovePaths, ARowIsClosedByAnyPieceOnTheWayButNotByTheLastOne) {
    MoveRig rig("Pf4 pb4 Pd6 pd2");
    EXPECT_EQ(allFrom(rig.game.Board, "d4", zStraightOK), "d2 d3 b4 c4 e4 f4 d5 d6");
}

TEST(MovePaths, CastlingIsAKingThatGoesTwoSquareNumbersFar) {
    EXPECT_TRUE(zCastle(1, 4, 6));
    EXPECT_TRUE(zCastle(-1, 60, 58));
    EXPECT_TRUE(zCastle(1, 7, 9)) << "the numbers alone count";
    EXPECT_FALSE(zCastle(1, 4, 5));
    EXPECT_FALSE(zCastle(2, 4, 6));
    EXPECT_FALSE(zCastle(0, 4, 6));
}

TEST(MovePaths, ADoubleStepBesideAnEnemyPawnGrantsEnPassant) {
    for (const char* pieces : {"Pe2 pd4", "Pe2 pf4", "Pe2 pd4 pf4"}) {
        EXPECT_EQ(zEnPassantOK(MoveRig(pieces).game.Board, 12, 28), -1) << pieces;
    }
    for (const char* pieces : {"pe7 Pd5", "pe7 Pf5"}) {
        EXPECT_EQ(zEnPassantOK(MoveRig(pieces).game.Board, 52, 36), -1) << pieces;
    }
}

TEST(MovePaths, NothingElseGrantsEnPassant) {
    const auto granted = [](const char* pieces, int from, int to) {
        return zEnPassantOK(MoveRig(pieces).game.Board, from, to);
    };
    EXPECT_EQ(granted("Pe2", 12, 28), 0) << "nobody beside it";
    EXPECT_EQ(granted("Pe2 Pd4 Pf4", 12, 28), 0) << "its own pawns";
    EXPECT_EQ(granted("Pe2 nd4", 12, 28), 0) << "no pawn";
    EXPECT_EQ(granted("Pe2 pd3", 12, 20), 0) << "a single step";
    EXPECT_EQ(granted("Re2 pd4", 12, 28), 0) << "a rook";
    EXPECT_EQ(granted("pe4 Pd2", 28, 12), -1) << "two rows down is forward for black";
    EXPECT_EQ(granted("Pe4 pd2", 28, 12), 0) << "and backward for white";
}

TEST(MovePaths, EnPassantIsNotGrantedRoundTheEdge) {
    EXPECT_EQ(zEnPassantOK(MoveRig("Pa2 ph3").game.Board, 8, 24), 0) << "h3 is the number before a4";
    EXPECT_EQ(zEnPassantOK(MoveRig("Ph2 pa5").game.Board, 15, 31), 0) << "a5 is the number behind h4";
    EXPECT_EQ(zEnPassantOK(MoveRig("Pa2 pb4").game.Board, 8, 24), -1);
    EXPECT_EQ(zEnPassantOK(MoveRig("Pg2 ph4").game.Board, 14, 30), -1);
    EXPECT_EQ(zEnPassantOK(MoveRig("Ph2 pg4").game.Board, 15, 31), -1);
}

TEST(MovePaths, TheColumnOfTheFromSquareBoundsTheGrant) {
    EXPECT_EQ(zEnPassantOK(MoveRig("Pb2 ph3").game.Board, 9, 24), -1) << "from b2 to a4: h3 counts";
}

TEST(MovePaths, AnEnPassantCaptureIsAPawn7Or9SquaresOnToAnEmptyOne) {
    EXPECT_TRUE(zEnPassantCapture(6, 36, 43, 0));
    EXPECT_TRUE(zEnPassantCapture(6, 36, 45, 0));
    EXPECT_TRUE(zEnPassantCapture(-6, 28, 19, 0));
    EXPECT_FALSE(zEnPassantCapture(6, 36, 43, -6)) << "not empty";
    EXPECT_FALSE(zEnPassantCapture(6, 36, 44, 0)) << "straight on";
    EXPECT_FALSE(zEnPassantCapture(5, 36, 43, 0)) << "no pawn";
}

TEST(MovePaths, TheLiteralFormIsBothNamesAndAHyphen) {
    EXPECT_EQ(zLiteral(12, 28), "e2-e4");
    EXPECT_EQ(zLiteral(0, 63), "a1-h8");
    EXPECT_EQ(zLiteral(64, 28), "a9-e4") << "the hand has the name of square 64";
}
