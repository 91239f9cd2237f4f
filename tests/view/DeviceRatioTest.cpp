// The board on screens of more than one device pixel to the pixel. The window tests run once at the scale of every day
// and in part once more with QT_SCALE_FACTOR=2; the second screen has two device pixels to the pixel by itself.
#include "view/BoardFixture.h"

#include "platform/WaitUntil.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QTest>
#include <QWindow>

namespace {

constexpr std::int16_t B2 = 9;

class DeviceRatioTest : public BoardFixture {
protected:
    // Shows the board on a screen and waits until it is painted there.
    void showOn(QScreen* screen) {
        view.winId(); // makes the window
        view.windowHandle()->setScreen(screen);
        view.move(screen->geometry().topLeft());
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
        ASSERT_TRUE(waitUntil([&] { return ratio() == screen->devicePixelRatio(); }));
        view.repaint();
    }
    // The pixel of the screen at a point of the squares.
    QRgb seenAt(int x, int y) { return screen().pixel(device(x), device(y)); }
};

} // namespace

TEST_F(DeviceRatioTest, TheScaleIsTheOneThatWasAskedFor) {
    const QByteArray asked = qgetenv("QT_SCALE_FACTOR");
    EXPECT_EQ(ratio(), asked.isEmpty() ? 1 : asked.toDouble());
}

TEST_F(DeviceRatioTest, ThePictureHasAPixelForEachDevicePixelAndTheScreenShowsItAsItIs) {
    pieces[B2] = 6;
    setUp();
    EXPECT_EQ(view.picture().size(), QSize(device(8 * 54), device(8 * 54)));
    EXPECT_EQ(screen(), view.picture());
}

TEST_F(DeviceRatioTest, PiecesAreDrawnInDevicePixelsAndNotStretched) {
    pieces[B2] = 6;
    setUp();
    const QImage& pawn = imlPieces.images(view.geometry().PieceList, ratio())[6];
    EXPECT_EQ(pawn.width(), device(54));
    QImage expected(device(54), device(54), QImage::Format_RGB32);
    expected.fill(Black);
    QPainter(&expected).drawImage(0, 0, pawn);
    EXPECT_EQ(cut(screen(), B2), expected);
}

TEST_F(DeviceRatioTest, TheMeasuresOfTheBoardStayInPixels) {
    EXPECT_EQ(view.size(), QSize(8 * 54 + 4, 8 * 54 + 4));
    EXPECT_EQ(view.zGetSqr(8 * 54 - 1, 8 * 54 - 1), 7);
    EXPECT_EQ(view.zGetSqr(54, 7 * 54 - 1), B2);
    float x = 0;
    float y = 0;
    view.geometry().zGetXY(B2, x, y);
    EXPECT_EQ(x, 54);
    EXPECT_EQ(y, 6 * 54);
}

TEST_F(DeviceRatioTest, AMarkLiesOnItsSquareAndOnNoOther) {
    view.zDrawSquare(B2, -1);
    for (const QPoint& corner : {QPoint(54, 6 * 54), QPoint(107, 6 * 54), QPoint(54, 7 * 54 - 1), QPoint(107, 377)}) {
        EXPECT_EQ(seenAt(corner.x(), corner.y()), Move) << corner.x() << "," << corner.y();
    }
    for (const QPoint& beside : {QPoint(53, 350), QPoint(108, 350), QPoint(80, 6 * 54 - 1), QPoint(80, 7 * 54)}) {
        EXPECT_EQ(seenAt(beside.x(), beside.y()), White) << beside.x() << "," << beside.y();
    }
    EXPECT_EQ(seenAt(54 + 3, 6 * 54 + 3), Black) << "the frame is three pixels thick";
}

TEST_F(DeviceRatioTest, ADraggedPieceHangsByItsMiddleOnThePoint) {
    pieces[B2] = 6;
    setUp();
    view.zYankPiece(B2);
    view.zMovePiece(3 * 54 + 27, 4 * 54 + 27, 255);
    const QImage shown = cut(screen(), 27);
    pieces[27] = 6;
    view.zDrawSquare(27);
    EXPECT_EQ(shown, square(27));
}

TEST_F(DeviceRatioTest, ABoardThatGoesToASharperScreenIsDrawnAnewForIt) {
    const QList<QScreen*> screens = QGuiApplication::screens();
    ASSERT_EQ(screens.size(), 2);
    ASSERT_EQ(screens[1]->devicePixelRatio(), 2 * screens[0]->devicePixelRatio());
    pieces[B2] = 6;
    setUp();
    view.zDrawSquare(B2, -1);
    showOn(screens[0]);
    showOn(screens[1]);
    EXPECT_EQ(view.picture().width(), device(8 * 54));
    EXPECT_EQ(square(B2).pixel(0, 0), Move) << "the mark came along";
    QImage fresh = square(B2);
    view.zDrawSquare(B2, -1);
    EXPECT_EQ(square(B2), fresh);
}

TEST_F(DeviceRatioTest, OnASharperScreenTheLiftedPieceIsStillOffItsSquareAndALandedOneIsOnIt) {
    const QList<QScreen*> screens = QGuiApplication::screens();
    pieces[B2] = 6;
    setUp();
    showOn(screens[0]);
    view.zYankPiece(B2);
    view.zMovePiece(27, 27, 128);
    showOn(screens[1]);
    EXPECT_TRUE(isPlain(square(B2), Black));
    view.zMovePiece(54 + 27, 6 * 54 + 27, 255);
    view.persist();
    showOn(screens[0]);
    EXPECT_FALSE(isPlain(square(B2), Black)) << "put back where it came from";
}
