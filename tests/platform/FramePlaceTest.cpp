// A window goes where the corner of its frame is to be. What a frame adds is tested under a window manager.
#include "platform/FramePlace.h"

#include <QCoreApplication>
#include <QDialog>
#include <QLabel>
#include <QVBoxLayout>
#include <QWindow>

#include <gtest/gtest.h>

namespace {

// A layout that needs more than the dialog has on its way to the screen.
class Outgrown : public QDialog {
public:
    Outgrown() {
        auto* label = new QLabel(this);
        label->setMinimumSize(400, 300);
        (new QVBoxLayout(this))->addWidget(label);
        resize(50, 50);
    }
};

// Contents that turn out to need more height once they are told how narrow they are, as they show.
class Wrapping : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void resizeEvent(QResizeEvent*) override {
        if (width() < 100) setMinimumHeight(300);
    }
};

class Narrow : public QDialog {
public:
    Narrow() {
        (new QVBoxLayout(this))->addWidget(new Wrapping(this));
        resize(50, 50);
    }

    int toldHeight = 0; // pixels, which the window system is told of; what follows is a resize of a window that shows

protected:
    void showEvent(QShowEvent*) override { toldHeight = windowHandle()->height(); }
};

// As the window system has it.
QPoint corner(const QWidget& window) {
    QCoreApplication::processEvents();
    return window.windowHandle()->framePosition();
}

} // namespace

TEST(FramePlace, ADialogShowsAtThePlaceGivenBefore) {
    Outgrown dialog;
    placeFrame(dialog, {70, 90});
    dialog.show();
    EXPECT_EQ(corner(dialog), QPoint(70, 90));
    EXPECT_GE(dialog.width(), 400);
}

TEST(FramePlace, WhatTheLayoutWantsAsTheDialogShowsIsToldWithThePlace) {
    Narrow dialog;
    placeFrame(dialog, {70, 90});
    dialog.show();
    EXPECT_EQ(corner(dialog), QPoint(70, 90));
    EXPECT_GE(dialog.toldHeight, 300);
    EXPECT_EQ(dialog.height(), dialog.toldHeight);
}

TEST(FramePlace, TheLatestPlaceCounts) {
    Outgrown dialog;
    placeFrame(dialog, {70, 90});
    placeFrame(dialog, {10, 20});
    dialog.show();
    EXPECT_EQ(corner(dialog), QPoint(10, 20));
}

TEST(FramePlace, AWindowThatShowsMovesAtOnce) {
    Outgrown dialog;
    dialog.show();
    placeFrame(dialog, {30, 40});
    EXPECT_EQ(corner(dialog), QPoint(30, 40));
}

TEST(FramePlace, APlaceCountsForOneShowing) {
    Outgrown dialog;
    placeFrame(dialog, {70, 90});
    dialog.show();
    dialog.move(200, 210);
    dialog.hide();
    dialog.show();
    EXPECT_EQ(corner(dialog), QPoint(200, 210)) << "moved by the user since";
}
