// A batch in, lines out.
#include "session/ServerLines.h"

#include "common/Fault.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace {

struct ServerLinesTest : testing::Test {
    ServerLines lines;
    int tails = 0;

    ServerLinesTest() {
        lines.tailSeen = [this] { ++tails; };
    }

    std::vector<std::string> cut(std::string_view text) {
        const int count = lines.zParse(text);
        return {lines.lines.begin(), lines.lines.begin() + count};
    }
};

using testing::ElementsAre;

} // namespace

TEST_F(ServerLinesTest, AnEmptyLineAndAPromptGiveTwoLinesAndATail) {
    EXPECT_THAT(cut("\n\rfics% "), ElementsAre("\r\n", "fics% "));
    EXPECT_EQ(lines.PartialLine, "fics% ");
    EXPECT_EQ(tails, 1);
}

TEST_F(ServerLinesTest, EveryKindOfEndingBecomesCrLf) {
    EXPECT_THAT(cut("a\r\nb\n\rc\rd\n"), ElementsAre("a\r\n", "b\r\n", "c\r\n", "d\r\n"));
    EXPECT_EQ(tails, 0);
}

TEST_F(ServerLinesTest, AReturnWithoutAnyFeedBehindItEndsALine) {
    EXPECT_EQ(lines.zParse("ab\rcd"), 2);
    EXPECT_EQ(lines[0], "ab\r\n");
    EXPECT_EQ(lines.PartialLine, "cd");
}

TEST_F(ServerLinesTest, TwoEqualEndingsAreTwoLines) {
    EXPECT_THAT(cut("a\n\nb\r\rc"), ElementsAre("a\r\n", "\r\n", "b\r\n", "\r\n", "c"));
}

TEST_F(ServerLinesTest, OnlyNeighboursPair) {
    EXPECT_THAT(cut("a\r\r\nb"), ElementsAre("a\r\n", "\r\n", "b"));
    EXPECT_THAT(cut("a\n\r\nb"), ElementsAre("a\r\n", "\r\n", "b"));
    EXPECT_THAT(cut("a\rb\nc"), ElementsAre("a\r\n", "b\r\n", "c"));
    EXPECT_THAT(cut("a\nb\rc"), ElementsAre("a\r\n", "b\r\n", "c"));
    EXPECT_THAT(cut("\n\r\n\r"), ElementsAre("\r\n", "\r\n"));
    EXPECT_THAT(cut("\r\n\n\r"), ElementsAre("\r\n", "\r\n"));
}

TEST_F(ServerLinesTest, ALineThatBeginsWithAControlCharacterIsEmptied) {
    EXPECT_THAT(cut("\tx\r\ny\tz\r\n\x1F"
                    "a\r\n\x07tail"),
                ElementsAre("\r\n", "y\tz\r\n", "\r\n", ""));
    EXPECT_EQ(lines.PartialLine, "");
    EXPECT_EQ(tails, 1);
}

TEST_F(ServerLinesTest, ABlankAndCharactersFrom128OnAreNoControlCharacters) {
    EXPECT_THAT(cut(" x\n\xFF\xFBx\n\x80y\n"), ElementsAre(" x\r\n", "\xFF\xFBx\r\n", "\x80y\r\n"));
}

TEST_F(ServerLinesTest, ControlCharactersInsideALinePass) {
    const std::string text("a\0b\x07\n", 5);
    EXPECT_THAT(cut(text), ElementsAre(std::string("a\0b\x07\r\n", 6)));
}

TEST_F(ServerLinesTest, ACleanEndKeepsTheOldPartialLine) {
    cut("fics% ");
    cut("a\r\n");
    EXPECT_EQ(lines.PartialLine, "fics% ");
    EXPECT_EQ(tails, 1);
}

TEST_F(ServerLinesTest, AnEmptyTextIsOneEmptyTail) {
    EXPECT_THAT(cut(""), ElementsAre(""));
    EXPECT_EQ(tails, 1);
}

TEST_F(ServerLinesTest, OldLinesStayBehindAShorterBatch) {
    cut("a\nb\nc\n");
    cut("x\n");
    EXPECT_EQ(lines[0], "x\r\n");
    EXPECT_EQ(lines[1], "b\r\n");
}

TEST_F(ServerLinesTest, ABatchHoldsAtMost1001Lines) {
    std::string text;
    for (int i = 0; i < 1001; ++i) text += std::to_string(i) + "\n\r";
    EXPECT_EQ(lines.zParse(text), 1001);
    EXPECT_EQ(lines[1000], "1000\r\n");
    try {
        lines.zParse(text + "one more");
        FAIL() << "line 1002 was taken";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.kind(), FaultKind::Subscript);
    }
}

TEST_F(ServerLinesTest, ClearBlanksALine) {
    cut("a\nb\n");
    lines.zClearLines(1);
    EXPECT_EQ(lines[0], "a\r\n");
    EXPECT_EQ(lines[1], "");
}

TEST_F(ServerLinesTest, ClearBlanksTheFirstAndTheLastOfAFullBatch) {
    cut(std::string(1001, '\n'));
    lines.zClearLines(0);
    lines.zClearLines(1000);
    EXPECT_EQ(lines[0], "");
    EXPECT_EQ(lines[999], "\r\n");
    EXPECT_EQ(lines[1000], "");
}

TEST_F(ServerLinesTest, InVerboseModeEveryLineStays) {
    cut("a\n");
    lines.verbose = true;
    lines.zClearLines(0);
    EXPECT_EQ(lines[0], "a\r\n");
}

TEST_F(ServerLinesTest, ClearIgnoresAnIndexOutside) {
    EXPECT_NO_THROW(lines.zClearLines(-1));
    EXPECT_NO_THROW(lines.zClearLines(1001));
    EXPECT_NO_THROW(lines.zClearLines(-32768));
}
