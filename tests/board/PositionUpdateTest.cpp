// zSetPosition: line in, effects out, in the fixed order of its steps.
#include "board/BoardRig.h"

#include "common/Fault.h"

#include <gtest/gtest.h>

namespace {

const LineOf WhitePlaysE4{
    .ranks = AfterE4, .turn = "B", .relation = -1, .moveNumber = 1, .verbose = "P/e2-e4", .pretty = "e4"};
const LineOf BlackPlaysE5{.ranks = AfterE4E5, .moveNumber = 2, .verbose = "P/e7-e5", .pretty = "e5"};

// A game that has begun with 1. e4.
struct GameAfterE4 : BoardRig {
    GameAfterE4() {
        open();
        receive(WhitePlaysE4);
        effects.clear();
    }
};

std::string soundOf(const std::string& pretty) {
    BoardRig rig;
    modChess.SoundMove = 2;
    rig.open();
    rig.receive({.moveNumber = 3, .pretty = pretty});
    return rig.all("sound").at(0);
}

} // namespace

TEST(SetPosition, DoesItsStepsInOrder) {
    BoardRig rig;
    rig.open();
    rig.receive(WhitePlaysE4);
    const std::vector<std::string> expected{"un 0",          "draw 12 0",     "draw 28 0",        "picture",
                                            "cell 1 0 [1]",  "cell 1 1 [e4]", "last 1. e4",       "sound move.wav 3",
                                            "draw 0 0",      "draw 0 0",      "draw 12 -1",       "draw 28 -1",
                                            "clock 0  5:00", "clock 1  5:00", "color 1 16777215", "color 0 2147483663"};
    EXPECT_EQ(rig.effects, expected);
}

TEST(SetPosition, OnlyChangedSquaresArePainted) {
    GameAfterE4 rig;
    rig.receive(BlackPlaysE5);
    EXPECT_EQ(rig.all("draw").size(), 2U + 4U) << "two squares and the marks";
    EXPECT_EQ(rig.game.Board[36], -6);
    EXPECT_EQ(rig.game.Board[52], 0);
}

TEST(SetPosition, NoShowPaintsNoSquareButTakesThem) {
    BoardRig rig;
    rig.game.Style12Record.Position = recordOf(WhitePlaysE4).Position;
    rig.game.zSetPosition(true, true);
    EXPECT_TRUE(rig.all("draw").empty());
    EXPECT_EQ(rig.game.Board[28], 6);
}

TEST(SetPosition, InitLeavesListSoundsAndClocksAlone) {
    GameAfterE4 rig;
    modChess.Record = recordOf(BlackPlaysE5);
    rig.game.zGS();
    rig.effects.clear();
    rig.game.zSetPosition(true);
    EXPECT_EQ(rig.effects, (std::vector<std::string>{"draw 36 0", "draw 52 0", "picture"}));
    EXPECT_EQ(rig.game.MoveRow, 1);
    EXPECT_EQ(rig.game.NextPly, 3);
}

TEST(SetPosition, APositionShorterThan64CharactersEmptiesTheRest) {
    BoardRig rig;
    rig.game.Style12Record.Position = "RNBQ";
    rig.game.zSetPosition(true);
    EXPECT_EQ(rig.game.Board[3], 2);
    EXPECT_EQ(rig.game.Board[4], 0);
    EXPECT_EQ(rig.game.Board[63], 0);
}

TEST(SetPosition, FromSqTakesTheHighestEmptiedSquareOnlyOutsideInit) {
    for (const bool init : {false, true}) {
        BoardRig rig;
        rig.open();
        rig.game.Style12Record.Position[1] = '-';
        rig.game.Style12Record.Position[57] = '-';
        int seen = 0;
        rig.game.FromSq = 99;
        rig.game.surface.keepPicture = [&] { seen = rig.game.FromSq; };
        rig.game.zSetPosition(init);
        EXPECT_EQ(seen, init ? 99 : 57);
    }
}

