// The arrows of the buttons that walk through a game.
#include "board/StepButton.h"

#include <QImage>

#include <gtest/gtest.h>

namespace {

// Pixels in the colour of captions, in a half of the button.
struct Painted {
    int left = 0;
    int right = 0;
};

Painted painted(int step, const QColor& paper, const QColor& captions) {
    StepButton button(nullptr);
    button.step = step;
    button.setAutoRaise(true);
    button.resize(17, 20);
    QPalette colors;
    colors.setColor(QPalette::Window, paper);
    colors.setColor(QPalette::Button, paper);
    colors.setColor(QPalette::ButtonText, captions);
    button.setPalette(colors);
    const QImage picture = button.grab().toImage();
    Painted found;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y) == captions) ++(2 * x < picture.width() ? found.left : found.right);
        }
    }
    return found;
}

TEST(StepButton, TheArrowHasTheColourOfCaptionsOnALightAndOnADarkDesktop) {
    for (const int step : {-2, -1, 1, 2}) {
        EXPECT_GT(painted(step, Qt::white, Qt::black).left, 5) << step;
        EXPECT_GT(painted(step, Qt::black, Qt::white).left, 5) << step;
    }
}

TEST(StepButton, AnArrowIsWidestWhereItComesFrom) {
    const Painted forward = painted(1, Qt::white, Qt::black);
    const Painted back = painted(-1, Qt::white, Qt::black);
    EXPECT_GT(forward.left, forward.right);
    EXPECT_LT(back.left, back.right);
}

TEST(StepButton, TheWayToTheEndHasABarAtItsTip) {
    EXPECT_GT(painted(2, Qt::white, Qt::black).right, painted(1, Qt::white, Qt::black).right);
    EXPECT_GT(painted(-2, Qt::white, Qt::black).left, painted(-1, Qt::white, Qt::black).left);
}

TEST(StepButton, TheMiddleOneHasNoPicture) {
    const Painted stay = painted(0, Qt::white, Qt::black);
    EXPECT_EQ(stay.left + stay.right, 0);
}

} // namespace
