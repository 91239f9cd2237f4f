// The piece on the pointer: a layer above the picture that leaves no trail.
#include "view/BoardFixture.h"

#include <QCoreApplication>
#include <QPainter>

#include <limits>

namespace {

constexpr std::int16_t E2 = 12;
constexpr std::int16_t E4 = 28;

class DraggedPieceTest : public BoardFixture {
protected:
    DraggedPieceTest() {
        pieces[E2] = 6;
        setUp();
        view.zDrawSquare(E2, -1);
        view.persist();
        view.zYankPiece(E2);
    }

    void moveToMiddleOf(int display, std::uint8_t alpha) {
        float x = 0;
        float y = 0;
        view.geometry().zGetXY(static_cast<std::int16_t>(display), x, y);
        const float half = static_cast<float>(side()) / 2;
        view.zMovePiece(x + half, y + half, alpha);
    }
    // A square without its frame.
    QImage inside(int display) const { return square(display).copy(device(3), device(3), device(48), device(48)); }
};

} // namespace

TEST_F(DraggedPieceTest, TheYankedSquareLosesItsPieceAndKeepsItsFrame) {
    EXPECT_EQ(square(E2).pixel(0, 0), Move);
    EXPECT_TRUE(isPlain(inside(E2), White));
}

TEST_F(DraggedPieceTest, AYankAloneShowsNoPiece) { EXPECT_EQ(screen(), view.picture()); }

TEST_F(DraggedPieceTest, ThePieceShowsAboveThePictureAndIsNotInIt) {
    const QImage before = view.picture().copy();
    moveToMiddleOf(E4, 128);
    EXPECT_EQ(view.picture(), before);
    EXPECT_NE(cut(screen(), E4), square(E4));
}

TEST_F(DraggedPieceTest, OnlyTheSquareAroundThePointIsCovered) {
    moveToMiddleOf(E4, 128);
    const QImage shown = screen();
    for (int display = 0; display < 64; ++display) {
        EXPECT_EQ(cut(shown, display) == square(display), display != E4) << display;
    }
}

TEST_F(DraggedPieceTest, TheBlendIsByItsStrength) {
    const PieceImages& images = imlPieces.images(2, ratio());
    QImage expected = square(E4);
    QPainter painter(&expected);
    painter.setOpacity(128 / 255.0);
    painter.drawImage(0, 0, images[6]);
    painter.end();
    moveToMiddleOf(E4, 128);
    EXPECT_EQ(cut(screen(), E4), expected);
}

TEST_F(DraggedPieceTest, Strength255ShowsItSolid) {
    moveToMiddleOf(E4, 255);
    const QImage shown = cut(screen(), E4);
    pieces[E4] = 6;
    view.zDrawSquare(E4);
    EXPECT_EQ(square(E4), shown);
}

TEST_F(DraggedPieceTest, Strength0WipesItOffTheBoard) {
    moveToMiddleOf(E4, 128);
    view.zMovePiece(0, 0, 0);
    EXPECT_EQ(screen(), view.picture());
}

TEST_F(DraggedPieceTest, ALongDragLeavesNoTrailOnTheScreen) {
    view.setFocusPolicy(Qt::NoFocus); // a window gives the focus to its only part, and that would show
    view.show();
    for (int step = 0; step < 60; ++step) {
        view.zMovePiece(static_cast<float>(step * 7.3), static_cast<float>(430 - step * 6.1), 128);
        QCoreApplication::processEvents();
    }
    view.zMovePiece(0, 0, 0);
    EXPECT_EQ(screen(), view.picture());
}

TEST_F(DraggedPieceTest, ASquareDrawnUnderThePieceLeavesThePieceOnThePointer) {
    moveToMiddleOf(E4, 128);
    const QImage shown = cut(screen(), E4);
    view.zDrawSquare(E4);
    EXPECT_EQ(cut(screen(), E4), shown);
}

