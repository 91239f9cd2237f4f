// Move lists in the stream: who asks, which lines are taken, who gets the record, and what may come in between.
#include "records/MoveListRig.h"
#include "session/ChatRig.h"
#include "session/WiredSession.h"
#include "settings/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <numeric>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

const std::vector<std::string> Block{"\n\r",
                                     "Movelist for game 12:\n\r",
                                     "\n\r",
                                     "Anders (1500) vs. Berta (1600) --- Thu Oct 14, 20:36 PDT 2010\n\r",
                                     "Rated blitz match, initial time: 5 minutes, increment: 2 seconds.\n\r",
                                     "\n\r",
                                     "Move  Anders             Berta\n\r",
                                     "----  ----------------   ----------------\n\r",
                                     "  1.  e4      (0:00)     e5      (0:00)\n\r",
                                     "      {Still in progress} *\n\r",
                                     "\n\r"};
constexpr std::size_t FirstOfTheGame = 3;

std::string textOf(const std::vector<std::string>& lines) {
    return std::accumulate(lines.begin(), lines.end(), std::string());
}

struct MoveLists : WiredSession {
    // Game `number` has come to move 2 as the user joins it.
    void join(int number, int relation = 0) {
        arriveRecord({.ranks = AfterE4E5,
                      .game = number,
                      .relation = relation,
                      .moveNumber = 2,
                      .verbose = "P/e7-e5",
                      .pretty = "e5"});
    }
    void answer() { arrive(textOf(Block) + Prompt); }
    // The boards of games as they come in.
    std::string listOf(std::size_t board) {
        const MoveGridState& grid = game(board).grdMoves;
        return grid.text(1, 1) + " " + grid.text(1, 2) + " " + grid.text(2, 1);
    }
    const GameRecord& record() const { return modChess.MovesRecord; }
};

} // namespace

// Asking

TEST_F(MoveLists, EveryGameThatBeginsOnABoardIsAskedForItsMoves) {
    for (const int relation : {-2, -1, 0, 1}) {
        sent.clear();
        modChess.MovesTarget = -1;
        join(20 + relation, relation);
        EXPECT_THAT(sent, ElementsAre("moves " + std::to_string(20 + relation) + "\n"));
        EXPECT_TRUE(modChess.MovesCapture);
        EXPECT_EQ(modChess.MovesTarget, 20 + relation);
        EXPECT_EQ(running.at(SessionTimer::tmrState), 5000);
    }
}

