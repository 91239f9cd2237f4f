// A line in, the kind of tell and its sender out.
#include "session/TellLine.h"

#include "common/Fault.h"
#include "common/modChess.h"

#include <gtest/gtest.h>

namespace {

struct TellLineTest : testing::Test {
    TellLineTest() {
        modChess = ModChess{};
        modChess.gPrompt = "fics% ";
    }

    static std::string sender(std::string line) { return zGetTell(line); }
};

} // namespace

TEST_F(TellLineTest, ABlankAtTheFrontEndsAWordOfNoCharacters) {
    EXPECT_EQ(zTellLine(" tells you: hi\r\n"), PersonalTell);
    EXPECT_EQ(zTellLine(" Bob tells you: hi\r\n"), NoTell);
}

TEST_F(TellLineTest, ThePhraseBehindTheFirstWordDecides) {
    EXPECT_EQ(zTellLine("Bob tells you: hi\r\n"), PersonalTell);
    EXPECT_EQ(zTellLine("Bob(TM) tells you: hi\r\n"), PersonalTell);
    EXPECT_EQ(zTellLine("Bob would like to take back 2 half moves.\r\n"), WouldLikeTo);
    EXPECT_EQ(zTellLine("Bob says: hi\r\n"), Says);
    EXPECT_EQ(zTellLine("Bob offers you a draw.\r\n"), DrawOffer);
    EXPECT_EQ(zTellLine("Bob shouts: hi\r\n"), Shout);
}

TEST_F(TellLineTest, ThePhraseHoldsAtNoOtherPlace) {
    EXPECT_EQ(zTellLine("x Bob tells you: hi"), NoTell);
    EXPECT_EQ(zTellLine("Bob  tells you: hi"), NoTell);
    EXPECT_EQ(zTellLine("Bob Tells you: hi"), NoTell);
    EXPECT_EQ(zTellLine("tells you: hi"), NoTell);
}

TEST_F(TellLineTest, ALineWithoutABlankIsNoTell) {
    EXPECT_EQ(zTellLine("Bob(50):hi\r\n"), NoTell);
    EXPECT_EQ(zTellLine(""), NoTell);
}

TEST_F(TellLineTest, AChannelTellGivesItsChannelAndSender) {
    EXPECT_EQ(zTellLine("Bob(50): hi"), 1050);
    EXPECT_EQ(modChess.ChannelSender, "Bob");
    EXPECT_EQ(zTellLine("Bob(TM)(50): hi"), 1050);
    EXPECT_EQ(modChess.ChannelSender, "Bob(TM)");
    EXPECT_EQ(zTellLine("Bob(1): hi"), 1001);
    EXPECT_EQ(zTellLine("Bob(255): hi"), 1255);
    EXPECT_EQ(zTellLine("Anders(7):(8 hi"), 1007);
}

TEST_F(TellLineTest, AChannelHasOneToThreeCharacters) {
    modChess.ChannelSender = "before";
    EXPECT_EQ(zTellLine("Bob(1234): hi"), NoTell);
    EXPECT_EQ(zTellLine("Bob(): hi"), NoTell);
    EXPECT_EQ(zTellLine("Robert(): hi"), NoTell);
    EXPECT_EQ(zTellLine("Bob50): hi"), NoTell);
    EXPECT_EQ(modChess.ChannelSender, "before");
}

TEST_F(TellLineTest, TheBracketsStandInsideTheFirstWord) {
    EXPECT_EQ(zTellLine("Bob said(50): hi"), NoTell);
    EXPECT_EQ(zTellLine("Game 1(5): hi"), NoTell);
    EXPECT_EQ(zTellLine("Bob(50) : hi"), NoTell);
}

TEST_F(TellLineTest, ATitleInPlaceOfANumberCountsAsChannelZero) {
    EXPECT_EQ(zTellLine("Bob(C): hi"), 1000);
    EXPECT_EQ(modChess.ChannelSender, "Bob");
}

TEST_F(TellLineTest, AChannelNumberPast16BitsFaults) {
    try {
        zTellLine("Bob(9e9): hi");
        ADD_FAILURE() << "it has no place in 16 bits";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.kind(), FaultKind::Overflow);
    }
}

