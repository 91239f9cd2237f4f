// The end of games.
#include "board/RoutingRig.h"

#include <gtest/gtest.h>

namespace {

using Asked = std::vector<std::string>;

// Two boards: an idle one and game 12 with the given relation.
struct EndRig : RoutingRig {
    Game& idle = addIdle();
    Game& board;
    explicit EndRig(std::int16_t relation) : board(addGame(12, relation)) { modChess.GameRunning = true; }
};

} // namespace

TEST(EndGame, APlayedGameEndsWithTheFightBell) {
    EndRig rig(1);
    modChess.SoundMove = 2;
    rig.routing.zEndGame("{Game 12 (a vs b) a resigns} 1-0\r\n");
    EXPECT_EQ(rig.asked, Asked{"sound fitebell.wav 2"});
    EXPECT_EQ(rig.board.xMyRel(), "-100");
    EXPECT_EQ(rig.board.gameIndex, 0);
    EXPECT_FALSE(modChess.GameRunning);
}

TEST(EndGame, TheSeekGraphComesBackWhenItsMenuIsChecked) {
    for (const std::int16_t relation : std::initializer_list<std::int16_t>{1, -1, 2, -2, -3}) {
        EndRig rig(relation);
        rig.routing.hooks.seekGraphChecked = [] { return true; };
        rig.routing.zEndGame("{Game 12 (a vs b) a resigns} 1-0\r\n");
        EXPECT_EQ(rig.asked, (Asked{"sound fitebell.wav 3", "seek"})) << relation;
    }
}

TEST(EndGame, AnObservedGameEndsWithABeep) {
    EndRig rig(0);
    rig.routing.hooks.seekGraphChecked = [] { return true; };
    rig.routing.zEndGame("Removing game 12 from observation list.\r\n");
    EXPECT_EQ(rig.asked, Asked{"beep"});
    EXPECT_EQ(rig.board.gameIndex, 0);
}

TEST(EndGame, TheNumberIsReadBehindGameOfEitherCase) {
    for (const char* line :
         {"{Game 12 (a vs b) b forfeits on time} 1-0\r\n", "You are no longer examining game 12.\r\n"}) {
        EndRig rig(1);
        rig.routing.zEndGame(line);
        EXPECT_EQ(rig.board.gameIndex, 0) << line;
    }
}

TEST(EndGame, ALineThatNamesNoGameIsOfGameZero) {
    EndRig rig(1);
    openWindows.windows.erase(openWindows.windows.begin());
    const Game& first = rig.addGame(1, 1);
    rig.routing.zEndGame("nobody resigns} 1-0\r\n");
    EXPECT_EQ(first.gameIndex, 1);
}

TEST(EndGame, ALineThatNamesNoGameEndsNone) {
    for (const char* line : {"nobody resigns} 1-0\r\n", "{12 (a vs b) a resigns} 1-0\r\n", "By 12 of us} 1-0\r\n"}) {
        EndRig rig(1);
        openWindows.windows.erase(openWindows.windows.begin()); // the idle board, which comes first
        rig.routing.zEndGame(line);
        EXPECT_EQ(rig.board.gameIndex, 12) << line;
        EXPECT_TRUE(modChess.GameRunning) << line;
    }
}

// Right behind "game" its first digit is the one that is not read: "game12" is game 2, and "game7" none.
TEST(EndGame, TheNumberBeginsFourCharactersBehindTheAme) {
    EndRig rig(1);
    const Game& second = rig.addGame(2, 1);
    rig.routing.zEndGame("{game12 (a vs b) a resigns} 1-0\r\n");
    EXPECT_EQ(rig.board.gameIndex, 12);
    EXPECT_EQ(second.gameIndex, 0);
    rig.routing.zEndGame("ame 12} 1-0\r\n");
    EXPECT_EQ(rig.board.gameIndex, 0);
    const Game& seventh = rig.addGame(7, 1);
    rig.routing.zEndGame("{game7 (a vs b) a resigns} 1-0\r\n");
    EXPECT_EQ(seventh.gameIndex, 7);
}

TEST(EndGame, ANumberOnNoBoardOnlyClearsGameRunning) {
    for (const char* line : {"{Game 99 (c vs d) c resigns} 1-0\r\n", "Game aborted.\r\n", "} 1-0\r\n", "game"}) {
        EndRig rig(1);
        rig.routing.zEndGame(line);
        EXPECT_EQ(rig.board.gameIndex, 12) << line;
        EXPECT_TRUE(rig.asked.empty()) << line;
        EXPECT_FALSE(modChess.GameRunning) << line;
    }
}

TEST(EndGame, ANumberPast16BitsFaultsAndEndsNothing) {
    EndRig rig(1);
    EXPECT_THROW(rig.routing.zEndGame("{Game 99999 (c vs d) c resigns} 1-0\r\n"), Fault);
    EXPECT_EQ(rig.board.gameIndex, 12);
}

TEST(EndGame, ARelationOfFourOrMoreIsNoLiveOne) {
    for (const std::int16_t relation : std::initializer_list<std::int16_t>{4, -4, -100}) {
        EndRig rig(relation);
        rig.routing.zEndGame("{Game 12 (a vs b) a resigns} 1-0\r\n");
        EXPECT_EQ(rig.board.gameIndex, 12) << relation;
        EXPECT_TRUE(rig.asked.empty()) << relation;
        EXPECT_FALSE(modChess.GameRunning) << relation;
    }
}

TEST(EndGame, WithoutAnyBoardThatFitsGameRunningStays) {
    RoutingRig rig;
    rig.addGame(12, 1);
    modChess.GameRunning = true;
    rig.routing.zEndGame("Game aborted.\r\n");
    EXPECT_TRUE(modChess.GameRunning);
    EXPECT_EQ(rig.boards[0]->gameIndex, 12);
}

TEST(EndGame, TheLossOfTheConnectionEndsEveryGame) {
    EndRig rig(1);
    openWindows.add({"frmChat", &rig, {}});
    Game& observed = rig.addGame(14, 0);
    rig.routing.zEndAllGames();
    EXPECT_EQ(rig.board.gameIndex, 0);
    EXPECT_EQ(observed.gameIndex, 0);
    EXPECT_EQ(observed.xMyRel(), "-100");
    EXPECT_FALSE(modChess.GameRunning);
    EXPECT_TRUE(rig.asked.empty());
}

TEST(EndGame, TheLossOfTheConnectionEndsTheBoardsWithGameNumber0Too) {
    RoutingRig rig;
    const Game& idle = rig.addIdle();
    const Game& unnumbered = rig.addGame(0, 1);
    modChess.GameRunning = true;
    rig.routing.zEndAllGames();
    EXPECT_EQ(unnumbered.xMyRel(), "-100");
    EXPECT_TRUE(idle.CanForward);
    EXPECT_TRUE(idle.GridLightOn);
    EXPECT_EQ(idle.Deviated, 0);
}

TEST(EndGame, WithIdleBoardsAloneTheLossOfTheConnectionClearsGameRunning) {
    RoutingRig rig;
    rig.addIdle();
    modChess.GameRunning = true;
    rig.routing.zEndAllGames();
    EXPECT_FALSE(modChess.GameRunning);
}

TEST(EndGame, WithoutABoardTheLossOfTheConnectionLeavesGameRunning) {
    RoutingRig rig;
    modChess.GameRunning = true;
    rig.routing.zEndAllGames();
    EXPECT_TRUE(modChess.GameRunning);
}