TEST_F(MoveLists, AGameThatGoesOnIsNotAskedForAgain) {
    join(12);
    sent.clear();
    join(12);
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(MoveLists, AnExaminedGameIsAskedForByTheCommandThatBeganIt) {
    session.road.zSend("examine Anders 3");
    sent.clear();
    join(12, 2);
    EXPECT_THAT(sent, ElementsAre("smoves Anders 3\n"));
    EXPECT_FALSE(modChess.ExamineNoMoves);
}

TEST_F(MoveLists, AnExaminedGameOfACommandWithoutWordsIsNotAskedForAndListsItsOwnMoves) {
    session.road.zSend("examine");
    sent.clear();
    join(12, 2);
    EXPECT_THAT(sent, IsEmpty());
    EXPECT_FALSE(modChess.MovesCapture);
    EXPECT_TRUE(modChess.ExamineNoMoves);
    EXPECT_EQ(modChess.MovesTarget, 12);
}

TEST_F(MoveLists, APositionWithoutTheUsersPartIsNotAskedFor) {
    join(12, -3);
    EXPECT_THAT(sent, IsEmpty());
    EXPECT_FALSE(modChess.MovesCapture);
}

// The answer

TEST_F(MoveLists, TheAnswerFillsTheBoardAndLeavesTheMovelistsLineAlone) {
    join(12);
    answer();
    EXPECT_EQ(listOf(0), "e4 e5 ");
    EXPECT_FALSE(modChess.MovesCapture);
    EXPECT_THAT(boards[0]->all("title").back(), "title Anders (1500) vs. Berta (1600) - Observing");
    EXPECT_EQ(console, "Movelist for game 12:\r\n") << "the prompt goes with the two lines behind the result";
}

TEST_F(MoveLists, TwoLinesBehindTheResultGoWhateverTheyHold) {
    join(12);
    arrive("one\n\r      {Still in progress} *\n\rtwo lines that\n\rdo not show\n\rthis one does\n\rfics% ");
    EXPECT_EQ(console, "one\r\nthis one does\r\nfics% ");
}

TEST_F(MoveLists, InVerboseModeTheListIsShownAndTaken) {
    session.serverLines.verbose = true;
    join(12);
    console.clear();
    answer();
    EXPECT_THAT(console, HasSubstr("  1.  e4      (0:00)     e5      (0:00)\r\n"));
    EXPECT_EQ(listOf(0), "e4 e5 ");
}

TEST_F(MoveLists, CutAnywhereByThePacketsTheAnswerIsTheSame) {
    const std::string text = textOf(Block) + Prompt;
    for (std::size_t place = 1; place < text.size(); place += 7) {
        openWindows.windows.clear();
        boards.clear();
        session.routing.hooks.zNewBoard();
        join(12);
        arrive(text.substr(0, place));
        arrive(text.substr(place));
        EXPECT_EQ(listOf(0), "e4 e5 ") << place;
    }
}

TEST_F(MoveLists, ATellAShoutOrABoardUpdateBetweenAnyTwoLinesChangesNothing) {
    const std::vector<std::string> strangers{
        "\n\rBerta tells you: look at this\n\rfics% \n\r", "\n\rBerta shouts: hello everybody\n\r",
        "\n\r" + LineOf{.game = 12, .relation = 0, .moveNumber = 2, .pretty = "e5"}.text(" 0 0\n\r")};
    for (const std::string& stranger : strangers) {
        for (std::size_t place = FirstOfTheGame; place + 1 < Block.size(); ++place) {
            openWindows.windows.clear();
            boards.clear();
            session.routing.hooks.zNewBoard();
            join(12);
            std::vector<std::string> lines = Block;
            lines.insert(lines.begin() + static_cast<long>(place), stranger);
            arrive(textOf(lines) + Prompt);
            EXPECT_FALSE(modChess.MovesCapture) << stranger << place;
            EXPECT_EQ(record().WhiteMoves[1] + record().BlackMoves[1], "e4e5") << stranger << place;
            EXPECT_EQ(game().grdMoves.text(1, 2), "e5") << stranger << place;
        }
    }
}

TEST_F(MoveLists, ATellInTheMiddleReachesItsBoxAndTakesTheLineInFrontOfItAlong) {
    join(12);
    RecordedChat box(session.road);
    box.box.xBuddy = "Bob";
    std::vector<std::string> lines = Block;
    lines.insert(lines.end() - 2, "Bob tells you: hi\n\rfics% \n\r");
    arrive(textOf(lines) + Prompt);
    EXPECT_EQ(box.conversation, "hi\r\n");
    EXPECT_EQ(listOf(0), "e4 e5 ");
}

// It takes the line behind it for its prompt.
TEST_F(MoveLists, ATellWithoutAPromptBehindItCostsTheNextLineOfTheList) {
    join(12);
    std::vector<std::string> lines = Block;
    lines.insert(lines.begin() + 8, "Berta tells you: look at this\n\r");
    arrive(textOf(lines) + Prompt);
    EXPECT_FALSE(modChess.MovesCapture);
    EXPECT_EQ(record().WhiteMoves[1], "");
}

TEST_F(MoveLists, ATimeOutInTheMiddleLeavesTheRestToTheConsoleAndTheBoardWithoutAList) {
    join(12);
    arrive(textOf({Block.begin(), Block.begin() + 9}) + Prompt);
    EXPECT_TRUE(modChess.MovesCapture);
    session.timerFired(SessionTimer::tmrState);
    EXPECT_FALSE(modChess.MovesCapture);
    arrive(textOf({Block.begin() + 9, Block.end()}) + Prompt);
    EXPECT_THAT(console, HasSubstr("      {Still in progress} *\r\n"));
    EXPECT_EQ(game().grdMoves.text(1, 2), "");
    EXPECT_EQ(record().White, "Anders") << "partly filled";
    EXPECT_EQ(record().ResultLine, "");
}

TEST_F(MoveLists, ASecondRequestSharesTheRecordAndTheFirstAnswerGoesToItsBoard) {
    join(12);
    join(13);
    EXPECT_THAT(sent, ElementsAre("moves 12\n", "moves 13\n"));
    answer();
    EXPECT_EQ(listOf(0), "  ") << "that of game 12 has nobody who waits for it";
    EXPECT_EQ(listOf(1), "e4 e5 ");
    console.clear();
    answer();
    EXPECT_THAT(console, HasSubstr("  1.  e4      (0:00)     e5      (0:00)\r\n")) << "nobody reads the other one";
}

TEST_F(MoveLists, TwoListsThatCrossGiveOneRecordOfBoth) {
    join(12);
    join(13);
    std::vector<std::string> lines = Block;
    lines.insert(lines.end() - 2, "  2.  Nf3     (0:00)     Nc6     (0:00)\n\r");
    lines.insert(lines.begin() + 5, "Carl (1) vs. Dora (2) --- Fri Nov 15, 10:20 PDT 2013\n\r");
    arrive(textOf(lines) + Prompt);
    EXPECT_EQ(record().White, "Carl");
    EXPECT_EQ(record().LastMove, 2);
    EXPECT_EQ(listOf(1), "e4 e5 Nf3");
}

TEST_F(MoveLists, ARecordWhoseBoardHasClosedGoesNowhereWithoutAWord) {
    join(12);
    openWindows.windows.clear();
    answer();
    EXPECT_FALSE(modChess.MovesCapture);
    EXPECT_EQ(record().LastMove, 1);
    EXPECT_EQ(console, "Movelist for game 12:\r\n");
}

TEST_F(MoveLists, ARecordWhoseGameHasEndedGoesNowhere) {
    join(12);
    arrive("\n\r{Game 12 (Anders vs. Berta) Berta resigns} 1-0\n\rfics% ");
    answer();
    EXPECT_EQ(listOf(0), "  ");
}

TEST_F(MoveLists, AMoveNumberBeyondTheListEndsTheProgram) {
    join(12);
    EXPECT_THROW(arrive("201.  e4      (0:00)     e5      (0:00)\n\rfics% "), Fault);
}

TEST_F(MoveLists, AResultInsideTheListEndsNoGame) {
    join(12);
    arrive("      {White resigns} 1-0 {Game 12 (Anders vs. Berta)} 1-0\n\r\n\rfics% ");
    EXPECT_EQ(game().gameIndex, 12);
}

// Other takers

TEST_F(MoveLists, AReviewedGameGoesToTheBoardWithoutAGame) {
    modChess.MovesTarget = -2;
    session.pipeline.zSetstate(4);
    answer();
    EXPECT_EQ(listOf(0), "e4 e5 ");
    EXPECT_TRUE(game().GameLoaded);
    EXPECT_EQ(events, std::vector<std::string>{}) << "no board had to open";
}

TEST_F(MoveLists, AReviewOpensABoardWhereAllHaveGames) {
    join(12);
    answer();
    modChess.MovesTarget = -2;
    session.pipeline.zSetstate(4);
    answer();
    ASSERT_EQ(boards.size(), 2U);
    EXPECT_FALSE(game(0).GameLoaded);
    EXPECT_TRUE(game(1).GameLoaded);
    EXPECT_EQ(game(1).Style12Record.Relation, -100);
}

TEST_F(MoveLists, ARecordForAFileIsWrittenAndToldInTheConsole) {
    const TemporaryFolder folder;
    modChess.MovesTarget = -1;
    modChess.MovesFile = "games.pgn";
    session.zGetMoves(100, "Anders 17");
    EXPECT_THAT(sent, ElementsAre("smoves Anders 17\n"));
    answer();
    EXPECT_THAT(folder.read("games.pgn"), HasSubstr("[White \"Anders\"]\r\n"));
    EXPECT_THAT(folder.read("games.pgn"), HasSubstr("\r\n\r\n1. e4 e5\r\n*\r\n\r\n"));
    EXPECT_THAT(console, HasSubstr("\nGame was saved to games.pgn\n"));
    EXPECT_EQ(listOf(0), "  ");
}

TEST_F(MoveLists, AFileThatCannotTakeItIsToldInABoxBehindTheBatch) {
    modChess.MovesTarget = -1;
    modChess.MovesFile = "/dev/full";
    session.zGetMoves(100, "Anders 17");
    answer();
    EXPECT_THAT(events, IsEmpty()) << "no box in the middle of a batch";
    EXPECT_TRUE(running.contains(SessionTimer::Messages));
    session.timerFired(SessionTimer::Messages);
    EXPECT_THAT(events, ElementsAre("box Game could not be saved.", "end of Game could not be saved."));
    EXPECT_THAT(console, Not(HasSubstr("saved")));
}
