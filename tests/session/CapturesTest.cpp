// Which capture sees a line, and what becomes of the line and its flag.
#include "session/Captures.h"

#include "SessionRig.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct CapturesTest : SessionRig {
    std::string doneAt; // the front of the line that completes an answer
    std::vector<std::string> calls;

    CapturesTest() {
        doneAt = "last";
        hook(captures.help, "help", &ModChess::gHelpCapture);
        hook(captures.history, "history", &ModChess::HistoryCapture);
        hook(captures.journal, "journal", &ModChess::HistoryCapture);
        hook(captures.stored, "stored", &ModChess::HistoryCapture);
        hook(captures.sought, "sought", &ModChess::gSoughtCapture);
        hook(captures.vars, "vars", &ModChess::gVarsCapture);
        hook(captures.notes, "notes", &ModChess::gNotesCapture);
        captures.zMovesLines = [this](std::string& line, int index) { return take("moves", line, index); };
        captures.writePgn = [this] {
            EXPECT_FALSE(modChess.MovesCapture) << "the flag is down when the record is handed over";
            calls.push_back("pgn");
        };
        captures.zReviewGame = [this](int board) { calls.push_back("review " + std::to_string(board)); };
        captures.zParseMoves = [this](int board) { calls.push_back("parse " + std::to_string(board)); };
        captures.zFindBoard = classifier.hooks.zFindBoard;
    }

    void hook(CaptureConsumer& consumer, const std::string& name, bool ModChess::*flag) {
        consumer.line = [this, name](std::string& line, int index) { return take(name, line, index); };
        consumer.done = [this, name, flag] {
            calls.push_back(name + (modChess.*flag ? " done, flag up" : " done, flag down"));
        };
    }

    bool take(const std::string& name, const std::string& line, int index) {
        calls.push_back(name + " " + std::to_string(index));
        return line.starts_with(doneAt);
    }
};

} // namespace

TEST_F(CapturesTest, WithNoFlagNoCaptureSeesALine) {
    batch("a\nlast\n");
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_EQ(console(), "a\r\nlast\r\n");
}

TEST_F(CapturesTest, OnlyTheFirstFlagInTheFixedOrderSeesTheLine) {
    const std::vector<std::pair<bool ModChess::*, std::string>> order{
        {&ModChess::gHelpCapture, "help 0"},      {&ModChess::MovesCapture, "moves 0"},
        {&ModChess::HistoryCapture, "history 0"}, {&ModChess::gSoughtCapture, "sought 0"},
        {&ModChess::gVarsCapture, "vars 0"},      {&ModChess::gNotesCapture, "notes 0"}};
    modChess.gLastCmd = "sought";
    for (const auto& row : order) modChess.*row.first = true;
    for (const auto& [flag, call] : order) {
        calls.clear();
        lines.zParse("x\n");
        EXPECT_TRUE(captures.route(lines, 0));
        EXPECT_THAT(calls, ElementsAre(call));
        modChess.*flag = false;
    }
    EXPECT_FALSE(captures.route(lines, 0));
}

TEST_F(CapturesTest, HelpBlanksEachLineAndShowsBeforeTheFlagDrops) {
    modChess.gHelpCapture = true;
    batch("a\nlast\nbehind\n");
    EXPECT_THAT(calls, ElementsAre("help 0", "help 1", "help done, flag up"));
    EXPECT_FALSE(modChess.gHelpCapture);
    EXPECT_EQ(console(), "behind\r\n");
}

TEST_F(CapturesTest, MovesLeaveTheirLinesAndBlankTheTwoBehindTheResult) {
    modChess.MovesCapture = true;
    modChess.MovesTarget = -1;
    batch("a\nlast\none\ntwo\nthree\n");
    EXPECT_THAT(calls, ElementsAre("moves 0", "moves 1", "pgn"));
    EXPECT_FALSE(modChess.MovesCapture);
    EXPECT_EQ(console(), "a\r\nlast\r\nthree\r\n");
}

TEST_F(CapturesTest, MovesGoToTheReviewBoardIfThereIsOne) {
    modChess.MovesTarget = -2;
    captures.zFindReviewBoard = [] { return 4; };
    modChess.MovesCapture = true;
    batch("last\n");
    EXPECT_THAT(calls, ElementsAre("moves 0", "review 4"));
    captures.zFindReviewBoard = [] { return -1; };
    modChess.MovesCapture = true;
    batch("last\n");
    EXPECT_EQ(calls.size(), 3U);
    EXPECT_FALSE(modChess.MovesCapture);
}

TEST_F(CapturesTest, MovesGoToTheBoardOfTheirGameIfThereIsOne) {
    modChess.MovesTarget = 13;
    modChess.MovesCapture = true;
    batch("last\n");
    EXPECT_THAT(calls, ElementsAre("moves 0", "parse 1"));
    modChess.MovesTarget = 99;
    modChess.MovesCapture = true;
    batch("last\n");
    EXPECT_EQ(calls.size(), 3U);
}