TEST(SetPosition, AMoveEntersGridMoveTextAndStore) {
    GameAfterE4 rig;
    rig.receive(BlackPlaysE5);
    const Game& game = rig.game;
    EXPECT_EQ(game.grdMoves.text(1, 0), "1");
    EXPECT_EQ(game.grdMoves.text(1, 1), "e4");
    EXPECT_EQ(game.grdMoves.text(1, 2), "e5");
    EXPECT_EQ(game.MoveText[1][0], "e4");
    EXPECT_EQ(game.MoveText[1][1], "e5");
    EXPECT_EQ(game.LastRow, 1);
    EXPECT_EQ(game.LastCol, 1);
    EXPECT_EQ(game.PositionStore.plies[1][28], 6);
    EXPECT_EQ(game.PositionStore.plies[1][52], -6);
    EXPECT_EQ(game.PositionStore.plies[2][36], -6);
    EXPECT_EQ(game.NextPly, 4);
    EXPECT_EQ(game.ShownPly, 2);
    EXPECT_EQ(game.MoveRow, 2);
    EXPECT_EQ(game.Turn, 1);
}

TEST(SetPosition, TheLastMoveLabelNamesTheSide) {
    GameAfterE4 rig;
    rig.receive(BlackPlaysE5);
    EXPECT_TRUE(rig.saw("last 1.. e5"));
    rig.receive({.ranks = AfterE4E5, .turn = "B", .moveNumber = 2, .pretty = "d4"});
    EXPECT_TRUE(rig.saw("last 2. d4"));
}

TEST(SetPosition, TheFirstPositionShowsNoLastMove) {
    BoardRig rig;
    modChess.NewGameFlag = true;
    rig.receive({});
    EXPECT_EQ(rig.all("last"), std::vector<std::string>{"last "});
}

TEST(SetPosition, AnEqualPositionPaintsNothingBlanksTheMoveAheadAndStillSounds) {
    GameAfterE4 rig;
    rig.game.grdMoves.setCell(1, 2, "ahead");
    rig.effects.clear();
    rig.receive(WhitePlaysE4);
    EXPECT_EQ(rig.all("cell"), std::vector<std::string>{"cell 1 2 []"});
    EXPECT_TRUE(rig.saw("sound move.wav 3"));
    EXPECT_EQ(rig.effects.at(1), "picture") << "no square before the update";
    EXPECT_EQ(rig.game.grdMoves.text(1, 1), "e4");
}

TEST(SetPosition, ATakebackBlanksCellsAndLeavesMoveText) {
    GameAfterE4 rig;
    rig.receive(BlackPlaysE5);
    rig.effects.clear();
    rig.receive(WhitePlaysE4);
    EXPECT_EQ(rig.game.grdMoves.text(1, 2), "");
    EXPECT_EQ(rig.game.MoveText[1][1], "e5");
    rig.receive({});
    EXPECT_EQ(rig.game.grdMoves.text(1, 0), "");
    EXPECT_EQ(rig.game.grdMoves.text(1, 1), "");
    EXPECT_EQ(rig.game.MoveText[1][0], "e4");
    EXPECT_EQ(rig.game.LastRow, 1);
}

TEST(SetPosition, EveryPositionIsStoredAtItsPlyAlsoOnATakeback) {
    GameAfterE4 rig;
    rig.receive(BlackPlaysE5);
    rig.receive({.ranks = AfterE4E5, .turn = "B", .moveNumber = 1, .pretty = "e4"});
    EXPECT_EQ(rig.game.PositionStore.plies[1][36], -6);
}

TEST(SetPosition, ARowWhoseFirstMoveIsBlacksHasItsNumberToo) {
    BoardRig rig;
    rig.open({.turn = "B", .moveNumber = 4, .pretty = "d4"});
    rig.receive({.ranks = AfterE4, .turn = "W", .moveNumber = 5, .pretty = "d5"});
    EXPECT_EQ(rig.game.grdMoves.text(4, 0), "4");
    EXPECT_EQ(rig.game.grdMoves.text(4, 1), "");
    EXPECT_EQ(rig.game.grdMoves.text(4, 2), "d5");
}

TEST(SetPosition, ATakebackLeavesLastRowAndLastColWhereTheyWere) {
    BoardRig rig;
    rig.open({.moveNumber = 5, .pretty = "d5"});
    rig.receive({.turn = "B", .moveNumber = 5, .pretty = "e4"});
    rig.receive({.turn = "W", .moveNumber = 6, .pretty = "e5"});
    ASSERT_EQ(rig.game.LastRow, 5);
    rig.receive({.turn = "B", .moveNumber = 4, .pretty = "d4"});
    EXPECT_EQ(rig.game.LastRow, 5);
    EXPECT_EQ(rig.game.LastCol, 1);
    rig.receive({.turn = "W", .moveNumber = 5, .pretty = "c5"});
    EXPECT_EQ(rig.game.LastRow, 4) << "the game goes on from there";
}

