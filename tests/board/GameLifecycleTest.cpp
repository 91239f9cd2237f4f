// A board's life: load, taking over a record, end of game, cleared board, lines loaded.
#include "board/BoardRig.h"
#include "board/QuietGame.h"

#include <gtest/gtest.h>

#include <set>

TEST(GameLifecycle, ALoadedBoardIsIdleOnTheStartPosition) {
    BoardRig rig;
    const Game& game = rig.game;
    EXPECT_EQ(game.xMyRel(), "-100");
    EXPECT_EQ(game.gameIndex, 0);
    EXPECT_FALSE(game.icsMode);
    EXPECT_FALSE(game.GameLoaded);
    EXPECT_EQ(game.Board[0], 3);
    EXPECT_EQ(game.Board[4], 1);
    EXPECT_EQ(game.Board[60], -1);
    EXPECT_EQ(game.Turn, 1);
    EXPECT_EQ(game.hand.DragAlpha, 128);
    EXPECT_EQ(game.InitialLine, FixedStartLine);
    EXPECT_EQ(game.grdMoves.row, 1);
    EXPECT_EQ(game.grdMoves.col, 1);
    EXPECT_EQ(game.PositionStore.plies[0][60], -1);
}

TEST(GameLifecycle, TheLoadPaintsEverySquareAndPutsTheBoardAtTheStart) {
    BoardRig rig;
    rig.game.Turn = -1;
    rig.game.MoveRow = 7;
    rig.game.GameLoaded = true;
    rig.game.finishLoad();
    EXPECT_EQ(rig.all("draw").size(), 64U);
    EXPECT_EQ(rig.game.Turn, 1);
    EXPECT_EQ(rig.game.MoveRow, 1);
    EXPECT_FALSE(rig.game.GameLoaded);
}

TEST(GameLifecycle, ABoardHasNoRelationOfAnIdleOneBeforeItsLoad) { EXPECT_NE(quietGame()->xMyRel(), "-100"); }

TEST(GameLifecycle, TheLoadRaisesSelfCheckOK) {
    BoardRig rig;
    modChess.SelfCheckOK = false;
    quietGame()->beginLoad();
    EXPECT_TRUE(modChess.SelfCheckOK);
}

TEST(GameLifecycle, TheLoadStartsNoClockAndKeepsTheBoardsOrientation) {
    BoardRig rig;
    modChess.NewGameFlag = true; // a line of the server is what opened this board
    rig.game.finishLoad();
    EXPECT_FALSE(rig.saw("startClock"));
    EXPECT_FALSE(modChess.GameRunning);
    EXPECT_FALSE(rig.game.Flipped);
}

TEST(GameLifecycle, EveryBoardHasAnIdOfItsOwn) {
    std::set<std::int32_t> ids;
    for (int n = 0; n < 20; ++n) ids.insert(BoardRig().game.id);
    EXPECT_EQ(ids.size(), 20U);
}

TEST(GameLifecycle, ZGSTakesTheWholeRecordAndTheGameNumber) {
    BoardRig rig;
    modChess.Record = recordOf({.game = 33, .relation = -1});
    rig.game.zGS();
    EXPECT_EQ(rig.game.Style12Record, modChess.Record);
    EXPECT_EQ(rig.game.gameIndex, 33);
    EXPECT_EQ(rig.game.xGameNum(), 33);
    EXPECT_EQ(rig.game.xMyRel(), "-1");
}

TEST(GameLifecycle, ZGSOffersCmdUnAtRelationZeroAndTwo) {
    for (const int relation : {2, -2, 0}) {
        BoardRig rig;
        modChess.Record = recordOf({.relation = relation});
        rig.game.zGS();
        EXPECT_EQ(rig.effects, std::vector<std::string>{"un 1"}) << relation;
    }
    for (const int relation : {1, -1, -3}) {
        BoardRig rig;
        modChess.Record = recordOf({.relation = relation});
        rig.game.zGS();
        EXPECT_EQ(rig.effects, std::vector<std::string>{"un 0"}) << relation;
    }
}

TEST(GameLifecycle, CmdUnLeavesAnExaminedOrObservedGame) {
    const auto sent = [](std::int16_t relation) {
        BoardRig rig;
        rig.game.Style12Record.Relation = relation;
        rig.game.cmdUn();
        return rig.effects;
    };
    EXPECT_EQ(sent(2), std::vector<std::string>{"send unex"});
    EXPECT_EQ(sent(-2), std::vector<std::string>{"send unex"});
    EXPECT_EQ(sent(0), std::vector<std::string>{"send unob"});
    for (const std::int16_t relation : std::initializer_list<std::int16_t>{1, -1, -3, -100})
        EXPECT_TRUE(sent(relation).empty()) << relation;
}