TEST_F(DraggedPieceTest, PersistKeepsAHangingPieceOutOfThePicture) {
    moveToMiddleOf(E4, 128);
    const QImage before = view.picture().copy();
    view.persist();
    EXPECT_EQ(view.picture(), before);
    view.zMovePiece(0, 0, 0);
    EXPECT_EQ(screen(), before);
}

TEST_F(DraggedPieceTest, PersistMakesALandedPiecePartOfThePicture) {
    moveToMiddleOf(E4, 255);
    const QImage shown = screen();
    view.persist();
    EXPECT_EQ(view.picture(), shown);
    view.zMovePiece(0, 0, 0);
    EXPECT_EQ(screen(), shown);
}

TEST_F(DraggedPieceTest, ALandedPieceIsWipedByTheNextMoveUnlessPersisted) {
    moveToMiddleOf(E4, 255);
    view.zMovePiece(0, 0, 0);
    EXPECT_EQ(screen(), view.picture());
    EXPECT_TRUE(isPlain(square(E4), White));
}

TEST_F(DraggedPieceTest, ASquareDrawnUnderALandedPieceTakesItsPlace) {
    moveToMiddleOf(E4, 255);
    view.zDrawSquare(E4);
    EXPECT_TRUE(isPlain(cut(screen(), E4), White));
}

TEST_F(DraggedPieceTest, APieceDroppedOnASquareOfOddWidthLandsOnItsPixelsAlone) {
    setUp(37, 2);
    view.zYankPiece(E2);
    const QImage before = view.picture().copy();
    moveToMiddleOf(E4, 255);
    view.persist();
    for (int display = 0; display < 64; ++display) {
        if (display != E4) {
            EXPECT_EQ(square(display), cut(before, display)) << display;
        }
    }
    const QImage landed = square(E4);
    pieces[E4] = 6;
    view.zDrawSquare(E4);
    EXPECT_EQ(square(E4), landed);
}

TEST_F(DraggedPieceTest, HalfASquareOfOddWidthIsAWholeNumberOfPixels) {
    setUp(37, 2);
    view.zYankPiece(E2);
    moveToMiddleOf(E4, 128); // 18.5 pixels from its edges
    const QImage expected = screen();
    float x = 0;
    float y = 0;
    view.geometry().zGetXY(E4, x, y);
    view.zMovePiece(x + 18, y + 18, 128);
    EXPECT_EQ(screen(), expected);
    view.zMovePiece(x + 17, y + 18, 128);
    EXPECT_NE(screen(), expected);
}

TEST_F(DraggedPieceTest, APieceBesideTheBoardIsCutAtTheEdgeOfTheSquares) {
    const QImage before = view.grab().toImage();
    view.zMovePiece(-27, 200, 128);
    EXPECT_EQ(view.grab().toImage(), before);
    view.zMovePiece(0, 200, 128);
    const QImage after = view.grab().toImage();
    EXPECT_NE(after, before);
    const int border = device(BoardView::BorderPixels);
    EXPECT_EQ(after.copy(0, 0, border, after.height()), before.copy(0, 0, border, before.height()));
}

TEST_F(DraggedPieceTest, APointFarAwayOrNoNumberShowsNothing) {
    for (const float far : {1e30F, -1e30F, std::numeric_limits<float>::quiet_NaN()}) {
        view.zMovePiece(far, far, 128);
        EXPECT_EQ(screen(), view.picture());
    }
}

TEST_F(DraggedPieceTest, AnEmptySquareGivesNothingToDrag) {
    view.zYankPiece(40);
    moveToMiddleOf(E4, 255);
    EXPECT_EQ(screen(), view.picture());
}

TEST_F(DraggedPieceTest, ASetupTakesThePieceOffThePointer) {
    moveToMiddleOf(E4, 128);
    setUp();
    EXPECT_EQ(screen(), view.picture());
    EXPECT_FALSE(isPlain(inside(E2), White)) << "it is back on its square";
}