TEST_F(CapturesTest, TheKindOfListPicksTheConsumerAndTheFlagDropsBehindTheList) {
    for (const auto& [kind, name] :
         {std::pair<int, std::string>{0, "history"}, {1, "journal"}, {2, "stored"}, {-7, "stored"}}) {
        calls.clear();
        modChess.HistoryKind = static_cast<std::int16_t>(kind);
        modChess.HistoryCapture = true;
        batch("row\nlast\nbehind\n");
        EXPECT_THAT(calls, ElementsAre(name + " 0", name + " 1", name + " done, flag up"));
        EXPECT_FALSE(modChess.HistoryCapture);
        EXPECT_EQ(printed.back().text, "behind\r\n");
    }
    EXPECT_EQ(console().find("row"), std::string::npos);
}

TEST_F(CapturesTest, AConsumerMayChangeItsLine) {
    modChess.HistoryCapture = true;
    lines.verbose = true;
    captures.history.line = [](std::string& line, int) {
        line = "changed\r\n";
        return false;
    };
    batch("row\n");
    EXPECT_EQ(console(), "changed\r\n");
}

TEST_F(CapturesTest, SoughtDropsItsFlagWhenSomethingElseWasSent) {
    modChess.gSoughtCapture = true;
    modChess.gVarsCapture = true;
    modChess.gLastCmd = "sought all";
    batch("a\nb\n");
    EXPECT_FALSE(modChess.gSoughtCapture);
    // The line that dropped the flag is not offered on; the next one is.
    EXPECT_THAT(calls, ElementsAre("vars 1"));
    EXPECT_EQ(console(), "a\r\n");
}

TEST_F(CapturesTest, SoughtDrawsTheGraphOnlyWhileItIsInUseAndBlanksTheLineBehind) {
    modChess.gLastCmd = "sought";
    for (const bool graph : {true, false}) {
        calls.clear();
        printed.clear();
        modChess.gSoughtCapture = true;
        modChess.gSeekOn = graph;
        batch("ad\nlast\nfics% \nmore\n");
        EXPECT_EQ(std::ranges::count(calls, "sought done, flag down"), graph ? 1 : 0);
        EXPECT_FALSE(modChess.gSoughtCapture);
        EXPECT_EQ(console(), "ad\r\nlast\r\nmore\r\n");
    }
}

TEST_F(CapturesTest, VarsAndNotesBlankEachLineAndDropTheFlagFirst) {
    modChess.gVarsCapture = true;
    batch("a\nlast\n");
    modChess.gNotesCapture = true;
    batch("b\nlast\nbehind\n");
    EXPECT_THAT(calls,
                ElementsAre("vars 0", "vars 1", "vars done, flag down", "notes 0", "notes 1", "notes done, flag down"));
    EXPECT_EQ(console(), "behind\r\n");
}

TEST_F(CapturesTest, TheLineBehindVarsAndNotesStays) {
    for (bool ModChess::*const flag : {&ModChess::gVarsCapture, &ModChess::gNotesCapture}) {
        modChess.*flag = true;
        batch("last\nbehind\n");
    }
    EXPECT_EQ(console(), "behind\r\nbehind\r\n");
}

TEST_F(CapturesTest, BoardUpdatesReachTheirBoardsInTheMiddleOfACapture) {
    modChess.gHelpCapture = true;
    batch("a\n\n" + style12Line(12) + "\nfics% \nb\n");
    EXPECT_TRUE(happened("position 0"));
    // Blanked lines are offered as well; the record and the holdings never are.
    EXPECT_THAT(calls, ElementsAre("help 0", "help 1", "help 3", "help 4"));
}

TEST_F(CapturesTest, ACapturedGameEndEndsNoGame) {
    modChess.gHelpCapture = true;
    batch("{Game 12 (Ann vs. Ben) Ann resigns} 0-1\n");
    EXPECT_EQ(times("end"), 0);
}

TEST_F(CapturesTest, InVerboseModeConsumersStillSeeTheirLinesAndTheConsoleShowsThem) {
    lines.verbose = true;
    modChess.gNotesCapture = true;
    batch("a\nlast\n");
    EXPECT_THAT(calls, ElementsAre("notes 0", "notes 1", "notes done, flag down"));
    EXPECT_EQ(console(), "a\r\nlast\r\n");
}

TEST_F(CapturesTest, AfterTheTimeOutTheRestFallsThroughToTheConsole) {
    modChess.gVarsCapture = true;
    batch("a\n");
    pipeline.tmrState();
    batch("b\n");
    EXPECT_EQ(console(), "b\r\n");
}
