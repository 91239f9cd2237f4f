// Pass 1: a batch in, boards moved, tells handed over, lines blanked.
#include "session/LineClassifier.h"

#include "SessionRig.h"

#include "common/Fault.h"
#include "session/TellLine.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string LongLine = "a line of ordinary text";

struct LineRoutingTest : SessionRig {};

} // namespace

TEST_F(LineRoutingTest, AnEmptyLineARecordAndAPromptLeaveTheConsoleQuiet) {
    batch("\n\r" + style12Line(12) + "\n\rfics% ");
    EXPECT_THAT(printed, IsEmpty());
    EXPECT_THAT(events, ElementsAre("position 0"));
    EXPECT_EQ(classifier.LastStyle12Line, style12Line(12) + "\r\n");
}

TEST_F(LineRoutingTest, ALongLineBehindARecordStaysAndIsPrinted) {
    batch("\n" + style12Line(12) + "\nshort\n" + LongLine + "\nshort\n");
    EXPECT_THAT(printed, ElementsAre(Printed{LongLine + "\r\n", MainColor}, Printed{"short\r\n", MainColor}));
}

TEST_F(LineRoutingTest, FifteenCharactersWithTheLineEndingAreShort) {
    batch("\n" + style12Line(12) + "\n1234567890123\n");
    EXPECT_EQ(console(), "");
    batch("\n" + style12Line(12) + "\n12345678901234\n");
    EXPECT_EQ(console(), "12345678901234\r\n");
}

TEST_F(LineRoutingTest, TheLineInFrontOfARecordVanishesWhateverItHolds) {
    batch(LongLine + "\n" + style12Line(12) + "\n");
    EXPECT_THAT(printed, IsEmpty());
}

TEST_F(LineRoutingTest, ARecordThatIsFirstInItsBatchMovesTheBoardAndIsPrintedRaw) {
    batch(style12Line(12) + "\nfics% ");
    EXPECT_THAT(events, ElementsAre("position 0"));
    EXPECT_EQ(console(), style12Line(12) + "\r\nfics% ");
    EXPECT_EQ(classifier.LastStyle12Line, "");
}

TEST_F(LineRoutingTest, WhatIsLetGoWhileTheProgramClosesIsDropped) {
    modChess.AppClosing = true;
    batch("\n" + style12Line(12) + "\nfics% \n" + style12Line(13) + "\n<b1> game 99 white [] black []\n" + LongLine +
          "\n");
    EXPECT_THAT(events, IsEmpty());
    EXPECT_THAT(printed, IsEmpty());
}

TEST_F(LineRoutingTest, ARecordIsFoundAnywhereInItsLine) {
    batch("\nfics% " + style12Line(12) + "\n");
    EXPECT_THAT(events, ElementsAre("position 0"));
}

TEST_F(LineRoutingTest, ARecordThatReachesNoBoardIsAnOrdinaryLine) {
    batch("\n" + style12Line(99) + "\nfics% ");
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(console(), "\r\n" + style12Line(99) + "\r\nfics% ");
}

TEST_F(LineRoutingTest, TheWalkBehindARecordGoesOnePastTheLastLine) {
    batch("1\n2\n3\n4\n");
    batch("\n" + style12Line(12) + "\n");
    EXPECT_EQ(lines[2], "");
    EXPECT_EQ(lines[3], "4\r\n");
}

TEST_F(LineRoutingTest, TheWalkPastAFullBatchFaults) {
    std::string full;
    for (int i = 0; i < 999; ++i) full += "\n";
    EXPECT_THROW(batch(full + style12Line(12) + "\nx\n"), Fault);
    EXPECT_NO_THROW(batch(full + style12Line(12) + "\n" + LongLine + "\n"));
}

TEST_F(LineRoutingTest, AFaultOfABoardsPositionPassesThroughTheClassifier) {
    classifier.hooks.zSetPosition = [](int) { throw Fault(FaultKind::Subscript, "ply 401"); };
    EXPECT_THROW(batch("\n" + style12Line(12) + "\nfics% \n"), Fault);
}

TEST_F(LineRoutingTest, ARecordWhoseBoardIsGoneMovesNone) {
    classifier.hooks.zStyle12Line = [](const std::string&) { return true; };
    boardOfGame.clear();
    modChess.NewGameFlag = true;
    batch("\n" + style12Line(12) + "\nfics% ");
    EXPECT_THAT(events, IsEmpty());
    EXPECT_THAT(printed, IsEmpty());
}

TEST_F(LineRoutingTest, HoldingsBehindARecordGoToItsBoardAndVanish) {
    batch("\n" + style12Line(13) + "\n\n<b1> game 13 white [P] black []\nfics% \n" + LongLine + "\n");
    EXPECT_THAT(events, ElementsAre("bughouse 1 <b1> game 13 white [P] black []", "position 1"));
    EXPECT_EQ(console(), LongLine + "\r\n");
    EXPECT_EQ(classifier.SuppressCount, 0);
}

