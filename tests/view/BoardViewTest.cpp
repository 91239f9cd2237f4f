// The painter: which pixels a square gets, and that no other pixel changes.
#include "view/BoardFixture.h"

#include <QAccessible>
#include <QPaintEvent>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

namespace {

class BoardViewTest : public BoardFixture {};

// Collects what a widget is asked to repaint.
class PaintWatch : public QObject {
public:
    QRegion painted;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) painted += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
};

} // namespace

TEST_F(BoardViewTest, A1AndH8ArePaintedInColorBlack) {
    EXPECT_TRUE(isPlain(square(0), Black));
    EXPECT_TRUE(isPlain(square(63), Black));
    EXPECT_TRUE(isPlain(square(7), White));
    EXPECT_TRUE(isPlain(square(8), White));
}

TEST_F(BoardViewTest, TheScreenShowsThePicture) {
    pieces[4] = 1;
    setUp();
    EXPECT_EQ(screen(), view.picture());
}

TEST_F(BoardViewTest, TheWidgetIsEightSquaresAndFourPixels) {
    EXPECT_EQ(view.size(), QSize(8 * 54 + 4, 8 * 54 + 4));
    setUp(24);
    EXPECT_EQ(view.size(), QSize(8 * 24 + 4, 8 * 24 + 4));
}

TEST_F(BoardViewTest, APieceIsTheListsImageOverTheSquareColour) {
    pieces[0] = -2;
    setUp(58);
    QImage expected(device(58), device(58), QImage::Format_RGB32);
    expected.fill(Black);
    QPainter(&expected).drawImage(device(2), device(2), imlPieces.images(2, ratio())[8]);
    EXPECT_EQ(square(0), expected);
    EXPECT_FALSE(isPlain(square(0), Black));
}

TEST_F(BoardViewTest, TheCornerOfAPieceSquareTakesTheColourOfTheSquare) {
    pieces[0] = pieces[1] = 4;
    setUp();
    EXPECT_EQ(square(0).pixel(1, 1), Black);
    EXPECT_EQ(square(1).pixel(1, 1), White);
}

TEST_F(BoardViewTest, BareLeavesThePieceOut) {
    pieces[0] = 1;
    view.zDrawSquare(0, 0, 1);
    EXPECT_TRUE(isPlain(square(0), Black));
}

TEST_F(BoardViewTest, ACodeOfNoPiecePaintsAnEmptySquare) {
    pieces[0] = 127;
    view.zDrawSquare(0);
    EXPECT_TRUE(isPlain(square(0), Black));
}

TEST_F(BoardViewTest, OnlyTheDrawnSquaresPixelsChange) {
    const QImage before = view.picture().copy();
    pieces[27] = -5;
    view.zDrawSquare(27);
    for (int other = 0; other < 64; ++other) {
        EXPECT_EQ(square(other) == cut(before, other), other != 27) << other;
    }
}

TEST_F(BoardViewTest, OnlyTheDrawnSquareIsRepaintedOnTheScreen) {
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    QCoreApplication::processEvents();
    PaintWatch watch;
    view.installEventFilter(&watch);
    view.zDrawSquare(0);
    view.zDrawSquare(63, -1);
    QCoreApplication::processEvents();
    const int border = BoardView::BorderPixels;
    EXPECT_EQ(watch.painted, QRegion(border, 7 * 54 + border, 54, 54) + QRegion(7 * 54 + border, border, 54, 54));
}

TEST_F(BoardViewTest, ASquareThatIsNoSquareFaultsAndPaintsNothing) {
    const QImage before = view.picture().copy();
    for (const std::int16_t bad : std::initializer_list<std::int16_t>{-1, 64, -32768, 32767}) {
        EXPECT_THROW(view.zDrawSquare(bad, -1), Fault) << bad;
        EXPECT_THROW(view.zYankPiece(bad), Fault) << bad;
    }
    EXPECT_EQ(view.picture(), before);
}

TEST_F(BoardViewTest, ModeMinus1FramesInColorMoveAndAnyOtherInColorPreMove) {
    for (const auto& [mode, color] : {std::pair{-1, Move}, {1, PreMove}, {2, PreMove}, {-2, PreMove}}) {
        view.zDrawSquare(0, static_cast<std::int16_t>(mode));
        EXPECT_EQ(square(0).pixel(0, 0), color) << mode;
    }
}

TEST_F(BoardViewTest, AFrameIs1PixelAt24And4At76) {
    setUp(24);
    view.zDrawSquare(0, -1);
    EXPECT_EQ(frameAtLeft(square(0), Move), device(1));
    setUp(76);
    view.zDrawSquare(0, -1);
    EXPECT_EQ(frameAtLeft(square(0), Move), device(4));
}

TEST_F(BoardViewTest, AFrameIsAsThickOnAllFourSidesAndLeavesTheInsideAlone) {
    view.zDrawSquare(9, -1);
    QImage expected(device(54), device(54), QImage::Format_RGB32);
    expected.fill(Move);
    QPainter(&expected).fillRect(device(3), device(3), device(48), device(48), QColor::fromRgb(Black));
    EXPECT_EQ(square(9), expected);
}