TEST(GameLifecycle, ZEndParmsMakesTheBoardIdle) {
    BoardRig rig;
    rig.open();
    rig.game.hand.MoveMode = 1;
    rig.game.PreMoveSet = true;
    rig.game.Deviated = 7;
    rig.game.zEndParms();
    EXPECT_EQ(rig.game.xMyRel(), "-100");
    EXPECT_EQ(rig.game.gameIndex, 0);
    EXPECT_FALSE(rig.game.icsMode);
    EXPECT_EQ(rig.game.hand.MoveMode, 0);
    EXPECT_FALSE(rig.game.PreMoveSet);
    EXPECT_TRUE(rig.game.GridLightOn);
    EXPECT_TRUE(rig.game.CanForward);
    EXPECT_EQ(rig.game.Deviated, 0);
    EXPECT_EQ(rig.game.currentGame, "");
    EXPECT_EQ(rig.effects, (std::vector<std::string>{"un 0", "stopClock", "panel 2 Was Anders - Berta    [5 2]",
                                                     "panel 3 ", "title Brightrank - Board"}));
}

TEST(GameLifecycle, ZEndParmsWithoutAGameLeavesPanelTwo) {
    BoardRig rig;
    rig.game.zEndParms();
    EXPECT_EQ(rig.all("panel"), std::vector<std::string>{"panel 3 "});
}

TEST(GameLifecycle, AnEndedGameKeepsSquaresPositionsAndMoves) {
    BoardRig rig;
    rig.open();
    rig.receive({.ranks = AfterE4, .turn = "B", .moveNumber = 1, .pretty = "e4"});
    rig.game.zEndParms();
    EXPECT_EQ(rig.game.Board[28], 6);
    EXPECT_EQ(rig.game.MoveText[1][0], "e4");
    EXPECT_EQ(rig.game.PositionStore.plies[1][28], 6);
}

TEST(GameLifecycle, ZLoadPositionCountsEverySquareAsChanged) {
    BoardRig rig;
    rig.game.zLoadPosition(FixedStartLine, false);
    EXPECT_EQ(rig.all("draw").size(), 64U);
    rig.effects.clear();
    rig.game.zLoadPosition(FixedStartLine, true);
    EXPECT_TRUE(rig.all("draw").empty());
}

TEST(GameLifecycle, ZLoadPositionKeepsTheSideToMoveAndResetsTheList) {
    BoardRig rig;
    rig.open({.ranks = AfterE4, .turn = "B", .moveNumber = 1, .pretty = "e4"});
    rig.game.KingMoved.fill(true);
    rig.game.CanForward = true;
    rig.game.MoveRow = 40;
    rig.game.zLoadPosition(FixedStartLine, false);
    EXPECT_EQ(rig.game.Style12Record.SideToMove, 1);
    EXPECT_EQ(rig.game.Style12Record.GameNumber, 12) << "only position and flip are read";
    EXPECT_FALSE(rig.game.KingMoved[0]);
    EXPECT_FALSE(rig.game.KingMoved[2]);
    EXPECT_FALSE(rig.game.CanForward);
    EXPECT_EQ(rig.game.Deviated, -1);
    EXPECT_EQ(rig.game.MoveRow, 1);
    EXPECT_TRUE(rig.saw("gridSetup"));
    EXPECT_EQ(rig.game.PositionStore.plies[0][28], 0);
    EXPECT_EQ(rig.game.PositionStore.plies[0][12], 6);
}

TEST(GameLifecycle, ZLoadPositionLeavesWhatIsInTheHand) {
    BoardRig rig;
    rig.game.Board[64] = -5;
    rig.game.zLoadPosition(FixedStartLine, false);
    EXPECT_EQ(rig.game.Board[64], -5);
}

TEST(GameLifecycle, ZParseStyle12TakesAllFieldsOnlyInAServerGame) {
    BoardRig rig;
    const std::string line = LineOf{.turn = "B", .game = 44, .flip = 1}.text();
    EXPECT_TRUE(rig.game.zParseStyle12(line));
    EXPECT_EQ(rig.game.Style12Record.GameNumber, 0);
    EXPECT_EQ(rig.game.Style12Record.SideToMove, 1);
    rig.game.icsMode = true;
    EXPECT_TRUE(rig.game.zParseStyle12(line));
    EXPECT_EQ(rig.game.Style12Record.GameNumber, 44);
}

TEST(GameLifecycle, ABoardsOwnReadingRefusesALineThatEndsAfterTheFlip) {
    BoardRig rig;
    const auto before = rig.game.Style12Record;
    const std::string line = LineOf{.turn = "B"}.text("");
    EXPECT_FALSE(rig.game.zStyle12(line));
    EXPECT_FALSE(rig.game.zParseStyle12(line));
    EXPECT_FALSE(rig.game.zStyle12("no line"));
    EXPECT_EQ(rig.game.Style12Record, before);
}

