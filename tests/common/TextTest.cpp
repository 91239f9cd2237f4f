// Columns count from 1.
#include "common/Text.h"

#include <gtest/gtest.h>

TEST(Text, MidCountsColumnsFromOne) {
    EXPECT_EQ(mid("abcdef", 1, 2), "ab");
    EXPECT_EQ(mid("abcdef", 3), "cdef");
    EXPECT_EQ(mid("abcdef", 5, 9), "ef");
    EXPECT_EQ(mid("abcdef", 7, 1), "");
    EXPECT_EQ(mid("abcdef", 0, 1), "");
}

TEST(Text, FindGivesTheColumnOrZero) {
    EXPECT_EQ(find(1, "abcabc", "c"), 3);
    EXPECT_EQ(find(4, "abcabc", "c"), 6);
    EXPECT_EQ(find(1, "abc", "x"), 0);
    EXPECT_EQ(find(9, "abc", "a"), 0);
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

TEST(Text, LowerTouchesOnlyTheLettersAToZ) { EXPECT_EQ(lower("AbZ\xC4"), "abz\xC4"); }

TEST(Text, TrimTakesBlanksAtBothEnds) {
    EXPECT_EQ(trim("  a b "), "a b");
    EXPECT_EQ(trim("   "), "");
}
