// Tests of the text helpers.
#include "practice/text/Text.h"

#include <gtest/gtest.h>

#include <map>

namespace practice {
namespace {

TEST(Text, WordsAreCutAtRunsOfBlanksAndTabs) {
    EXPECT_EQ(words("  seek  5\t0 "), (std::vector<std::string>{"seek", "5", "0"}));
    EXPECT_TRUE(words(" \t ").empty());
}

TEST(Text, TrimTakesBlanksAndLineEndsOffBothSides) {
    EXPECT_EQ(trim("\r\n a b \n"), "a b");
    EXPECT_EQ(trim(" \n"), "");
}

TEST(Text, StartsWithIgnoresLetterCase) {
    EXPECT_TRUE(startsWith("Willow", "WIL"));
    EXPECT_TRUE(startsWith("Willow", ""));
    EXPECT_FALSE(startsWith("Wil", "Willow"));
}

TEST(Text, NumberTakesWholeTextsOnly) {
    EXPECT_EQ(number("50"), 50);
    EXPECT_EQ(number(""), std::nullopt);
    EXPECT_EQ(number("5x"), std::nullopt);
    EXPECT_EQ(number("-5"), std::nullopt);
    EXPECT_EQ(number("1000000"), std::nullopt);
    EXPECT_EQ(number("99999999999999999999"), std::nullopt);
}

TEST(Text, PaddingNeverCuts) {
    EXPECT_EQ(padLeft(7, 3), "  7");
    EXPECT_EQ(padLeft("12345", 3), "12345");
    EXPECT_EQ(padRight("ab", 4), "ab  ");
    EXPECT_EQ(padRight("abcde", 4), "abcde");
}

TEST(Text, CountedHasSingularAndPlural) {
    EXPECT_EQ(counted(1, "player"), "1 player");
    EXPECT_EQ(counted(0, "player"), "0 players");
}

TEST(Text, WrappedLinesBeginWithABackslashAndThreeBlanks) {
    EXPECT_EQ(wrapped("one two three", 9), "one two \n\\   three");
    EXPECT_EQ(wrapped("short", 8), "short");
}

TEST(Text, ABlankForWhichALineHasNoRoomBeginsTheNext) {
    EXPECT_EQ(wrapped("one two three four five", 13), "one two three\n\\    four \n\\   five");
}

// As public servers have it.
TEST(Text, ALineOf79ColumnsIsCutBehindItsLastBlank) {
    EXPECT_EQ(wrapped(" 2: A second note, which is long enough to be wrapped by the server since it has more than "
                      "seventy nine characters in it",
                      79),
              " 2: A second note, which is long enough to be wrapped by the server since it \n"
              "\\   has more than seventy nine characters in it");
}

TEST(Text, WrappingCutsAWordThatIsLongerThanALine) {
    const std::string text = wrapped(std::string(100, 'x'), 40);
    std::size_t from = 0;
    int letters = 0;
    while (from < text.size()) {
        const std::size_t end = std::min(text.find('\n', from), text.size());
        EXPECT_LE(end - from, 40U);
        from = end + 1;
    }
    for (const char c : text) letters += c == 'x' ? 1 : 0;
    EXPECT_EQ(letters, 100);
}

TEST(Text, OnlyAsciiLettersChangeTheirCase) {
    EXPECT_EQ(lowerOf('Q'), 'q');
    EXPECT_EQ(upperOf('q'), 'Q');
    for (const char c : {'-', '@', '[', '`', '{', '7', '\xC4', '\xE4'}) {
        EXPECT_EQ(lowerOf(c), c);
        EXPECT_EQ(upperOf(c), c);
    }
}

TEST(Text, CountsHaveTheirWordInItsRightForm) {
    EXPECT_EQ(counted(0, "game"), "0 games");
    EXPECT_EQ(counted(1, "game"), "1 game");
    EXPECT_EQ(counted(2, "game", 3), "  2 games");
}

TEST(Text, TheLowestFreeNumberFillsGaps) {
    EXPECT_EQ(lowestFree(std::map<int, char>{}), 1);
    EXPECT_EQ(lowestFree(std::map<int, char>{{2, 'b'}}), 1);
    EXPECT_EQ(lowestFree(std::map<int, char>{{1, 'a'}, {2, 'b'}, {4, 'd'}}), 3);
}

TEST(Text, PrintableLeavesControlCharactersOut) { EXPECT_EQ(printable("a\x1b[2J\x07\tb\x7f\xe9"), "a[2Jb\xe9"); }

} // namespace
} // namespace practice