TEST(GameLifecycle, MnuNewClearsTheBoard) {
    BoardRig rig;
    rig.open();
    rig.receive({.ranks = AfterE4, .turn = "B", .moveNumber = 1, .pretty = "e4"});
    rig.game.GameLoaded = true;
    rig.game.GridLightOn = true;
    rig.game.KingMoved.fill(true);
    rig.effects.clear();
    rig.game.mnuNew();
    EXPECT_EQ(rig.effects.front(), "paint");
    EXPECT_EQ(rig.all("draw").size(), 64U);
    EXPECT_EQ(rig.game.Board[12], 6);
    EXPECT_EQ(rig.game.grdMoves.text(1, 1), "");
    EXPECT_EQ(rig.game.grdMoves.row, 1);
    EXPECT_EQ(rig.game.grdMoves.col, 1);
    EXPECT_EQ(rig.game.MoveRow, 1);
    EXPECT_EQ(rig.game.Turn, 1);
    EXPECT_EQ(rig.game.grdMoves.text(1, 0), "");
    EXPECT_FALSE(rig.game.KingMoved[0]);
    EXPECT_FALSE(rig.game.KingMoved[2]);
    EXPECT_FALSE(rig.game.GameLoaded);
    EXPECT_FALSE(rig.game.GridLightOn) << "a fresh set-up clears it";
    EXPECT_TRUE(rig.saw("title New Board"));
    EXPECT_TRUE(rig.saw("save 0"));
}

TEST(GameLifecycle, ZExitMoveLeavesTheGridLightAsItIs) {
    BoardRig rig;
    rig.game.GridLightOn = true;
    rig.game.zExitMove();
    EXPECT_TRUE(rig.game.GridLightOn);
}

TEST(GameLifecycle, ZExitMoveGivesUpTheMoveInHandForFourSeconds) {
    BoardRig rig;
    rig.game.hand.Dragging = true;
    rig.game.hand.FromSet = 1;
    bool draggedInPaint = true;
    rig.game.surface.paintBoard = [&] {
        rig.note("paint");
        draggedInPaint = rig.game.hand.Dragging;
    };
    rig.game.zExitMove();
    EXPECT_TRUE(rig.game.noPlay);
    EXPECT_FALSE(rig.game.hand.Dragging);
    EXPECT_FALSE(draggedInPaint) << "the board is painted without the piece";
    EXPECT_EQ(rig.game.hand.FromSet, 0);
    EXPECT_EQ(rig.effects, (std::vector<std::string>{"startNoPlay", "paint", "picture"}));

    rig.effects.clear();
    rig.game.tmrNoPlay();
    EXPECT_FALSE(rig.game.noPlay);
    EXPECT_EQ(rig.effects.at(0), "stopNoPlay");
    EXPECT_EQ(rig.effects.at(1), "paint");
}

TEST(GameLifecycle, TmrNoPlayOnlyStopsItselfWhenPlayIsAllowedAlready) {
    BoardRig rig;
    rig.game.tmrNoPlay();
    EXPECT_EQ(rig.effects, std::vector<std::string>{"stopNoPlay"});
}

TEST(GameLifecycle, MnuCleanSetsTheBoardUpAndAllowsPlayWhenAllIsPainted) {
    BoardRig rig;
    rig.game.noPlay = true;
    rig.game.surface.keepPicture = [&rig] { rig.note("picture, no play", rig.game.noPlay); };
    rig.game.mnuClean();
    EXPECT_EQ(rig.effects, (std::vector<std::string>{"paint", "picture, no play 1"}));
    EXPECT_FALSE(rig.game.noPlay);
}

TEST(GameLifecycle, MnuInvertTurnsTheBoardSetsItUpAndUpdatesIt) {
    BoardRig rig;
    rig.game.GridLightOn = true;
    rig.game.surface.paintBoard = [&rig] { rig.note("paint, flipped", rig.game.Flipped); };
    rig.game.mnuInvert();
    EXPECT_EQ(rig.effects, (std::vector<std::string>{"paint, flipped 1", "picture"}));
    EXPECT_TRUE(rig.game.GridLightOn) << "no fresh set-up";
}

TEST(GameLifecycle, MnuInvertTurnsTheBoardAndBack) {
    BoardRig rig;
    rig.game.mnuInvert();
    EXPECT_TRUE(rig.game.Flipped);
    rig.game.mnuInvert();
    EXPECT_FALSE(rig.game.Flipped);
    EXPECT_EQ(rig.all("paint").size(), 2U);
}
