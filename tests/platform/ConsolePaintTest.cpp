// What the console paints as text arrives: as much as has changed, and in the end what it would paint anew.
#include "platform/Console.h"

#include <QPaintEvent>
#include <QScreen>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

#include <random>

namespace {

class ConsolePaint : public testing::Test, protected QObject {
protected:
    ConsolePaint() {
        console.resize(500, 300);
        console.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&console));
        settle();
        console.viewport()->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) painted += static_cast<QPaintEvent*>(event)->region();
        return false;
    }

    // The display has been told all.
    static void settle() {
        for (int turn = 0; turn < 5; ++turn) QCoreApplication::processEvents();
    }
    void say(const std::string& text) {
        console.insert(text);
        console.flush();
        settle();
    }
    // What the display holds against what would be painted now.
    bool isPaintedRight() {
        settle();
        const QImage display = console.screen()->grabWindow(console.winId()).toImage();
        const QImage fresh = console.grab().toImage();
        return display.convertToFormat(QImage::Format_RGB32) == fresh.convertToFormat(QImage::Format_RGB32);
    }

    Console console;
    QRegion painted; // of the viewport, since it was emptied
};

} // namespace

TEST_F(ConsolePaint, ALineBelowOthersPaintsNothingAboveIt) {
    say("first\r\nsecond\r\nthird\r\n");
    painted = {};
    say("fourth\r\n");
    ASSERT_FALSE(painted.isEmpty());
    EXPECT_GE(painted.boundingRect().top(), 3 * console.fontMetrics().height());
    EXPECT_TRUE(isPaintedRight());
}

TEST_F(ConsolePaint, TheRestOfALineIsPaintedWithItsBeginning) {
    say("first\r\nsecond, ");
    say("and its rest");
    EXPECT_TRUE(isPaintedRight());
}

TEST_F(ConsolePaint, TextAtTheEndOfAFullPageMovesAllAbove) {
    for (int line = 0; line < 60; ++line) {
        say("line " + std::to_string(line) + "\r\n");
        ASSERT_TRUE(isPaintedRight()) << line;
    }
}

TEST_F(ConsolePaint, WhateverComesAndWhateverTheUserDoesTheDisplayHoldsTheText) {
    std::mt19937 random(11);
    const auto upTo = [&](int most) { return std::uniform_int_distribution(0, most)(random); };
    for (int step = 0; step < 300; ++step) {
        switch (upTo(9)) {
        case 0:
            console.verticalScrollBar()->setValue(upTo(console.verticalScrollBar()->maximum()));
            break;
        case 1:
            console.resize(300 + 40 * upTo(8), 200 + 30 * upTo(6));
            break;
        case 2: {
            QTextCursor cursor = console.textCursor();
            cursor.setPosition(upTo(console.document()->characterCount() - 1));
            cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor, upTo(30));
            console.setTextCursor(cursor);
            break;
        }
        case 3:
            console.moveToEnd();
            break;
        default:
            console.setColor(upTo(0xffffff));
            for (int lines = upTo(3); lines >= 0; --lines) {
                console.insert(std::string(static_cast<std::size_t>(upTo(200)), static_cast<char>('a' + upTo(25))) +
                               (upTo(3) > 0 ? "\r\n" : ""));
            }
            console.flush();
        }
        ASSERT_TRUE(isPaintedRight()) << "step " << step;
    }
}
