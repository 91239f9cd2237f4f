// The line to type commands in.
#include "platform/TypingLine.h"

#include "common/TypingKey.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

TEST(TypingLine, AMaskedTextShowsAsStars) {
    TypingLine line;
    line.setLine("abc");
    EXPECT_EQ(line.displayText(), QStringLiteral("abc"));
    line.setEchoMode(QLineEdit::Password);
    EXPECT_EQ(line.displayText(), QStringLiteral("***"));
    EXPECT_EQ(line.line(), "abc");
}

TEST(TypingLine, TheColoursAreTheOnesGiven) {
    TypingLine line;
    line.setColors(0x0080FF, 0x102030);
    EXPECT_EQ(line.palette().color(QPalette::Base), QColor(0xFF, 0x80, 0x00));
    EXPECT_EQ(line.palette().color(QPalette::Text), QColor(0x30, 0x20, 0x10));
}

TEST(TypingLine, SpecialKeysComeWithTheirCodesAndShift) {
    TypingLine line;
    std::vector<std::pair<int, bool>> keys;
    line.keyDown = [&](int code, bool shift) {
        keys.emplace_back(code, shift);
        return true;
    };
    for (const Qt::Key key :
         {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Up, Qt::Key_Down, Qt::Key_F5, Qt::Key_F7, Qt::Key_F8, Qt::Key_F9}) {
        QTest::keyClick(&line, key);
    }
    QTest::keyClick(&line, Qt::Key_F9, Qt::ShiftModifier);
    EXPECT_EQ(keys, (std::vector<std::pair<int, bool>>{{KeyEnter, false},
                                                       {KeyEnter, false},
                                                       {KeyUp, false},
                                                       {KeyDown, false},
                                                       {KeyF5, false},
                                                       {KeyF7, false},
                                                       {KeyF8, false},
                                                       {KeyF9, false},
                                                       {KeyF9, true}}));
}

TEST(TypingLine, OtherKeysAreTheLinesOwn) {
    TypingLine line;
    int asked = 0;
    line.keyDown = [&](int, bool) { return ++asked > 0; };
    for (const Qt::Key key : {Qt::Key_F4, Qt::Key_F10, Qt::Key_Escape}) QTest::keyClick(&line, key);
    QTest::keyClicks(&line, QStringLiteral("who"));
    QTest::keyClick(&line, Qt::Key_Backspace);
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(line.line(), "wh");
}

TEST(TypingLine, AnyByteGoesInAndComesOut) {
    TypingLine line;
    line.setLine("J\xFCrgen \xFF");
    EXPECT_EQ(line.line(), "J\xFCrgen \xFF");
    EXPECT_EQ(line.cursorPosition(), 8);
    line.setText(QStringLiteral("\u2654"));
    EXPECT_EQ(line.line(), "?");
}

TEST(TypingLine, APastedLineBreakIsTheBlankAsWhichItShows) {
    QApplication::clipboard()->setText(QStringLiteral("finger a\nresign"));
    TypingLine line;
    line.paste();
    EXPECT_EQ(line.displayText(), QStringLiteral("finger a resign"));
    EXPECT_EQ(line.line(), "finger a resign");
}
