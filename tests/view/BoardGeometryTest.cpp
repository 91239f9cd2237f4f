// Points and squares, colours of squares, and the small measures of the painter.
#include "view/BoardGeometry.h"

#include "common/modChess.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

BoardGeometry boardOf(std::int16_t squarePixels, std::int16_t imagePixels = 24) {
    BoardGeometry board;
    board.SquarePixels = squarePixels;
    board.ImagePixels = imagePixels;
    return board;
}

} // namespace

TEST(GetSqr, CountsFilesFromTheLeftAndRowsFromTheBottom) {
    const BoardGeometry board = boardOf(54);
    EXPECT_EQ(board.zGetSqr(0, 8 * 54 - 1), 0);
    EXPECT_EQ(board.zGetSqr(8 * 54 - 1, 0), 63);
    EXPECT_EQ(board.zGetSqr(0, 0), 56);
    EXPECT_EQ(board.zGetSqr(4 * 54 + 53.9F, 6 * 54), 12);
}

TEST(GetSqr, GivesDisplaySquaresWhateverTheFlip) {
    BoardGeometry board = boardOf(54);
    board.Flipped = true;
    EXPECT_EQ(board.zGetSqr(0, 8 * 54 - 1), 0);
}

TEST(GetSqr, APointBesideTheBoardIs64) {
    const BoardGeometry board = boardOf(54);
    EXPECT_EQ(board.zGetSqr(-1, 10), 64);
    EXPECT_EQ(board.zGetSqr(-0.25F, 10), OffBoard);
    EXPECT_EQ(board.zGetSqr(10, 8 * 54), OffBoard);
    EXPECT_EQ(board.zGetSqr(8 * 54, 10), OffBoard);
    EXPECT_EQ(board.zGetSqr(10, -1), OffBoard);
    EXPECT_EQ(board.zGetSqr(8 * 54, 8 * 54 - 1), OffBoard) << "a2 does not follow upon h1";
    EXPECT_EQ(board.zGetSqr(54, -1), OffBoard);
}

TEST(GetSqr, APointThatIsNoNumberOrFarAwayIs64) {
    const BoardGeometry board = boardOf(54);
    const float infinite = std::numeric_limits<float>::infinity();
    const float none = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(board.zGetSqr(infinite, 10), OffBoard);
    EXPECT_EQ(board.zGetSqr(10, -infinite), OffBoard);
    EXPECT_EQ(board.zGetSqr(none, 10), OffBoard);
    EXPECT_EQ(board.zGetSqr(10, none), OffBoard);
    EXPECT_EQ(board.zGetSqr(1e30F, 1e30F), OffBoard);
}

TEST(Neighbour, IsCountedAsTheBoardStandsOnTheScreen) {
    BoardGeometry board;
    EXPECT_EQ(board.neighbour(0, 1, 0), 1);
    EXPECT_EQ(board.neighbour(12, 0, 1), 20);
    board.Flipped = true;
    board.zBoardSetup({}, 0);
    EXPECT_EQ(board.neighbour(63, 1, 0), 62);
    EXPECT_EQ(board.neighbour(12, 0, 1), 4);
}

TEST(Neighbour, EndsAtTheEdges) {
    const BoardGeometry board;
    EXPECT_EQ(board.neighbour(0, -1, 0), 0);
    EXPECT_EQ(board.neighbour(0, 0, -1), 0);
    EXPECT_EQ(board.neighbour(63, 1, 1), 63);
    EXPECT_EQ(board.neighbour(7, 1, 0), 7) << "not on to the next rank";
}

TEST(GetXY, IsTheTopLeftPixelOfTheDisplaySquare) {
    const BoardGeometry board = boardOf(37);
    float x = -1;
    float y = -1;
    board.zGetXY(0, x, y);
    EXPECT_EQ(x, 0);
    EXPECT_EQ(y, 7 * 37);
    board.zGetXY(28, x, y);
    EXPECT_EQ(x, 4 * 37);
    EXPECT_EQ(y, 4 * 37);
    board.zGetXY(63, x, y);
    EXPECT_EQ(x, 7 * 37);
    EXPECT_EQ(y, 0);
}

TEST(GetXY, IsTheInverseOfGetSqr) {
    const BoardGeometry board = boardOf(37);
    for (std::int16_t square = 0; square < 64; ++square) {
        float x = 0;
        float y = 0;
        board.zGetXY(square, x, y);
        EXPECT_EQ(board.zGetSqr(x, y), square);
        EXPECT_EQ(board.zGetSqr(x + 36, y + 36), square);
    }
}

TEST(ConvertSquare, IsFileLetterAndRank) {
    EXPECT_EQ(zConvertSquare(0), "a1");
    EXPECT_EQ(zConvertSquare(7), "h1");
    EXPECT_EQ(zConvertSquare(28), "e4");
    EXPECT_EQ(zConvertSquare(63), "h8");
}

TEST(SquareColor, A1AndH8AreBlackAndTheirNeighboursWhite) {
    modChess = ModChess{};
    modChess.ColorBlack = 0x112233;
    modChess.ColorWhite = 0x445566;
    EXPECT_EQ(squareColor(0), 0x112233);
    EXPECT_EQ(squareColor(63), 0x112233);
    EXPECT_EQ(squareColor(1), 0x445566);
    EXPECT_EQ(squareColor(8), 0x445566);
    EXPECT_EQ(squareColor(9), 0x112233);
    modChess = ModChess{};
}

TEST(PieceOffset, RoundsHalvesToEvenAndIsNeverBelowZero) {
    const auto offset = [](std::int16_t square, std::int16_t image) { return boardOf(square, image).pieceOffset(); };
    EXPECT_EQ(offset(54, 54), 0) << "0.5";
    EXPECT_EQ(offset(55, 54), 1);
    EXPECT_EQ(offset(56, 54), 2) << "1.5";
    EXPECT_EQ(offset(58, 54), 2) << "2.5";
    EXPECT_EQ(offset(24, 25), 0);
    EXPECT_EQ(offset(24, 76), 0);
}

TEST(Highlight, ThicknessIsATwentiethOfTheImageAHalfGoingToTheEvenNeighbour) {
    const auto thickness = [](std::int16_t image) { return boardOf(76, image).highlightThickness(); };
    EXPECT_EQ(thickness(24), 1);
    EXPECT_EQ(thickness(25), 1);
    EXPECT_EQ(thickness(54), 3);
    EXPECT_EQ(thickness(76), 4);
    EXPECT_EQ(thickness(30), 2) << "1.5";
    EXPECT_EQ(thickness(50), 2) << "2.5";
}

TEST(FindBottomRow, IsTheFirstHiddenRowMinusTwo) {
    std::int16_t visible = -5;
    zFindBottomRow([](int row) { return row < 18; }, visible);
    EXPECT_EQ(visible, 16);
    zFindBottomRow([](int) { return false; }, visible);
    EXPECT_EQ(visible, -1);
}

TEST(FindBottomRow, LeavesTheValueWhenAll200RowsShow) {
    std::int16_t visible = 33;
    int asked = 0;
    zFindBottomRow([&](int row) { return ++asked == row; }, visible);
    EXPECT_EQ(visible, 33);
    EXPECT_EQ(asked, 200);
}
