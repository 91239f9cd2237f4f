// What the light scroll bar repaints, and that nothing old is left where it does not.
#include "platform/LightScrollBar.h"

#include "WaitUntil.h"

#include <QPaintEvent>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

namespace {

struct WatchedBar : LightScrollBar {
    QRegion painted;

    void paintEvent(QPaintEvent* event) override {
        painted += event->region();
        LightScrollBar::paintEvent(event);
    }
};

template <typename Bar>
void setUp(Bar& bar) {
    bar.setOrientation(Qt::Vertical);
    bar.setRange(0, 200);
    bar.setPageStep(20);
    bar.resize(15, 400);
    bar.setValue(50);
}

// What has been painted so far; a grab of the widget itself would paint it anew.
QImage onScreen(const QWidget& bar) { return bar.screen()->grabWindow(bar.winId()).toImage(); }

struct LightScrollBarTest : testing::Test {
    WatchedBar bar;

    LightScrollBarTest() {
        setUp(bar);
        bar.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&bar));
        runFor(30);
        bar.painted = {};
    }
};

} // namespace

TEST_F(LightScrollBarTest, AStepRepaintsTheSliderAlone) {
    bar.setValue(52);
    runFor(30);
    EXPECT_FALSE(bar.painted.isEmpty());
    EXPECT_LT(bar.painted.boundingRect().height(), 100);
}

TEST_F(LightScrollBarTest, AMoveThatShowsNothingNewRepaintsNothing) {
    bar.setRange(0, 200'000);
    bar.setValue(50'000);
    runFor(30);
    bar.painted = {};
    bar.setValue(50'001);
    runFor(30);
    EXPECT_TRUE(bar.painted.isEmpty());
}

TEST_F(LightScrollBarTest, ReachingAnEndRepaintsTheArrowsToo) {
    bar.setValue(200);
    runFor(30);
    EXPECT_TRUE(bar.painted.contains(QPoint(5, 5)));
    EXPECT_TRUE(bar.painted.contains(QPoint(5, 395)));
}

TEST_F(LightScrollBarTest, GoingFromOneEndToTheOtherRepaintsTheArrowsToo) {
    bar.setValue(0);
    runFor(30);
    bar.painted = {};
    bar.setValue(200);
    runFor(30);
    EXPECT_TRUE(bar.painted.contains(QPoint(5, 5)));
    EXPECT_TRUE(bar.painted.contains(QPoint(5, 395)));
}

TEST_F(LightScrollBarTest, TheFirstRangeBringsTheArrows) {
    bar.setRange(0, 0);
    runFor(30);
    bar.painted = {};
    bar.setRange(0, 1);
    runFor(30);
    EXPECT_TRUE(bar.painted.contains(QPoint(5, 395)));
}

TEST_F(LightScrollBarTest, ALongTextThatGrowsByALineAndFollowsRepaintsNoTrack) {
    bar.setRange(0, 200'000);
    bar.setValue(200'000);
    runFor(30);
    bar.painted = {};
    bar.setRange(0, 200'001);
    bar.setValue(200'001);
    runFor(30);
    EXPECT_FALSE(bar.painted.contains(QPoint(5, 200)));
}

TEST_F(LightScrollBarTest, ANewRangeRepaintsTheSliderThatShrinks) {
    bar.setRange(0, 4000);
    runFor(30);
    EXPECT_FALSE(bar.painted.isEmpty());
    EXPECT_LT(bar.painted.boundingRect().height(), 200);
}

TEST_F(LightScrollBarTest, AfterManyStepsItLooksLikeABarThatIsPaintedWhole) {
    LightScrollBar other;
    setUp(other);
    other.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&other));
    for (const int value : {51, 53, 60, 130, 131, 200, 7, 90}) {
        bar.setValue(value);
        runFor(10);
    }
    other.setValue(90);
    bar.setRange(0, 300);
    other.setRange(0, 300);
    runFor(30);
    const QImage shown = onScreen(bar);
    ASSERT_FALSE(shown.isNull());
    EXPECT_EQ(shown, onScreen(other));
    bar.setValue(10);
    runFor(30);
    EXPECT_NE(onScreen(bar), shown);
}
