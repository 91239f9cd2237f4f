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

TEST(Text, LowerTouchesOnlyTheLettersAToZ) { EXPECT_EQ(lower("AbZ\xC4"), "abz\xC4"); }

TEST(Text, TrimTakesBlanksAtBothEnds) {
    EXPECT_EQ(trim("  a b "), "a b");
    EXPECT_EQ(trim("   "), "");
}