TEST_F(LineRoutingTest, HoldingsHave1000ShortLinesDropped) {
    batch("\n" + style12Line(13) + "\n\n<b1> game 13 white [P] black []\nfics% \n");
    EXPECT_EQ(classifier.SuppressCount, 1000);
}

TEST_F(LineRoutingTest, EveryRecordSwitchesTheGraphOffIfTheSettingSaysSo) {
    modChess.gSeekOn = true;
    batch("\n" + style12Line(12) + "\n");
    EXPECT_TRUE(modChess.gSeekOn);
    modChess.SeekOff = 1;
    batch(style12Line(12) + "\n");
    EXPECT_FALSE(modChess.gSeekOn);
    EXPECT_THAT(events, ElementsAre("position 0", "unload seek", "position 0"));
}

TEST_F(LineRoutingTest, ANewGameAsksForItsMovesAndComesToTheFront) {
    newGame = true;
    batch("\n" + style12Line(13) + "\n");
    EXPECT_THAT(events, ElementsAre("position 1", "exit move 1", "get moves 1", "show board 1"));
    EXPECT_EQ(modChess.MovesTarget, 13);
}

TEST_F(LineRoutingTest, AGameThatHasItsBoardLeavesTheTargetOfTheMoves) {
    modChess.MovesTarget = -2;
    batch("\n" + style12Line(13) + "\n");
    EXPECT_EQ(modChess.MovesTarget, -2);
}

TEST_F(LineRoutingTest, HoldingsGoToTheBoardOfTheLatestRecord) {
    modChess.Record.GameNumber = 12;
    batch("<b1> game 13 white [] black [Q]\nfics% \n\n" + LongLine + "\nfics% ");
    EXPECT_THAT(events, ElementsAre("bughouse 0 <b1> game 13 white [] black [Q]"));
    EXPECT_EQ(console(), LongLine + "\r\nfics% ");
}

TEST_F(LineRoutingTest, TheWalkBehindHoldingsGoesOnePastTheBatchAndStopsAtALongLine) {
    modChess.Record.GameNumber = 12;
    batch("1\n2\n3\n4\n");
    batch("<b1> game 12 white [] black [Q]\nfics% \n");
    EXPECT_EQ(lines[1], "");
    EXPECT_EQ(lines[2], "") << "a line of an older batch";
    EXPECT_EQ(lines[3], "4\r\n");
}

TEST_F(LineRoutingTest, BehindHoldingsFifteenCharactersWithTheLineEndingAreShort) {
    modChess.Record.GameNumber = 12;
    const std::string holdings = "<b1> game 12 white [] black [Q]\n";
    batch(holdings + "1234567890123\n");
    EXPECT_EQ(lines[1], "");
    batch(holdings + "12345678901234\n");
    EXPECT_EQ(lines[1], "12345678901234\r\n");
}

TEST_F(LineRoutingTest, ATitleInPlaceOfAChannelNumberIsATellOfChannel0) {
    batch("Bob(C): hi\nfics% \nmore text\nfics% ");
    EXPECT_EQ(modChess.TellTarget, "0");
    EXPECT_EQ(console(), "Bob(C): hi\r\nmore text\r\nfics% ");
    EXPECT_THAT(events, IsEmpty()) << "channel tells are silent";
}

// A tell that ends a move list has lines behind it that are blank already.
TEST_F(LineRoutingTest, TheWalkBehindATellSkipsWhatIsBlank) {
    modChess.MovesCapture = true;
    modChess.MovesTarget = 99;
    captures.zMovesLines = [](const std::string&, int) { return true; };
    batch("Bob tells you: hi\na\nb\nc\nd\nfics% ");
    EXPECT_EQ(console(), "Bob tells you: hi\r\nd\r\nfics% ");
}

TEST_F(LineRoutingTest, BehindHoldingsShortLinesOfLaterBatchesVanishUntilALongerOne) {
    modChess.Record.GameNumber = 12;
    for (const std::string& holdings : {std::string(), "\n" + style12Line(12) + "\n"}) {
        printed.clear();
        batch(holdings + "<b1> game 12 white [] black [Q]\n\nfics% ");
        batch("\nfics% ");
        EXPECT_EQ(console(), "");
        batch("\n" + LongLine + "\nfics% ");
        EXPECT_EQ(console(), LongLine + "\r\nfics% ");
    }
}

TEST_F(LineRoutingTest, HoldingsWithoutABoardFault) {
    modChess.Record.GameNumber = 99;
    try {
        batch("<b1> game 99 white [] black []\n");
        FAIL() << "taken without a board";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.kind(), FaultKind::Subscript);
        EXPECT_THAT(fault.what(), testing::StartsWith("bughouse holdings for a game that has no board, met by \"<b1>"));
    }
}

TEST_F(LineRoutingTest, ATellWithoutABoxIsPrintedAndThePromptBehindItVanishes) {
    batch("Bob tells you: hi\n\rfics% \n\rmore text\n\r");
    EXPECT_EQ(modChess.TellTarget, "Bob");
    EXPECT_THAT(printed, ElementsAre(Printed{"Bob tells you: hi\r\n", TellColor}, Printed{"more text\r\n", MainColor}));
    EXPECT_THAT(events, ElementsAre("sound whistle.wav 7"));
}

