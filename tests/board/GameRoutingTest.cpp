// Finding the board of a game, and lines on their way to it.
#include "board/RoutingRig.h"

#include "common/Fault.h"

#include <gtest/gtest.h>

TEST(GameRouting, ZFindBoardGivesTheFirstBoardOfTheGame) {
    RoutingRig rig;
    openWindows.add({"frmChessClient", &rig, {}});
    rig.addIdle();
    rig.addGame(12, 1);
    rig.addGame(12, 0);
    EXPECT_EQ(zFindBoard(12), 2);
    EXPECT_EQ(zFindBoard(0), 1);
    EXPECT_EQ(zFindBoard(13), -1);
}

TEST(GameRouting, ZFindBoardWithANegativeNumberGivesTheFirstBoardOfAll) {
    RoutingRig rig;
    EXPECT_EQ(zFindBoard(-1), -1);
    openWindows.add({"frmChat", &rig, {}});
    rig.addGame(12, 1);
    rig.addIdle();
    EXPECT_EQ(zFindBoard(-1), 1);
    EXPECT_EQ(zFindBoard(-2), 1);
}

TEST(GameRouting, WindowsOfOtherClassesAreNoBoards) {
    RoutingRig rig;
    openWindows.add({"frmHistory", &rig, {}});
    EXPECT_EQ(zFindBoard(0), -1);
    EXPECT_THROW(boardAt(0), Fault);
    try {
        boardAt(0);
    } catch (const Fault& fault) {
        EXPECT_STREQ(fault.what(), "window 0 is no board");
    }
}

TEST(GameRouting, ZFindBoardOrFreeFallsBackOnTheFirstIdleBoard) {
    RoutingRig rig;
    rig.addGame(12, 1);
    rig.addIdle();
    rig.addIdle();
    std::int16_t game = 12;
    EXPECT_EQ(zFindBoardOrFree(game), 0);
    EXPECT_EQ(game, 12);
    game = 13;
    EXPECT_EQ(zFindBoardOrFree(game), 1);
    EXPECT_EQ(game, 0);
}

TEST(GameRouting, ZFindBoardOrFreeSetsTheNumberToZeroAlsoWhenNothingIsFound) {
    RoutingRig rig;
    rig.addGame(12, 1);
    std::int16_t game = 13;
    EXPECT_EQ(zFindBoardOrFree(game), -1);
    EXPECT_EQ(game, 0);
}

TEST(GameRouting, ZFindBoardByIdFindsTheBoard) {
    RoutingRig rig;
    rig.addIdle();
    const Game& second = rig.addIdle();
    EXPECT_EQ(zFindBoardById(second.id), 1);
    EXPECT_EQ(zFindBoardById(-5), -1);
}

TEST(GameRouting, ABoardThatIsNotThereIsASubscriptFault) {
    RoutingRig rig;
    rig.addIdle();
    for (const int number : {-1, 1, 99}) {
        try {
            boardAt(number);
            FAIL() << "no fault";
        } catch (const Fault& fault) {
            EXPECT_EQ(fault.kind(), FaultKind::Subscript);
        }
    }
    EXPECT_THROW(boardAt(zFindBoard(77)), Fault) << "holdings for a game that has no board";
}

TEST(GameRouting, ZFindReviewBoardTakesTheFirstBoardWithoutAGame) {
    RoutingRig rig;
    rig.addGame(12, 1);
    rig.addIdle();
    EXPECT_EQ(rig.routing.zFindReviewBoard(), 1);
    EXPECT_TRUE(rig.asked.empty());
}

TEST(GameRouting, ForAReviewTheRelationCountsAndNotTheGamesNumber) {
    RoutingRig rig;
    rig.addGame(0, 2);
    rig.addGame(12, -100);
    EXPECT_EQ(rig.routing.zFindReviewBoard(), 1);
}

TEST(GameRouting, ZFindReviewBoardOpensExactlyOneBoard) {
    RoutingRig rig;
    rig.addGame(12, 1);
    EXPECT_EQ(rig.routing.zFindReviewBoard(), 1);
    EXPECT_EQ(rig.asked, std::vector<std::string>{"open"});
}

TEST(GameRouting, ZFindReviewBoardGivesMinusOneWhenNoBoardCanBeMade) {
    RoutingRig rig;
    int opened = 0;
    rig.routing.hooks.zNewBoard = [&] { ++opened; };
    EXPECT_EQ(rig.routing.zFindReviewBoard(), -1);
    EXPECT_EQ(opened, 1);
}

