// The line to type commands in.
#include "platform/TypingLine.h"

#include <gtest/gtest.h>

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