TEST(SetPosition, NoneHidesTheLabelsAndForgetsNothingInHand) {
    BoardRig rig;
    rig.open();
    rig.game.zSetBughouse("<b1> game 12 white [QPP] black [R]\r\n");
    rig.effects.clear();
    rig.receive({});
    EXPECT_TRUE(rig.saw("hideHoldings"));
    EXPECT_TRUE(rig.all("hold").empty()) << "their texts stay";
    EXPECT_FALSE(rig.game.HoldingsShown);
    EXPECT_EQ(rig.game.Holdings[4][0], 2);
    EXPECT_EQ(rig.game.Holdings[1][1], 1);
}

TEST(SetPosition, AnExaminedGameWithItsListOnlyMovesTheCurrentCell) {
    BoardRig rig;
    rig.open({.relation = 2});
    rig.game.grdMoves.setCell(1, 1, "e4");
    rig.effects.clear();
    LineOf line = WhitePlaysE4;
    line.relation = 2;
    rig.receive(line);
    EXPECT_EQ(rig.game.grdMoves.row, 1);
    EXPECT_EQ(rig.game.grdMoves.col, 1);
    EXPECT_EQ(rig.game.CurRow, 1);
    EXPECT_EQ(rig.game.CurCol, 1);
    EXPECT_EQ(rig.game.MoveText[1][0], "");
    EXPECT_EQ(rig.game.grdMoves.cells[1][1].tint, GridTint::OnLine);
    EXPECT_EQ(rig.game.PositionStore.plies[1][28], 6) << "stored all the same";
}

TEST(SetPosition, TheCurrentCellOfAnExaminedGameIsThatOfTheMoveJustMade) {
    BoardRig rig;
    rig.open({.relation = 2});
    rig.receive({.relation = 2, .moveNumber = 8, .pretty = "Nf6"});
    EXPECT_EQ(rig.game.grdMoves.row, 7);
    EXPECT_EQ(rig.game.grdMoves.col, 2);
    EXPECT_EQ(rig.game.CurRow, 7);
    EXPECT_EQ(rig.game.CurCol, 2);
    EXPECT_TRUE(rig.all("cell").empty()) << "nothing is written, and no cell holds this text";
}

TEST(SetPosition, TheListScrollsSoThatTheMoveJustMadeIsInView) {
    BoardRig rig;
    rig.open();
    rig.game.grdMoves.VisibleRows = 5;
    rig.receive({.moveNumber = 10, .pretty = "Nf6"});
    EXPECT_EQ(rig.all("top"), std::vector<std::string>{"top 5"});
}

TEST(SetPosition, TheListScrollsBeforeTheMoveIsLit) {
    BoardRig rig;
    rig.open({.relation = 2});
    rig.game.grdMoves.VisibleRows = 5;
    rig.game.grdMoves.setCell(9, 2, "Nf6");
    rig.effects.clear();
    rig.receive({.relation = 2, .moveNumber = 10, .pretty = "Nf6"});
    EXPECT_GE(rig.place("top 5"), 0);
    EXPECT_LT(rig.place("top 5"), rig.place("cell 9 2 [Nf6]"));
}

TEST(SetPosition, AnExaminedGameWithoutAListWritesItsMoves) {
    BoardRig rig;
    modChess.ExamineNoMoves = true;
    rig.open({.relation = 2});
    LineOf line = WhitePlaysE4;
    line.relation = 2;
    rig.game.grdMoves.goTo(7, 2);
    rig.receive(line);
    EXPECT_EQ(rig.game.MoveText[1][0], "e4");
    EXPECT_EQ(rig.game.grdMoves.row, 7) << "the current cell stays where it was";
    EXPECT_EQ(rig.game.CurRow, 1) << "but clicks count from the move last played";
    EXPECT_EQ(rig.game.CurCol, 1);
}

TEST(SetPosition, AnExaminedGameOfOthersIsWrittenLikeAPlayedOneAndNotLit) {
    BoardRig rig;
    rig.open({.relation = -2});
    LineOf line = WhitePlaysE4;
    line.relation = -2;
    rig.game.grdMoves.goTo(1, 1);
    rig.receive(line);
    EXPECT_EQ(rig.game.MoveText[1][0], "e4");
    EXPECT_EQ(rig.game.grdMoves.text(1, 1), "e4");
    EXPECT_EQ(rig.game.CurRow, 0);
    EXPECT_EQ(rig.game.grdMoves.tintedRow, 0);
}

