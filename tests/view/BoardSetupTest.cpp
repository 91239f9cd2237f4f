// How a board fits itself to the height of its form.
#include "view/BoardGeometry.h"

#include "common/Fault.h"

#include <gtest/gtest.h>

namespace {

constexpr std::int32_t FrameX = 120;
constexpr std::int32_t FrameY = 435;
constexpr std::int32_t MinHeight = 68 * 15 + FrameY;

// A board fitted to a form that has `boardTwips` left for eight squares.
BoardGeometry fitted(std::int32_t boardTwips, std::int16_t chessSet = 0) {
    BoardGeometry board;
    board.zBoardSetup({MinHeight + boardTwips, FrameX, FrameY}, chessSet);
    return board;
}

} // namespace

TEST(BoardSetup, AFreshBoardIsUnflippedAndOfTheSmallestSize) {
    const BoardGeometry board;
    EXPECT_EQ(board.SquarePixels, 24);
    EXPECT_EQ(board.SquareTwips, 24 * 15);
    EXPECT_EQ(board.ImagePixels, 24);
    EXPECT_EQ(board.PieceList, 7) << "the list of the smallest images";
    EXPECT_FALSE(board.Flipped);
    for (const std::int32_t twips : {board.MinHeight, board.MinWidth, board.FormHeight, board.FormWidth})
        EXPECT_EQ(twips, 0);
    EXPECT_EQ(FormMeasures{}.height, 0);
    EXPECT_EQ(FormMeasures{}.frameX, 0);
    EXPECT_EQ(FormMeasures{}.frameY, 0);
}

TEST(BoardSetup, TheDesignHasItsFiguresInPixels) {
    EXPECT_EQ(BoardDesign::SmallestSquare, 24);
    EXPECT_EQ(BoardDesign::MinHeight, 68);
    EXPECT_EQ(BoardDesign::MinWidth, 186);
    EXPECT_EQ(BoardDesign::PanelHeight, 109);
    EXPECT_EQ(BoardDesign::PanelWidth, 162);
}

TEST(BoardSetup, TheFormKeepsRoomForItsBarsAndItsPanel) {
    const BoardGeometry board = fitted(8 * 54 * 15);
    EXPECT_EQ(board.MinHeight, 68 * 15 + FrameY);
    EXPECT_EQ(board.MinWidth, 186 * 15 + FrameX);
}

TEST(BoardSetup, TheHeightDecidesTheSquare) {
    const BoardGeometry board = fitted(8 * 54 * 15);
    EXPECT_EQ(board.SquarePixels, 54);
    EXPECT_EQ(board.SquareTwips, 54 * 15);
    EXPECT_EQ(board.PieceList, 2);
    EXPECT_EQ(board.ImagePixels, 54);
}

TEST(BoardSetup, SquarePixelsAreRoundedAndSquareTwipsBecomeWholePixels) {
    EXPECT_EQ(fitted(8 * 607).SquarePixels, 40);
    const BoardGeometry board = fitted(8 * 608);
    EXPECT_EQ(board.SquarePixels, 41);
    EXPECT_EQ(board.SquareTwips, 615);
}

TEST(BoardSetup, AnEighthOfTheHeightRoundsHalvesToEven) {
    // 607.5 goes to 608 and so to 41 pixels; 592.5 goes to 592 and so to 39.
    EXPECT_EQ(fitted(8 * 607 + 4).SquarePixels, 41);
    EXPECT_EQ(fitted(8 * 592 + 4).SquarePixels, 39);
}

TEST(BoardSetup, AHeightThatGives23Point9PixelsIsPushedTo24) {
    const BoardGeometry board = fitted(static_cast<std::int32_t>(8 * 23.9 * 15));
    EXPECT_EQ(board.SquarePixels, 24);
    EXPECT_EQ(board.SquareTwips, 360);
    EXPECT_EQ(fitted(-1000).SquarePixels, 24);
}

TEST(BoardSetup, TheSmallestBoardOfTheThirdFamilyHasImagesAPixelLargerThanItsSquare) {
    const BoardGeometry board = fitted(0, 2);
    EXPECT_EQ(board.SquarePixels, 24);
    EXPECT_EQ(board.PieceList, 25);
    EXPECT_EQ(board.ImagePixels, 25);
}

TEST(BoardSetup, TheFormTakesTheSizeOfTheSquares) {
    const BoardGeometry board = fitted(8 * 610);
    EXPECT_EQ(board.FormHeight, (8 * 41 + 68) * 15 + FrameY);
    EXPECT_EQ(board.FormWidth, (8 * 41 + 186) * 15 + FrameX);
}

TEST(BoardSetup, AFormOfItsOwnSizeIsFittedWithoutAChange) {
    BoardGeometry board = fitted(8 * 610);
    const std::int32_t height = board.FormHeight;
    board.zBoardSetup({height, FrameX, FrameY}, 0);
    EXPECT_EQ(board.FormHeight, height);
    EXPECT_EQ(board.SquarePixels, 41);
}

TEST(BoardSetup, TheSquaresKeepTheirNumbersAndDisplaySquareTurns) {
    BoardGeometry board;
    for (int square = 0; square < 64; ++square) EXPECT_EQ(board.DisplaySquare[square], square);
    board.Flipped = true;
    board.zBoardSetup({MinHeight + 8 * 600, FrameX, FrameY}, 0);
    for (int square = 0; square < 64; ++square) EXPECT_EQ(board.DisplaySquare[square], 63 - square);
}

TEST(BoardSetup, AFlipChangesNothingButDisplaySquare) {
    const BoardGeometry upright = fitted(8 * 600);
    BoardGeometry turned;
    turned.Flipped = true;
    turned.zBoardSetup({MinHeight + 8 * 600, FrameX, FrameY}, 0);
    EXPECT_EQ(turned.FormHeight, upright.FormHeight);
    EXPECT_EQ(turned.PieceList, upright.PieceList);
    EXPECT_EQ(turned.zGetSqr(5, 5), upright.zGetSqr(5, 5)) << "still a display square";
}

TEST(BoardSetup, AFormPastThe16BitFieldFaults) { EXPECT_THROW(fitted(8 * 32768), Fault); }
