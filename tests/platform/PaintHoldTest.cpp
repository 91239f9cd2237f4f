// Painting around a pump: once behind it, and in time when the pump lasts.
#include "platform/PaintHold.h"

#include "WaitUntil.h"

#include <QElapsedTimer>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include <memory>

namespace {

struct PaintedWindow : QWidget {
    int paints = 0;

    void paintEvent(QPaintEvent*) override { ++paints; }
};

struct PaintHoldTest : testing::Test {
    PaintedWindow window;
    PaintHold hold{&window};

    PaintHoldTest() {
        window.resize(200, 200);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
        runFor(30);
        window.paints = 0;
    }
};

} // namespace

TEST_F(PaintHoldTest, WhatChangesBeforeAndBehindThePumpIsPaintedOnce) {
    window.update(0, 0, 10, 10);
    hold.pump();
    EXPECT_EQ(window.paints, 0);
    window.update(50, 50, 10, 10);
    runFor(30);
    EXPECT_EQ(window.paints, 1);
}

TEST_F(PaintHoldTest, OtherEventsRunInThePump) {
    bool ran = false;
    QMetaObject::invokeMethod(
        &window, [&] { ran = true; }, Qt::QueuedConnection);
    hold.pump();
    EXPECT_TRUE(ran);
}

TEST_F(PaintHoldTest, APumpThatLastsPaintsMeanwhile) {
    QMetaObject::invokeMethod(
        &window,
        [&] {
            window.update();
            runFor(100);
            EXPECT_GE(window.paints, 1);
        },
        Qt::QueuedConnection);
    hold.pump();
    EXPECT_GE(window.paints, 1);
}

TEST_F(PaintHoldTest, OnePumpAfterTheOtherStillPaintsWithinTheLimit) {
    QElapsedTimer clock;
    clock.start();
    while (window.paints == 0 && clock.elapsed() < 1000) {
        window.update();
        hold.pump();
    }
    EXPECT_EQ(window.paints, 1);
    EXPECT_LT(clock.elapsed(), 1000);
}

TEST_F(PaintHoldTest, WithoutAPumpPaintingIsAsEver) {
    window.update();
    EXPECT_TRUE(waitUntil([&] { return window.paints == 1; }, 1000));
}

TEST(PaintHold, TheWindowMayGoInThePump) {
    struct Owner : QWidget {
        PaintHold hold{this};
    };
    auto* window = new Owner;
    window->show();
    window->update();
    QMetaObject::invokeMethod(
        qApp, [window] { delete window; }, Qt::QueuedConnection);
    bool gone = false;
    QObject::connect(window, &QObject::destroyed, [&] { gone = true; });
    window->hold.pump();
    EXPECT_TRUE(gone);
    runFor(2 * PaintHold::LimitMs);
}
