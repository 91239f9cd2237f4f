// Abbreviated commands and completed names.
#include "common/Abbrev.h"

#include <gtest/gtest.h>

TEST(Abbrev, FitsFromTheMinimumToTheWholeKeywordInAnyCase) {
    for (const char* word : {"he", "HE", "Hel", "help"}) {
        std::string text = word;
        EXPECT_TRUE(zAbbrev(text, "help", 2)) << word;
        EXPECT_EQ(text, "") << word;
    }
}

TEST(Abbrev, RefusesShorterLongerAndOtherWordsAndLeavesThem) {
    for (const char* word : {"h", "helpme", "hex", "", " help", "histor1"}) {
        std::string text = word;
        EXPECT_FALSE(zAbbrev(text, "help", 2)) << word;
        EXPECT_EQ(text, word);
    }
}

TEST(Abbrev, TakesTheWordAndItsBlankOffTheText) {
    std::string text = "he tactics  and more";
    EXPECT_TRUE(zAbbrev(text, "help", 2));
    EXPECT_EQ(text, "tactics  and more");
}

TEST(PrefixMatch, IgnoresCaseAndOuterBlanks) {
    EXPECT_TRUE(zPrefixMatch(" bo ", "Bobby"));
    EXPECT_TRUE(zPrefixMatch("BOBBY", " bobby "));
    EXPECT_FALSE(zPrefixMatch("Bobby", "Bob"));
    EXPECT_FALSE(zPrefixMatch("ob", "Bobby"));
}

TEST(Correct, TurnsLfCrPairsIntoCrLf) {
    EXPECT_EQ(zCorrect("a\n\rb\n\r\n\r"), "a\r\nb\r\n\r\n");
    EXPECT_EQ(zCorrect("a\nb\rc\r\n"), "a\nb\rc\r\n");
}