TEST_F(LineRoutingTest, ATellWithABoxAndTheLineInFrontGoToTheBox) {
    chatBuddies = {"Bob"};
    batch("front\n\rBob tells you: hi\n\rfics% \n\rmore text\n\r");
    EXPECT_THAT(chatTexts, ElementsAre("Bob tells you: hi\r\n"));
    EXPECT_EQ(console(), "more text\r\n");
    EXPECT_THAT(events, ElementsAre("sound whistle.wav 7"));
    EXPECT_TRUE(classifier.TellToChat);
}

TEST_F(LineRoutingTest, ABoxedTellThatIsFirstInItsBatchBlanksNothingInFront) {
    chatBuddies = {"Bob"};
    EXPECT_NO_THROW(batch("Bob tells you: hi\n"));
    EXPECT_EQ(console(), "");
}

TEST_F(LineRoutingTest, TheFinalTailBehindATellStays) {
    batch("Bob tells you: hi\n\rfics% ");
    EXPECT_EQ(console(), "Bob tells you: hi\r\nfics% ");
}

TEST_F(LineRoutingTest, ContinuationsAndBlankedLinesAreSteppedOverBehindATell) {
    chatBuddies = {"Ann"};
    batch("Bob tells you: hi\n\\   there\nprompt\nkept\ntail");
    EXPECT_EQ(console(), "Bob tells you: hi\r\nthere\r\nkept\r\ntail");
}

TEST_F(LineRoutingTest, AChannelTellOfAnotherWhistlesAndTheOwnOneIsASend) {
    chatBuddies = {"50"};
    modChess.MyHandle = "Own";
    batch("Bob(50): hi\n");
    batch("Own(50): hi\n");
    EXPECT_THAT(events, ElementsAre("sound whistle.wav 7", "sound send.wav 7"));
    EXPECT_EQ(modChess.TellTarget, "50");
    EXPECT_THAT(chatTexts, ElementsAre("Bob(50): hi\r\n", "Own(50): hi\r\n"));
}

TEST_F(LineRoutingTest, APersonalTellWhistlesEvenWhenTheLatestChannelTellWasTheOwnOne) {
    chatBuddies = {"Bob"};
    modChess.MyHandle = "Own";
    modChess.ChannelSender = "Own";
    batch("Bob tells you: hi\n");
    EXPECT_THAT(events, ElementsAre("sound whistle.wav 7"));
}

TEST_F(LineRoutingTest, TheLatestTellDecidesWhereContinuationsGo) {
    chatBuddies = {"Bob"};
    batch("Bob tells you: hi\nx\nAnn tells you: ho\ny\n");
    EXPECT_FALSE(classifier.TellToChat);
    batch("Bob tells you: hi\n");
    EXPECT_TRUE(classifier.TellToChat);
    batch("nothing\n");
    EXPECT_FALSE(classifier.TellToChat);
}

TEST_F(LineRoutingTest, OtherKindsOfTellLeaveTheTarget) {
    modChess.TellTarget = "Ann";
    batch("Bob shouts: hi\nprompt\nBob says: hi\nprompt\n");
    EXPECT_EQ(modChess.TellTarget, "Ann");
    EXPECT_EQ(printed.size(), 4U);
    EXPECT_EQ(modChess.TellType, NoTell);
}

TEST_F(LineRoutingTest, ATellThatACaptureTookIsStillATellInVerboseMode) {
    modChess.gHelpCapture = true;
    batch("Ann tells you: hi\n");
    EXPECT_EQ(modChess.TellTarget, "");
    lines.verbose = true;
    batch("Bob tells you: hi\n");
    EXPECT_EQ(modChess.TellTarget, "Bob");
}

TEST_F(LineRoutingTest, AChannelOfLessThanNothingIsNoTellToABox) {
    chatBuddies = {"-5", "995"};
    batch("Bob(-5): hi\nprompt\nmore\n");
    EXPECT_EQ(modChess.TellTarget, "");
    EXPECT_EQ(printed.size(), 3U);
    EXPECT_THAT(events, ElementsAre("sound whistle.wav 7"));
}

TEST_F(LineRoutingTest, InVerboseModeHoldingsBehindARecordReachTheirBoardBeforeThePositionAndOnceMore) {
    lines.verbose = true;
    const std::string holdings = "<b1> game 12 white [P] black []";
    batch("\n" + style12Line(12) + "\n" + holdings + "\n");
    EXPECT_THAT(events, ElementsAre("bughouse 0 " + holdings, "position 0", "bughouse 0 " + holdings));
}

TEST_F(LineRoutingTest, InVerboseModeRecordsMoveTheirBoardsAndAreShown) {
    lines.verbose = true;
    batch("\n" + style12Line(12) + "\nfics% ");
    EXPECT_THAT(events, ElementsAre("position 0"));
    EXPECT_EQ(console(), "\r\n" + style12Line(12) + "\r\nfics% ");
}
