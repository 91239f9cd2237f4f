// What happens around a move in hand: positions that arrive, the board turned, the window closed.
#include "board/MoveInputRig.h"

#include <gtest/gtest.h>

namespace {

using Effects = std::vector<std::string>;

struct Waiting : MoveInputRig {
    Waiting() { openWaiting(); }
};

} // namespace

// Positions

TEST(ArrivingPosition, APieceInHandStaysOnThePointerAndKeepsItsOrigin) {
    Waiting rig;
    rig.press("g1");
    rig.move("f4", 1);
    rig.effects.clear();
    rig.receive(Answered);
    EXPECT_EQ(rig.effects.at(1), "piece 0 0 0");
    EXPECT_EQ(rig.effects.back(), rig.pieceAt("f4", 128));
    EXPECT_TRUE(rig.game.hand.Dragging);
    EXPECT_EQ(rig.game.FromSq, 6);
    EXPECT_EQ(rig.game.hand.FromSet, 1);
}

TEST(ArrivingPosition, APreMoveInHandIsThenPlayedAsAMove) {
    Waiting rig;
    rig.press("g1");
    rig.receive(Answered);
    rig.release("f3");
    EXPECT_EQ(rig.all("send"), Effects{"send g1-f3"});
    EXPECT_FALSE(rig.game.PreMoveSet);
}

TEST(ArrivingPosition, APieceLiftedBeforeTheFirstMoveOfThePointerIsPutBackWhereItWasLifted) {
    Waiting rig;
    rig.press("g1");
    rig.receive(Answered);
    EXPECT_EQ(rig.effects.back(), rig.pieceAt("g1", 128));
}

TEST(ArrivingPosition, APieceWhoseTurnAQueuedPreMoveHasTakenGoesBackAndBothItsSquaresArePlain) {
    Waiting rig;
    rig.queue("g1", "f3");
    rig.press("d2");
    rig.receive(Answered);
    rig.effects.clear();
    rig.release("d4");
    EXPECT_EQ(rig.all("draw"), (Effects{"draw 11 0", "draw 27 0"}));
    EXPECT_TRUE(rig.all("send").empty());
}

TEST(ArrivingPosition, ADelayGoesOnAndEndsInTheNewPosition) {
    Waiting rig;
    modChess.MouseSlip = 9;
    rig.drag("g1", "f3");
    rig.receive(Answered);
    EXPECT_EQ(rig.slip, 2035);
    rig.input.tmrSlip();
    EXPECT_EQ(rig.all("send"), Effects{"send g1-f3"});
}

// The game ends

TEST(GameEnds, InTheMiddleOfADragNothingIsSentAndTheBoardIsTheUsersOwn) {
    MoveInputRig rig;
    rig.openWith(MyMove);
    rig.press("e2");
    rig.game.zEndParms();
    EXPECT_TRUE(rig.game.hand.Dragging);
    rig.release("e4");
    EXPECT_TRUE(rig.all("send").empty());
    EXPECT_FALSE(rig.game.hand.Dragging);
    EXPECT_EQ(rig.game.Board[28], 6);
    EXPECT_EQ(rig.game.grdMoves.text(1, 1), "e4");
}

TEST(GameEnds, APreMoveInHandIsNotQueuedAnyMore) {
    Waiting rig;
    rig.press("g1");
    rig.game.zEndParms();
    rig.release("f3");
    EXPECT_FALSE(rig.game.PreMoveSet);
    EXPECT_TRUE(rig.all("send").empty());
}

TEST(GameEnds, TheDelayThatRunsSendsNothing) {
    MoveInputRig rig;
    rig.openWith(MyMove);
    modChess.MouseSlip = 9;
    rig.drag("e2", "e4");
    rig.game.zEndParms();
    rig.input.tmrSlip();
    EXPECT_TRUE(rig.all("send").empty());
    EXPECT_FALSE(rig.game.hand.Dragging);
}

// A new game, a repaint

TEST(MoveInHand, ANewGameOnTheBoardGivesItUp) {
    Waiting rig;
    rig.press("g1");
    rig.game.zExitMove();
    EXPECT_FALSE(rig.game.hand.Dragging);
    EXPECT_EQ(rig.game.hand.FromSet, 0);
    rig.effects.clear();
    rig.release("f3");
    EXPECT_TRUE(rig.effects.empty());
}

TEST(MoveInHand, AWholeRepaintPutsThePieceBackOnThePointer) {
    Waiting rig;
    rig.press("g1");
    rig.move("f4", 1);
    rig.effects.clear();
    rig.input.boardPainted();
    EXPECT_EQ(rig.effects, (Effects{"draw 6 1", "yank 6", rig.pieceAt("f4", 128)}));
}

TEST(MoveInHand, AWholeRepaintTakesNoPieceFromASquareThatAnotherHasTaken) {
    Waiting rig;
    rig.press("g1");
    rig.game.Board[6] = -2;
    rig.effects.clear();
    rig.input.boardPainted();
    EXPECT_EQ(rig.effects, Effects{rig.pieceAt("g1", 128)});
}

TEST(MoveInHand, ARepaintWithoutAPieceInHandChangesNothing) {
    Waiting rig;
    rig.input.boardPainted();
    EXPECT_TRUE(rig.effects.empty());
}

TEST(MoveInHand, TheBoardTurnedInTheMiddleOfADragChangesWhereItLands) {
    MoveInputRig rig;
    rig.openWith(MyMove);
    rig.press("e2");
    rig.turnBoard();
    rig.input.mouseUp(1, 3 * 54 + 27, 3 * 54 + 27);
    EXPECT_EQ(rig.all("send"), Effects{"send e2-e4"});
}

TEST(MoveInHand, SettingsMayChangeInTheMiddleOfIt) {
    MoveInputRig rig;
    rig.openWith(MyMove);
    rig.press("e2");
    modChess.DragMode = 0;
    rig.release("e4");
    EXPECT_TRUE(rig.game.hand.Dragging);
    rig.press("e3");
    EXPECT_EQ(rig.all("send"), Effects{"send e2-e3"});
}

// The window closes

TEST(MoveInputClosed, StoppingEndsTheDelayAndGivesThePieceUp) {
    MoveInputRig rig;
    rig.openWith(MyMove);
    modChess.MouseSlip = 11;
    rig.drag("e2", "e4");
    rig.input.stop();
    EXPECT_EQ(rig.slip, 0);
    rig.release("e4");
    rig.input.tmrSlip();
    EXPECT_TRUE(rig.all("send").empty());
}
