// Columns count from 1.
#include "common/Text.h"

#include <gtest/gtest.h>

TEST(Text, MidCountsColumnsFromOne) {
    EXPECT_EQ(mid("abcdef", 1, 2), "ab");
    EXPECT_EQ(mid("abcdef", 3), "cdef");
    EXPECT_EQ(mid("abcdef", 5, 9), "ef");
    EXPECT_EQ(mid("abcdef", 7, 1), "");
    EXPECT_EQ(mid("abcdef", 0, 1), "");
    EXPECT_EQ(mid("abcdef", 2, 0), "");
    EXPECT_EQ(mid("abcdef", 6), "f");
}

TEST(Text, FindGivesTheColumnOrZero) {
    EXPECT_EQ(find(1, "abcabc", "c"), 3);
    EXPECT_EQ(find(4, "abcabc", "c"), 6);
    EXPECT_EQ(find(1, "abc", "x"), 0);
    EXPECT_EQ(find(3, "abc", "c"), 3);
    EXPECT_EQ(find(9, "abc", "a"), 0);
    EXPECT_EQ(find(0, "abc", "a"), 0);
}

TEST(Text, ContainsMindsTheCase) {
    EXPECT_TRUE(contains("login: ", "login:"));
    EXPECT_FALSE(contains("Login: ", "login:"));
}

TEST(Text, ALineEndingIsOneOfTwoCharactersOrBothInEitherOrder) {
    EXPECT_TRUE(isBreak('\r'));
    EXPECT_TRUE(isBreak('\n'));
    EXPECT_FALSE(isBreak('\0'));
    EXPECT_TRUE(areBreakPair('\r', '\n'));
    EXPECT_TRUE(areBreakPair('\n', '\r'));
    EXPECT_FALSE(areBreakPair('\n', '\n'));
    EXPECT_FALSE(areBreakPair('\0', '\n'));
    EXPECT_FALSE(areBreakPair('\r', 'a'));
}

TEST(Text, LowerTouchesOnlyTheLettersAToZ) { EXPECT_EQ(lower("@AbZ[\xC4"), "@abz[\xC4"); }

TEST(Text, Utf8OfALatin1CharacterIsThatCharacter) {
    EXPECT_EQ(fromUtf8("abc"), "abc");
    EXPECT_EQ(fromUtf8("\xC3\xA4x"), "\xE4x");
    EXPECT_EQ(fromUtf8("\xC2\xA0\xC3\xBF"), "\xA0\xFF");
}

TEST(Text, Utf8OfAnyOtherCharacterIsOneQuestionMark) {
    for (const char* character : {"\xC4\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xE2\x82\xAC", "\xEF\xBF\xBD",
                                  "\xF0\x9F\x98\x80", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_EQ(fromUtf8(character), "?") << character;
        EXPECT_EQ(fromUtf8(std::string(character) + "x"), "?x") << character;
    }
}

TEST(Text, BytesThatAreNoUtf8StandForThemselves) {
    for (const char* bytes : {"\xE4", "\xE4x", "\xC1\x81", "\x81", "\xBF", "\xE2\x82", "\xE2\x82x", "\xF0\x9F\x98",
                              "\xF0\x9F\x98x", "\xF5\x80\x80\x80", "\xF8\x88\x80\x80", "\xFF\xFE", "\xC3\xC3"}) {
        EXPECT_EQ(fromUtf8(bytes), bytes);
    }
}

TEST(Text, TrimTakesBlanksAtBothEnds) {
    EXPECT_EQ(trim("  a b "), "a b");
    EXPECT_EQ(trim("   "), "");
}
