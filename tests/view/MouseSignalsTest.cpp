// What the board announces of the mouse.
#include "view/BoardFixture.h"

#include <QSignalSpy>
#include <QTest>

namespace {

class MouseSignalsTest : public BoardFixture {
protected:
    // A point of the squares as a point of the widget.
    static QPoint at(int x, int y) { return {x + BoardView::BorderPixels, y + BoardView::BorderPixels}; }
    static void expectOne(QSignalSpy& spy, int button, float x, float y) {
        ASSERT_EQ(spy.count(), 1);
        const QList<QVariant> told = spy.takeFirst();
        EXPECT_EQ(told[0].toInt(), button);
        EXPECT_EQ(told[1].toFloat(), x);
        EXPECT_EQ(told[2].toFloat(), y);
    }
};

} // namespace

TEST_F(MouseSignalsTest, APressTellsItsButtonAndItsPixel) {
    QSignalSpy down(&view, &BoardView::mouseDown);
    QTest::mousePress(&view, Qt::LeftButton, {}, at(0, 0));
    expectOne(down, 1, 0, 0);
    QTest::mousePress(&view, Qt::RightButton, {}, at(100, 300));
    expectOne(down, 2, 100, 300);
}

TEST_F(MouseSignalsTest, AReleaseTellsItsButtonEvenBesideTheBoard) {
    QSignalSpy up(&view, &BoardView::mouseUp);
    QTest::mouseRelease(&view, Qt::LeftButton, {}, at(30, 40));
    expectOne(up, 1, 30, 40);
    QTest::mouseRelease(&view, Qt::RightButton, {}, at(-20, 40));
    expectOne(up, 2, -20, 40);
}

TEST_F(MouseSignalsTest, AMoveTellsWithoutAnyButton) {
    QSignalSpy moved(&view, &BoardView::mouseMoved);
    QMouseEvent hover(QEvent::MouseMove, QPointF(at(5, 6)), QPointF(at(5, 6)), Qt::NoButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(&view, &hover);
    expectOne(moved, 0, 5, 6);
}

TEST_F(MouseSignalsTest, ADragIsFollowedBesideTheBoard) {
    QSignalSpy moved(&view, &BoardView::mouseMoved);
    QMouseEvent drag(QEvent::MouseMove, QPointF(-8, 12), QPointF(-8, 12), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&view, &drag);
    expectOne(moved, 1, -10, 10);
}

TEST_F(MouseSignalsTest, TheBorderAnnouncesNoPressAndNoHover) {
    QSignalSpy down(&view, &BoardView::mouseDown);
    QSignalSpy moved(&view, &BoardView::mouseMoved);
    for (const QPoint& edge : {QPoint(1, 50), QPoint(50, 1), at(8 * 54, 50), at(50, 8 * 54)}) {
        QTest::mousePress(&view, Qt::LeftButton, {}, edge);
        QMouseEvent hover(QEvent::MouseMove, QPointF(edge), QPointF(edge), Qt::NoButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(&view, &hover);
    }
    EXPECT_EQ(down.count(), 0);
    EXPECT_EQ(moved.count(), 0);
}

TEST_F(MouseSignalsTest, ADoubleClickIsTwoPresses) {
    QSignalSpy down(&view, &BoardView::mouseDown);
    QTest::mousePress(&view, Qt::LeftButton, {}, at(10, 10));
    expectOne(down, 1, 10, 10);
    const QPointF point = at(10, 10);
    QMouseEvent second(QEvent::MouseButtonDblClick, point, point, Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&view, &second);
    expectOne(down, 1, 10, 10);
}

TEST_F(MouseSignalsTest, AClickNeverTakesTheKeyboard) { EXPECT_EQ(view.focusPolicy(), Qt::TabFocus); }