TEST_F(TellLineTest, ToLookAtALineChangesNothing) {
    const Tell tell = tellOf("Bob(TM)(50): hi");
    EXPECT_EQ(tell.type, 1050);
    EXPECT_EQ(tell.channelSender, "Bob(TM)");
    EXPECT_EQ(modChess.ChannelSender, "");
}

TEST_F(TellLineTest, PromptsInFrontAreSkippedUpToTen) {
    EXPECT_EQ(zTellLine("fics% fics% Bob shouts: hi"), Shout);
    std::string ten;
    for (int i = 0; i < 10; ++i) ten += "fics% ";
    EXPECT_EQ(zTellLine(ten + "Bob shouts: hi"), Shout);
    EXPECT_EQ(zTellLine(ten + "fics% Bob shouts: hi"), NoTell);
    EXPECT_EQ(zTellLine("fics% "), NoTell);
}

TEST_F(TellLineTest, APromptWithOneCharacterBehindItStays) {
    modChess.gPrompt = "me(1): ";
    EXPECT_EQ(zTellLine("me(1): x"), ChannelTell + 1);
    EXPECT_EQ(zTellLine("me(1): xy"), NoTell);
}

TEST_F(TellLineTest, OfTwoBracketsTheOneNextToTheDigitsOpensTheChannel) {
    EXPECT_EQ(zTellLine("Bob((5): hi"), ChannelTell + 5);
    EXPECT_EQ(modChess.ChannelSender, "Bob(");
}

TEST_F(TellLineTest, WithNoPromptLearntNothingIsSkipped) {
    modChess.gPrompt.clear();
    EXPECT_EQ(zTellLine("fics% Bob shouts: hi"), NoTell);
    EXPECT_EQ(zTellLine("Bob shouts: hi"), Shout);
}

TEST_F(TellLineTest, TheSenderIsTheFirstWordWithoutTitles) {
    EXPECT_EQ(sender("Bob tells you: hi"), "Bob");
    EXPECT_EQ(sender("Bob(TM) tells you: hi"), "Bob");
    EXPECT_EQ(sender("Bob tells you: (hi)"), "Bob");
}

TEST_F(TellLineTest, TheSendersLineLosesItsFrontOfBlanksAndControls) {
    std::string line = " \x07\tBob tells you: hi";
    EXPECT_EQ(zGetTell(line), "Bob");
    EXPECT_EQ(line, "Bob tells you: hi");
    std::string high = "\xC4hn tells you: hi";
    EXPECT_EQ(zGetTell(high), "\xC4hn");
    EXPECT_EQ(sender("!Bob tells you: hi"), "!Bob") << "33 is the first code that stays";
}

TEST_F(TellLineTest, ATitleWithoutAHandleLeavesNothing) {
    modChess.TellTarget = "Ann";
    EXPECT_EQ(sender("(TM) tells you: hi"), "");
}

TEST_F(TellLineTest, WithoutABlankTheTargetStays) {
    modChess.TellTarget = "Ann";
    EXPECT_EQ(sender("Bob"), "Ann");
    EXPECT_EQ(sender(""), "Ann");
}

TEST_F(TellLineTest, ATargetThatEndsInABracketWinsLessItsLastThree) {
    modChess.TellTarget = "Ann(*)";
    EXPECT_EQ(sender("Bob tells you: hi"), "Ann");
    modChess.TellTarget = ")";
    EXPECT_EQ(sender("Bob tells you: hi"), "");
    EXPECT_EQ(modChess.TellTarget, ")");
}

TEST_F(TellLineTest, NextCharsComparesAtAColumnCountedFromOne) {
    EXPECT_TRUE(zNextChars("abcdef", 3, "cd"));
    EXPECT_FALSE(zNextChars("abcdef", 2, "cd"));
    EXPECT_FALSE(zNextChars("abcdef", 3, "CD"));
    EXPECT_FALSE(zNextChars("abcdef", 6, "fg"));
    EXPECT_FALSE(zNextChars("abcdef", 0, "a"));
    EXPECT_FALSE(zNextChars("abcdef", 9, "a"));
}
