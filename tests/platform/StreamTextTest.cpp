// Bytes of the stream as text on the screen, and back.
#include "platform/StreamText.h"

#include <gtest/gtest.h>

TEST(StreamText, EveryByteIsOneCharacterAndComesBack) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    const QString shown = shownText(all);
    ASSERT_EQ(shown.size(), 256);
    for (int byte = 0; byte < 256; ++byte) EXPECT_EQ(shown[byte].unicode(), byte);
    EXPECT_EQ(bytesOf(shown), all);
}

TEST(StreamText, ANulByteEndsNothing) { EXPECT_EQ(shownText(std::string_view("a\0b", 3)).size(), 3); }

TEST(StreamText, ALineBreakInABoxOfOneLineIsABlank) {
    EXPECT_EQ(lineOf(QStringLiteral("a\nb\rc \u2654")), "a b c ?");
    EXPECT_EQ(lineOf(QStringLiteral("a\r\nb")), "a  b");
}

TEST(StreamText, WhatLatin1DoesNotHoldBecomesAQuestionMark) {
    EXPECT_EQ(bytesOf(QStringLiteral("J\u00FCrgen \u2654")), "J\xFCrgen ?");
}
