// The line eater, the repeated prompt, Block Mode and the quiet console.
#include "session/LineClassifier.h"

#include "SessionRig.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct SuppressionTest : SessionRig {};

} // namespace

TEST_F(SuppressionTest, ACountDropsSoManyLines) {
    classifier.SuppressCount = 3;
    batch("1\n2\n3\n4\n");
    EXPECT_EQ(console(), "4\r\n");
    EXPECT_EQ(classifier.SuppressCount, 0);
}

TEST_F(SuppressionTest, BlankedLinesAreNotCounted) {
    classifier.SuppressCount = 1;
    modChess.gHelpCapture = true;
    batch("captured\n");
    modChess.gHelpCapture = false;
    EXPECT_EQ(classifier.SuppressCount, 1);
    batch("dropped\nkept\n");
    EXPECT_EQ(console(), "kept\r\n");
}

TEST_F(SuppressionTest, MinusOnePrintsThisLineAndDropsTheNext) {
    classifier.SuppressCount = -1;
    batch("1\n2\n3\n");
    EXPECT_EQ(console(), "1\r\n3\r\n");
}

TEST_F(SuppressionTest, AboveAHundredShortLinesAreEatenUntilALongerOne) {
    classifier.SuppressCount = 1000;
    batch("fics% \n12345\n");
    EXPECT_THAT(printed, IsEmpty());
    EXPECT_EQ(classifier.SuppressCount, 998);
    batch("1234567\nfics% \n");
    EXPECT_EQ(console(), "1234567\r\nfics% \r\n");
}

TEST_F(SuppressionTest, AHundredItselfCountsLines) {
    classifier.SuppressCount = 101;
    batch("a line longer than the prompt\n");
    EXPECT_EQ(classifier.SuppressCount, 0);
    printed.clear();
    classifier.SuppressCount = 100;
    batch("a line longer than the prompt\n");
    EXPECT_THAT(printed, IsEmpty());
    EXPECT_EQ(classifier.SuppressCount, 99);
}

TEST_F(SuppressionTest, VerboseModeKeepsTheCountAtZero) {
    lines.verbose = true;
    classifier.SuppressCount = 5;
    batch("1\n2\n");
    EXPECT_EQ(console(), "1\r\n2\r\n");
    EXPECT_EQ(classifier.SuppressCount, 0);
}

TEST_F(SuppressionTest, TheSamePromptThreeTimesIsPrintedOnce) {
    for (int i = 0; i < 3; ++i) batch("fics% ");
    EXPECT_THAT(printed, ElementsAre(Printed{"fics% ", MainColor}));
    EXPECT_TRUE(classifier.PromptShown);
}

TEST_F(SuppressionTest, TextBetweenTwoPromptsPrintsBoth) {
    batch("fics% ");
    batch("text\n");
    EXPECT_FALSE(classifier.PromptShown);
    batch("fics% ");
    EXPECT_EQ(console(), "fics% text\r\nfics% ");
}

TEST_F(SuppressionTest, APromptWithALineEndingIsNoBarePrompt) {
    batch("fics% \nfics% \n");
    EXPECT_EQ(console(), "fics% \r\nfics% \r\n");
}

TEST_F(SuppressionTest, InBlockModeLinesPileUpAndTheFirstLineBehindItCarriesThem) {
    classifier.menu.mnuBlocked = true;
    batch("1\n2\n");
    EXPECT_THAT(printed, IsEmpty());
    EXPECT_EQ(modChess.BlockedText, "1\r\n2\r\n");
    classifier.menu.mnuBlocked = false;
    batch("Bob shouts: 3\n4\n");
    EXPECT_THAT(printed, ElementsAre(Printed{"1\r\n2\r\nBob shouts: 3\r\n", ShoutColor}, Printed{"4\r\n", MainColor}));
    EXPECT_EQ(modChess.BlockedText, "");
}

TEST_F(SuppressionTest, AQuietConsolePrintsNothingAndPilesNothing) {
    modChess.gConsoleQuiet = true;
    batch("1\n");
    classifier.menu.mnuBlocked = true;
    batch("2\n");
    EXPECT_THAT(printed, IsEmpty());
    EXPECT_EQ(modChess.BlockedText, "");
}

TEST_F(SuppressionTest, AQuietConsoleKeepsTheCount) {
    modChess.gConsoleQuiet = true;
    classifier.SuppressCount = -1;
    batch("1\n");
    EXPECT_EQ(classifier.SuppressCount, -1);
    classifier.SuppressCount = 2;
    batch("1\n");
    EXPECT_EQ(classifier.SuppressCount, 1);
}

TEST_F(SuppressionTest, TheCountSurvivesTheBatch) {
    classifier.SuppressCount = 2;
    batch("1\n");
    batch("2\n");
    batch("3\n");
    EXPECT_EQ(console(), "3\r\n");
}