TEST(SetPosition, OnlyAnExaminedGameIsLit) {
    GameAfterE4 rig;
    rig.game.grdMoves.goTo(1, 1);
    rig.receive(WhitePlaysE4);
    EXPECT_EQ(rig.game.grdMoves.tintedRow, 0);
}

TEST(SetPosition, ANewGameSetsTitlePanelsModeAndClock) {
    BoardRig rig;
    modChess.NewGameFlag = true;
    rig.receive({});
    EXPECT_TRUE(rig.saw("panel 2 Anders - Berta    [5 2]"));
    EXPECT_TRUE(rig.saw("panel 3 Game 12"));
    EXPECT_TRUE(rig.saw("title Anders - Berta    [5 2]"));
    EXPECT_EQ(rig.game.currentGame, "Anders - Berta    [5 2]");
    EXPECT_TRUE(rig.game.icsMode);
    EXPECT_TRUE(rig.saw("startClock"));
    EXPECT_TRUE(modChess.GameRunning);
    EXPECT_GT(rig.place("gridSetup"), rig.place("startClock"));
    EXPECT_EQ(rig.game.MoveRow, 1);
    EXPECT_EQ(rig.game.grdMoves.text(0, 2), "Black") << "the heads are rebuilt after row 0 was written";
}

TEST(SetPosition, JoiningARunningGameSetsTheListUpAnewWithMoveRowOne) {
    BoardRig rig;
    modChess.NewGameFlag = true;
    rig.receive({.relation = 0, .moveNumber = 23, .verbose = "N/g8-f6", .pretty = "Nf6"});
    EXPECT_EQ(rig.game.MoveRow, 1);
    EXPECT_EQ(rig.game.NextPly, 46);
    EXPECT_EQ(rig.game.LastRow, 22);
    EXPECT_EQ(rig.game.MoveText[22][1], "Nf6");
    EXPECT_EQ(rig.game.grdMoves.text(22, 2), "") << "the cell is cleared with the grid";
}

TEST(SetPosition, ANewGameAtRelationTwoOrMoreStopsTheClock) {
    for (const int relation : {2, -2, -3}) {
        BoardRig rig;
        modChess.NewGameFlag = true;
        modChess.GameRunning = true;
        rig.receive({.relation = relation});
        EXPECT_TRUE(rig.saw("stopClock")) << relation;
        EXPECT_FALSE(modChess.GameRunning) << relation;
    }
}

TEST(SetPosition, ALaterPositionTouchesNeitherTitleNorClockTimer) {
    GameAfterE4 rig;
    rig.receive(BlackPlaysE5);
    EXPECT_TRUE(rig.all("title").empty());
    EXPECT_TRUE(rig.all("startClock").empty());
    EXPECT_TRUE(rig.all("stopClock").empty());
    EXPECT_TRUE(rig.all("gridSetup").empty());
}

TEST(SetPosition, TheFirstFlipTurnsTheBoardAndLaterOnesDoNot) {
    BoardRig rig;
    modChess.NewGameFlag = true;
    rig.receive({.flip = 1});
    EXPECT_TRUE(rig.game.Flipped);
    EXPECT_EQ(rig.all("paint").size(), 1U);
    modChess.NewGameFlag = false;
    rig.receive({.ranks = AfterE4, .turn = "B", .moveNumber = 1, .pretty = "e4", .flip = 0});
    EXPECT_TRUE(rig.game.Flipped);
}

// Title and clock first, then the board turns, its list is set up, and the bell rings with the labels gone.
TEST(SetPosition, AFirstPositionWithFlipBeginsTheGameInThisOrderAndRingsBehindIt) {
    BoardRig rig;
    std::vector<std::string> steps;
    const auto keep = [&steps](const std::string& step) { steps.push_back(step); };
    rig.game.surface.setTitle = [&](const std::string&) { keep("title"); };
    rig.game.surface.startClock = [&] { keep("clock runs"); };
    rig.game.surface.paintBoard = [&] { keep(rig.game.HoldingsShown ? "turned, labels on" : "turned, labels off"); };
    rig.game.grdMoves.surface.setUp = [&] { keep("list"); };
    rig.game.surface.hideHoldings = [&] { keep("labels off"); };
    rig.game.surface.playSound = [&](std::string_view name, std::int16_t) { keep(std::string(name)); };
    rig.game.HoldingsShown = true;
    modChess.NewGameFlag = true;
    rig.receive({.flip = 1});
    EXPECT_EQ(steps, (std::vector<std::string>{"title", "clock runs", "turned, labels on", "list", "labels off",
                                               "fitebell.wav"}));
}