TEST_F(BoardViewTest, AFrameLeavesThePieceVisible) {
    pieces[9] = 2;
    view.zDrawSquare(9, -1);
    EXPECT_EQ(square(9).pixel(0, 0), Move);
    const QRect inside(device(6), device(6), device(42), device(42));
    const QImage framed = square(9).copy(inside);
    view.zDrawSquare(9);
    EXPECT_EQ(square(9).copy(inside), framed);
    EXPECT_FALSE(isPlain(framed, Black));
}

TEST_F(BoardViewTest, APlainRepaintTakesTheFrameAway) {
    const QImage before = view.picture().copy();
    view.zDrawSquare(9, 1);
    view.zDrawSquare(9, 0);
    EXPECT_EQ(view.picture(), before);
}

TEST_F(BoardViewTest, AFlipMovesThePicturesToTheOppositeSquares) {
    pieces[0] = 3;
    pieces[60] = -1;
    setUp();
    const QImage upright = view.picture().copy();
    setUp(54, 0, true);
    for (int display = 0; display < 64; ++display) EXPECT_EQ(square(63 - display), cut(upright, display)) << display;
}

TEST_F(BoardViewTest, OnAFlippedBoardASquareIsDrawnWhereItShows) {
    setUp(54, 0, true);
    view.zDrawSquare(0, -1);
    EXPECT_EQ(square(63).pixel(0, 0), Move);
    EXPECT_TRUE(isPlain(square(0), Black));
}

TEST_F(BoardViewTest, AnImageLargerThanItsSquareIsCutAtItsEdge) {
    // The artwork is clear at its edge, so a full image takes its place for the test.
    QImage& rook = const_cast<PieceImages&>(imlPieces.images(25, ratio()))[9];
    const QImage artwork = rook;
    rook.fill(Qt::red);
    setUp(24, 2);
    ASSERT_EQ(view.geometry().ImagePixels, 25);
    const QImage before = view.picture().copy();
    pieces[27] = -3;
    view.zDrawSquare(27);
    rook = artwork;
    for (int other = 0; other < 64; ++other) EXPECT_EQ(square(other) == cut(before, other), other != 27) << other;
    EXPECT_TRUE(isPlain(square(27), qRgb(255, 0, 0)));
}

TEST_F(BoardViewTest, AnotherSetShowsItsOwnImages) {
    pieces[0] = 5;
    setUp(54, 0);
    const QImage bookup = square(0);
    setUp(54, 2);
    EXPECT_EQ(view.geometry().PieceList, 18);
    EXPECT_NE(square(0), bookup);
}

TEST_F(BoardViewTest, ASetupPaintsEverySquareInTheColoursOfNowAndWithoutHighlights) {
    view.zDrawSquare(9, -1);
    modChess.ColorBlack = 0;
    setUp();
    EXPECT_TRUE(isPlain(square(9), 0xFF000000));
    EXPECT_TRUE(isPlain(square(0), 0xFF000000));
}

TEST_F(BoardViewTest, ATargetIsPaintedInsteadOfTheBoard) {
    const QImage before = view.picture().copy();
    QImage target = before.copy();
    view.zDrawSquare(0, -1, 0, &target);
    EXPECT_EQ(view.picture(), before);
    EXPECT_EQ(target.pixel(0, target.height() - 1), Move);
}

TEST_F(BoardViewTest, ABoardThatWasNeverSetUpTakesAllCallsAndPaintsNothing) {
    BoardView bare([](int) { return std::int16_t{0}; });
    bare.zDrawSquare(3, -1);
    bare.zYankPiece(3);
    bare.zMovePiece(10, 10, 255);
    bare.persist();
    EXPECT_TRUE(bare.picture().isNull());
    EXPECT_FALSE(bare.grab().isNull());
}

TEST_F(BoardViewTest, GetSqrBeepsBesideTheBoardAndOnlyThere) {
    int beeps = 0;
    view.beep = [&] { ++beeps; };
    EXPECT_EQ(view.zGetSqr(10, 10), 56);
    EXPECT_EQ(beeps, 0);
    EXPECT_EQ(view.zGetSqr(-1, 10), 64);
    EXPECT_EQ(view.zGetSqr(10, 8 * 54), 64);
    EXPECT_EQ(beeps, 2);
}

TEST_F(BoardViewTest, TheBackgroundOfASetIsWhatItsCornerShows) {
    EXPECT_EQ(view.zGetSquareBackGroundColor(), PieceSets::MaskColor);
}

TEST_F(BoardViewTest, ThePointerTellsWhetherAPieceMayBeLifted) {
    view.showPointer(-1);
    const QImage may = view.cursor().pixmap().toImage();
    view.showPointer(1);
    const QImage pre = view.cursor().pixmap().toImage();
    EXPECT_FALSE(may.isNull());
    EXPECT_NE(may, pre);
    EXPECT_EQ(view.cursor().hotSpot(), QPoint(9, 2)) << "the tip of its finger";
    view.showPointer(0);
    EXPECT_EQ(view.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(BoardViewTest, AssistiveToolsReadThePositionOfTheMoment) {
    QAccessibleInterface* board = QAccessible::queryAccessibleInterface(&view);
    ASSERT_NE(board, nullptr);
    pieces[4] = 1;
    EXPECT_EQ(board->text(QAccessible::Description), QStringLiteral("White: king e1; Black: none"));
    EXPECT_EQ(board->text(QAccessible::Name), QStringLiteral("Chess board"));
}