TEST(GameRouting, ALineForAGameThatHasABoardLeavesNewGameFlagFalse) {
    RoutingRig rig;
    rig.addIdle();
    Game& board = rig.addGame(12, 1);
    modChess.NewGameFlag = true;
    EXPECT_TRUE(rig.routing.zStyle12Line(LineOf{.game = 12, .relation = -1}.text(), true));
    EXPECT_FALSE(modChess.NewGameFlag);
    EXPECT_EQ(board.xMyRel(), "-1");
    EXPECT_EQ(rig.boards[0]->gameIndex, 0);
}

TEST(GameRouting, ANewGameReusesTheOlderIdleBoardAndRaisesNewGameFlag) {
    RoutingRig rig;
    rig.addIdle();
    rig.addIdle();
    EXPECT_TRUE(rig.routing.zStyle12Line(LineOf{.game = 12}.text(), true));
    EXPECT_TRUE(modChess.NewGameFlag);
    EXPECT_EQ(rig.boards[0]->gameIndex, 12);
    EXPECT_EQ(rig.boards[1]->gameIndex, 0);
    EXPECT_TRUE(rig.asked.empty());
}

TEST(GameRouting, ALineWithGameNumberZeroRaisesNewGameFlag) {
    RoutingRig rig;
    rig.addIdle();
    EXPECT_TRUE(rig.routing.zStyle12Line(LineOf{.game = 0}.text(), true));
    EXPECT_TRUE(modChess.NewGameFlag);
}

TEST(GameRouting, ALineWithNoIdleBoardOpensANewOne) {
    RoutingRig rig;
    rig.addGame(3, 0);
    EXPECT_TRUE(rig.routing.zStyle12Line(LineOf{.game = 12}.text(), true));
    EXPECT_EQ(rig.asked, std::vector<std::string>{"open"});
    EXPECT_TRUE(modChess.NewGameFlag);
    EXPECT_EQ(rig.boards[1]->gameIndex, 12);
    EXPECT_EQ(rig.boards[0]->gameIndex, 3);
}

TEST(GameRouting, ALineForWhichNoBoardCanBeHadIsFalse) {
    RoutingRig rig;
    rig.routing.hooks.zNewBoard = [] {};
    EXPECT_FALSE(rig.routing.zStyle12Line(LineOf{}.text(), true));
    rig.routing.hooks.zNewBoard = [] { throw Fault(FaultKind::File, "no window"); };
    EXPECT_FALSE(rig.routing.zStyle12Line(LineOf{}.text(), true)) << "faults are passed over";
    EXPECT_EQ(modChess.Record.GameNumber, 12) << "the shared record is read all the same";
}

TEST(GameRouting, ALineThatIsNoStyle12LineChangesNothing) {
    RoutingRig rig;
    rig.addIdle();
    modChess.NewGameFlag = true;
    EXPECT_FALSE(rig.routing.zStyle12Line("You are observing game 12.\r\n", true));
    EXPECT_FALSE(rig.routing.zStyle12Line("<12> too few tokens\r\n", true));
    EXPECT_EQ(modChess.Record, Style12Record{});
    EXPECT_TRUE(modChess.NewGameFlag);
}

TEST(GameRouting, ALineWithABadFieldIsDeliveredWithTheOldValueOfIt) {
    RoutingRig rig;
    rig.addIdle();
    modChess.Record.MoveNumber = 9;
    std::string line = LineOf{.game = 12}.text();
    line.replace(line.find(" 1 none"), 2, " one");
    EXPECT_TRUE(rig.routing.zStyle12Line(line, true));
    EXPECT_EQ(rig.boards[0]->Style12Record.MoveNumber, 9);
    EXPECT_EQ(rig.boards[0]->gameIndex, 12);
}

TEST(GameRouting, NotFullTakesPositionSideAndFlipOnly) {
    RoutingRig rig;
    rig.addGame(5, 1);
    modChess.Record.GameNumber = 5;
    EXPECT_TRUE(rig.routing.zStyle12Line(LineOf{.turn = "B", .game = 12, .flip = 1}.text(), false));
    EXPECT_EQ(modChess.Record.GameNumber, 5);
    EXPECT_EQ(modChess.Record.WhiteName, "");
    EXPECT_EQ(rig.boards[0]->Style12Record.SideToMove, 1);
}

TEST(GameRouting, ZGameParmsSaysWhetherNoBoardHasTheGame) {
    RoutingRig rig;
    rig.addGame(12, 1);
    bool free = true;
    modChess.Record.GameNumber = 12;
    rig.routing.zGameParms(free);
    EXPECT_FALSE(free);
    modChess.Record.GameNumber = 13;
    rig.routing.zGameParms(free);
    EXPECT_TRUE(free);
    modChess.Record.GameNumber = -13;
    free = false;
    rig.routing.zGameParms(free);
    EXPECT_TRUE(free) << "a negative number stands for itself here";
}