TEST(SetPosition, AFirstPositionWithoutFlipTurnsAFlippedBoardBack) {
    BoardRig rig;
    rig.game.Flipped = true;
    modChess.NewGameFlag = true;
    rig.receive({.flip = 0});
    EXPECT_FALSE(rig.game.Flipped);
}

TEST(SetPosition, AFirstPositionWithTheBoardsOwnFlipLeavesIt) {
    BoardRig rig;
    rig.game.Flipped = true;
    modChess.NewGameFlag = true;
    rig.receive({.flip = 1});
    EXPECT_TRUE(rig.game.Flipped);
    EXPECT_TRUE(rig.all("paint").empty());
}

TEST(SetPosition, SoundsByTheMoveText) {
    EXPECT_EQ(soundOf("none"), "sound fitebell.wav 2");
    EXPECT_EQ(soundOf("NONE"), "sound fitebell.wav 2");
    EXPECT_EQ(soundOf("Nonex"), "sound capture.wav 2");
    EXPECT_EQ(soundOf("exd5"), "sound capture.wav 2");
    EXPECT_EQ(soundOf("Rxe8+"), "sound capture.wav 2");
    EXPECT_EQ(soundOf("bxa8=Q"), "sound capture.wav 2");
    EXPECT_EQ(soundOf("O-O"), "sound castle.wav 2");
    EXPECT_EQ(soundOf("O-O-O"), "sound castle.wav 2");
    EXPECT_EQ(soundOf("o-o"), "sound move.wav 2");
    EXPECT_EQ(soundOf("eXd5"), "sound move.wav 2");
    EXPECT_EQ(soundOf("N@f3"), "sound move.wav 2");
}

TEST(SetPosition, NoneHidesTheHoldings) {
    BoardRig rig;
    rig.open();
    rig.game.zSetBughouse("<b1> [P] []");
    rig.receive({.pretty = "None"});
    EXPECT_FALSE(rig.game.HoldingsShown);
    EXPECT_TRUE(rig.saw("hideHoldings"));
}

TEST(SetPosition, AGameAlreadyRunningRingsNoBellAndKeepsTheHoldings) {
    BoardRig rig;
    rig.game.zSetBughouse("<b1> [P] []");
    modChess.NewGameFlag = true;
    rig.receive(BlackPlaysE5);
    EXPECT_TRUE(rig.saw("sound move.wav 3"));
    EXPECT_TRUE(rig.game.icsMode);
    EXPECT_TRUE(rig.saw("startClock"));
    EXPECT_TRUE(rig.game.HoldingsShown);
    EXPECT_FALSE(rig.saw("hideHoldings"));
}

TEST(SetPosition, TheClockOfTheSideToMoveIsLit) {
    GameAfterE4 rig;
    rig.receive({.ranks = AfterE4E5, .whiteClock = 65, .blackClock = -3, .moveNumber = 2, .pretty = "e5"});
    EXPECT_TRUE(rig.saw("clock 0  1:05"));
    EXPECT_TRUE(rig.saw("clock 1  -0:03"));
    EXPECT_EQ(rig.game.ClockBackground[0], 0xFFFFFFU);
    EXPECT_EQ(rig.game.ClockBackground[1], 0x8000000FU);
}

TEST(SetPosition, ZReceiveMoveIgnoresItsArgument) {
    GameAfterE4 rig;
    modChess.Record = recordOf(BlackPlaysE5);
    rig.game.zGS();
    rig.effects.clear();
    rig.game.zReceiveMove(-17);
    EXPECT_EQ(rig.game.MoveText[1][1], "e5");
    EXPECT_TRUE(rig.saw("draw 52 0")) << "the square that emptied";
}

TEST(SetPosition, AQueuedPreMoveGoesOutAfterStorageSoundAndClocks) {
    GameAfterE4 rig;
    rig.game.PreMoveSet = true;
    rig.game.PreFrom = 6;
    rig.game.PreTo = 21;
    rig.game.hand.MoveMode = 1;
    rig.game.surface.zSqFinish = [&rig](int square) {
        rig.note("finish", square, "from", rig.game.FromSq, rig.game.hand.FromSet, "mode", rig.game.hand.MoveMode,
                 "queued", rig.game.PreMoveSet, "stored", rig.game.PositionStore.plies[2][36]);
    };
    rig.receive(BlackPlaysE5);
    EXPECT_EQ(rig.effects.back(), "finish 21 from 6 1 mode 1 queued 0 stored -6");
    EXPECT_GE(rig.place("sound move.wav 3"), 0);
    EXPECT_GE(rig.place("clock 0  5:00"), 0);
    EXPECT_EQ(rig.game.hand.MoveMode, 0) << "cleared only after the call";
}

