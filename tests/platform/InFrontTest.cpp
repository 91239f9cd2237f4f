// A window that is brought before the user.
#include "platform/InFront.h"

#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

TEST(InFront, AHiddenWindowShowsAndHasTheKeyboard) {
    QWidget first;
    first.show();
    QWidget second;
    bringInFront(second);
    EXPECT_TRUE(second.isVisible());
    EXPECT_TRUE(QTest::qWaitForWindowActive(&second));
    bringInFront(first);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&first));
}

TEST(InFront, AMinimisedWindowGoesBackToWhatItWas) {
    QWidget window;
    window.showMaximized();
    window.showMinimized();
    ASSERT_TRUE(window.isMinimized());
    bringInFront(window);
    EXPECT_FALSE(window.isMinimized());
    EXPECT_TRUE(window.isMaximized());
}
