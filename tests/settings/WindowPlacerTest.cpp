// What is saved of a window's place, and that it puts the window back there.
#include "settings/WindowPlacer.h"

#include "platform/WaitUntil.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

// A window on the screen, with the frame that the display gives it.
struct WindowPlacerTest : testing::Test {
    QWidget window;
    WindowPlacer placer{&window};

    WindowPlacerTest() {
        window.move(40, 30);
        window.resize(300, 200);
        window.show();
        runFor(20);
    }

    // The display gives the window another size some time after it is asked.
    bool fillsScreen() {
        return waitUntil([this] { return window.size() != QSize(300, 200); });
    }
    bool isNormalAgain() {
        return waitUntil([this] { return window.size() == QSize(300, 200); });
    }

    static constexpr WindowPlace Shown{600, 450, 4500, 3000};
};

} // namespace

TEST_F(WindowPlacerTest, APlaceIsTheFramesPositionAndTheInnerSizeInTwips) {
    ASSERT_NE(window.geometry().topLeft(), window.pos()) << "there is no frame to tell apart";
    EXPECT_EQ(placer.place(), Shown);
}

TEST_F(WindowPlacerTest, WhatWasSavedPutsAnotherWindowThere) {
    QWidget next;
    WindowPlacer(&next).moveTo(placer.place());
    next.show();
    EXPECT_EQ(next.frameGeometry(), window.frameGeometry());
    EXPECT_EQ(next.geometry(), window.geometry());
}

TEST_F(WindowPlacerTest, OnceItHasShownAWindowStaysWhereItIsMoved) {
    QWidget next;
    WindowPlacer placing(&next);
    placing.moveTo(Shown);
    next.show();
    runFor(20);
    next.move(70, 60);
    next.hide();
    next.show();
    runFor(20);
    EXPECT_EQ(next.pos(), QPoint(70, 60));
}

TEST_F(WindowPlacerTest, AMaximisedWindowGivesThePlaceThatItGoesBackTo) {
    window.showMaximized();
    EXPECT_EQ(placer.place(), Shown);
    ASSERT_TRUE(fillsScreen());
    EXPECT_EQ(placer.place(), Shown);
    window.showNormal();
    ASSERT_TRUE(isNormalAgain());
    EXPECT_EQ(placer.place(), Shown);
}

TEST_F(WindowPlacerTest, AFullScreenWindowHasNoFrameAndStillGivesThePlaceThatItGoesBackTo) {
    window.showFullScreen();
    ASSERT_TRUE(fillsScreen());
    ASSERT_EQ(window.geometry().topLeft(), window.pos());
    EXPECT_EQ(placer.place(), Shown);
}

TEST_F(WindowPlacerTest, AMaximisedWindowMovesItsPlaceOnlyWhenItIsNormalAgain) {
    window.showMaximized();
    ASSERT_TRUE(fillsScreen());
    window.showNormal();
    ASSERT_TRUE(isNormalAgain());
    window.move(70, 60);
    runFor(20);
    window.showMaximized();
    ASSERT_TRUE(fillsScreen());
    EXPECT_EQ(placer.place(), (WindowPlace{1050, 900, 4500, 3000}));
}

TEST_F(WindowPlacerTest, AMinimisedWindowIsSetBackToWhatItWas) {
    window.showMinimized();
    placer.unminimise();
    EXPECT_FALSE(window.isMinimized());
    EXPECT_EQ(placer.place(), Shown);
    window.showMaximized();
    ASSERT_TRUE(fillsScreen());
    window.setWindowState(window.windowState() | Qt::WindowMinimized);
    placer.unminimise();
    EXPECT_TRUE(window.isMaximized());
}

TEST_F(WindowPlacerTest, TheScreenIsMeasuredInTwips) {
    const QSize pixels = window.screen()->geometry().size();
    EXPECT_EQ(screenOf(window).Width, float(pixels.width() * 15));
    EXPECT_EQ(screenOf(window).Height, float(pixels.height() * 15));
}

TEST_F(WindowPlacerTest, NoMeasureIsBeyondWhatCanBeReadAgain) {
    window.move(2184, 2300);
    window.resize(2184, 2300);
    runFor(20);
    EXPECT_EQ(placer.place(), (WindowPlace{32760, 32767, 32760, 32767}));
    window.move(-2300, -2400);
    window.resize(2300, 2184);
    runFor(20);
    EXPECT_EQ(placer.place(), (WindowPlace{-32768, -32768, 32767, 32760}));
}

TEST(Screens, APlaceOnAnyOfThemIsTestedAgainstAllOfThem) {
    const QRect last = QGuiApplication::screens().last()->geometry();
    ASSERT_GT(last.left(), 0) << "it is beside the first";
    const Extent all{float((last.right() + 1) * 15), float((last.bottom() + 1) * 15)};
    const float left = float(last.left() * 15);
    for (const WindowPlace& on :
         {WindowPlace{0, 0}, {left - 1, 300}, {left + 300, 300}, {all.Width - 1, all.Height - 1}}) {
        EXPECT_EQ(screensFor(on).Width, all.Width) << on.Left;
        EXPECT_EQ(screensFor(on).Height, all.Height) << on.Left;
    }
    EXPECT_EQ(screensFor({-300, -300}).Width, all.Width) << "what is above or left of them is for the limit";
    for (const WindowPlace& off : {WindowPlace{all.Width, 0}, {0, all.Height}, {-300, all.Height}}) {
        EXPECT_EQ(screensFor(off).Width, 0) << off.Left;
        EXPECT_EQ(screensFor(off).Height, 0) << off.Left;
    }
}