TEST(SetPosition, WithoutAPreMoveTheLiftedPieceKeepsItsOrigin) {
    GameAfterE4 rig;
    rig.game.hand.DragFrom = 6;
    rig.receive(BlackPlaysE5);
    EXPECT_EQ(rig.game.FromSq, 6);
    EXPECT_EQ(rig.game.hand.FromSet, 0);
    EXPECT_TRUE(rig.all("finish").empty());
}

TEST(SetPosition, ADragSurvivesAnArrivingPosition) {
    GameAfterE4 rig;
    rig.game.hand.Dragging = true;
    rig.game.hand.MouseX = 100;
    rig.game.hand.MouseY = 50;
    rig.receive(BlackPlaysE5);
    EXPECT_EQ(rig.effects.at(1), "piece 0 0 0");
    EXPECT_EQ(rig.effects.at(rig.effects.size() - 2), "picture");
    EXPECT_EQ(rig.effects.back(), "piece 100 50 128");
    EXPECT_TRUE(rig.game.hand.Dragging);
    EXPECT_EQ(rig.game.hand.DragAlpha, 128);
}

TEST(SetPosition, TheBlendStrengthIsZeroUntilThePreMoveWasPlayed) {
    GameAfterE4 rig;
    rig.game.PreMoveSet = true;
    std::vector<int> seen;
    rig.game.surface.keepPicture = [&] { seen.push_back(rig.game.hand.DragAlpha); };
    rig.game.surface.zSqFinish = [&](int) { seen.push_back(rig.game.hand.DragAlpha); };
    rig.receive(BlackPlaysE5);
    EXPECT_EQ(seen, (std::vector<int>{0, 0}));
    EXPECT_EQ(rig.game.hand.DragAlpha, 128);
}

TEST(SetPosition, MoveRow200IsHeldAndRow201FaultsAfterTheSquaresWerePainted) {
    BoardRig rig;
    rig.open();
    rig.receive({.moveNumber = 201, .pretty = "Kb1"});
    EXPECT_EQ(rig.game.MoveText[200][1], "Kb1");
    EXPECT_EQ(rig.game.NextPly - 2, 400);
    rig.effects.clear();
    EXPECT_THROW(rig.receive({.ranks = AfterE4, .turn = "B", .moveNumber = 201, .pretty = "e4"}), Fault);
    EXPECT_TRUE(rig.saw("draw 28 0"));
    EXPECT_TRUE(rig.all("sound").empty());
}

TEST(SetPosition, APly401OfAnExaminedGameFaults) {
    BoardRig rig;
    rig.open({.relation = 2});
    EXPECT_THROW(rig.receive({.turn = "B", .relation = 2, .moveNumber = 201, .pretty = "e4"}), Fault);
}

TEST(SetPosition, AMoveNumberBelowTheStartFaults) {
    BoardRig rig;
    rig.open();
    rig.game.NextPly = -100;
    EXPECT_THROW(rig.receive({.moveNumber = 0, .pretty = "e4"}), Fault);
}

TEST(SetPosition, AMoveBelowTheStartEntersTheListAndFaultsBeforeTheGameBegins) {
    BoardRig rig;
    EXPECT_THROW(rig.open({.turn = "B", .moveNumber = 0, .pretty = "e4"}), Fault);
    EXPECT_EQ(rig.game.MoveText[0][0], "e4");
    for (const char* effect : {"last", "title", "startClock", "sound"}) EXPECT_TRUE(rig.all(effect).empty()) << effect;
}

TEST(SetPosition, APlyBelowTheStartFaultsBehindTheMarksAndBeforeTheClocks) {
    BoardRig rig;
    rig.open();
    EXPECT_THROW(rig.receive({.moveNumber = 0, .verbose = "P/e2-e4", .pretty = "e4"}), Fault);
    EXPECT_TRUE(rig.saw("draw 28 -1"));
    EXPECT_TRUE(rig.all("clock").empty());
}
