// The end of a move by mouse: pre-moves queued, replaced and taken back; moves played and written down.
#include "board/MoveInputRig.h"

#include <gtest/gtest.h>

namespace {

using Effects = std::vector<std::string>;

// The opponent is to move; a piece lifted now is a pre-move.
struct Waiting : MoveInputRig {
    Waiting() { openWaiting(); }
    bool queued(const std::string& from, const std::string& to) const {
        return game.PreMoveSet && game.PreFrom == zSquareNumber(from) && game.PreTo == zSquareNumber(to);
    }
};

// A game on this board alone: `Turn` moves, white first.
struct Local : MoveInputRig {
    Local() {
        game.zFor(true);
        effects.clear();
    }
};

struct MyGame : MoveInputRig {
    MyGame() { openWith(MyMove); }
};

} // namespace

// Pre-moves

TEST(PreMove, TheFirstOneIsQueuedAndBothSquaresTakeItsColour) {
    Waiting rig;
    rig.press("g1");
    rig.effects.clear();
    rig.release("f3");
    EXPECT_EQ(rig.all("draw"), (Effects{"draw 6 1", "draw 21 1"}));
    EXPECT_TRUE(rig.queued("g1", "f3"));
    EXPECT_EQ(rig.game.ToSq, 21);
    EXPECT_EQ(rig.game.hand.FromSet, 0);
    EXPECT_GT(rig.place("picture"), rig.place("draw 21 1")) << "the image becomes the picture then";
    EXPECT_TRUE(rig.all("send").empty());
}

TEST(PreMove, PutBackOnItsSquareNothingIsQueued) {
    Waiting rig;
    rig.drag("g1", "g1");
    EXPECT_FALSE(rig.game.PreMoveSet);
    EXPECT_EQ(rig.game.hand.FromSet, 0);
    EXPECT_EQ(rig.all("draw").back(), "draw 6 0") << "and the square is plain again";
}

TEST(PreMove, ASecondOneReplacesItAndTheFirstPairLosesItsColour) {
    Waiting rig;
    rig.queue("g1", "f3");
    rig.press("d2");
    rig.effects.clear();
    rig.release("d4");
    EXPECT_EQ(rig.all("draw"), (Effects{"draw 6 0", "draw 21 0", "draw 11 1", "draw 27 1"}));
    EXPECT_TRUE(rig.queued("d2", "d4"));
    EXPECT_EQ(rig.game.hand.FromSet, 0);
}

TEST(PreMove, DroppingOnItsOwnOriginWhileAnotherIsQueuedTakesThatBack) {
    Waiting rig;
    rig.queue("g1", "f3");
    rig.press("d2");
    rig.effects.clear();
    rig.release("d2");
    EXPECT_EQ(rig.all("draw"), (Effects{"draw 6 0", "draw 21 0", "draw 11 0"}));
    EXPECT_FALSE(rig.game.PreMoveSet);
    EXPECT_EQ(rig.game.hand.FromSet, 0);
}

TEST(PreMove, NoRuleIsTestedWhenItIsQueued) {
    Waiting rig;
    rig.queue("a1", "h8");
    EXPECT_TRUE(rig.queued("a1", "h8"));
    rig.queue("e1", "d1");
    EXPECT_TRUE(rig.queued("e1", "d1"));
}

TEST(PreMove, WithTheSettingOffNothingIsLifted) {
    Waiting rig;
    modChess.PreMoveOK = 0;
    rig.press("g1");
    EXPECT_FALSE(rig.game.hand.Dragging);
}

TEST(PreMove, LetGoBesideTheBoardItIsTakenBack) {
    Waiting rig;
    rig.queue("g1", "f3");
    rig.press("d2");
    rig.input.zMouseUp(5000, -5000);
    EXPECT_FALSE(rig.game.PreMoveSet);
    EXPECT_FALSE(rig.game.hand.Dragging);
}

TEST(PreMove, ItIsPlayedByTheNextPosition) {
    Waiting rig;
    rig.queue("g1", "f3");
    rig.move("h5"); // the pointer rests on no piece of the user's
    rig.receive(Answered);
    EXPECT_EQ(rig.all("send"), Effects{"send g1-f3"});
    EXPECT_FALSE(rig.game.PreMoveSet);
    EXPECT_EQ(rig.game.Board[21], 5);
    EXPECT_GT(rig.place("send g1-f3"), rig.place("sound move.wav 3"));
    EXPECT_EQ(rig.game.PositionStore.plies[2][36], -6);
}

TEST(PreMove, AnIllegalOneGoesBackWithoutAWord) {
    Waiting rig;
    rig.queue("g1", "g5");
    rig.move("h5");
    rig.receive(Answered);
    EXPECT_TRUE(rig.all("send").empty());
    EXPECT_FALSE(rig.game.PreMoveSet);
    EXPECT_EQ(rig.game.Board[6], 5);
    EXPECT_GT(rig.all("draw").size(), 2U);
    EXPECT_TRUE(rig.saw("draw 6 0"));
}

TEST(PreMove, WithThePointerOnAnOwnPieceItIsQueuedAgainInsteadOfSent) {
    Waiting rig;
    rig.queue("g1", "f3");
    rig.move("h2"); // MoveMode is 1 from this hover
    rig.receive(Answered);
    EXPECT_TRUE(rig.all("send").empty());
    EXPECT_TRUE(rig.queued("g1", "f3"));
    EXPECT_EQ(rig.game.hand.MoveMode, 0) << "cleared after the call only";
}

TEST(PreMove, ThatOneGoesOutWithThePositionAfterIt) {
    Waiting rig;
    rig.queue("g1", "f3");
    rig.move("h2");
    rig.receive(Answered);
    rig.receive(Answered); // the server refreshes the board
    EXPECT_EQ(rig.all("send"), Effects{"send g1-f3"});
}

TEST(PreMove, APointerThatRestsWhereThePieceWasLetGoSendsItToo) {
    for (const std::int16_t dragMode : {std::int16_t{1}, std::int16_t{0}}) {
        Waiting rig;
        modChess.DragMode = dragMode;
        rig.press("g1");
        rig.release("g1"); // in drag style this puts it down
        rig.press(dragMode == 0 ? "f3" : "g1");
        rig.release("f3");
        EXPECT_TRUE(rig.queued("g1", "f3"));
        rig.receive(Answered);
        EXPECT_EQ(rig.all("send"), Effects{"send g1-f3"}) << dragMode;
    }
}

TEST(PreMove, APointerThatRestsThroughTheDelaySendsItToo) {
    Waiting rig;
    modChess.MouseSlip = 5;
    rig.drag("g1", "f3");
    rig.input.tmrSlip();
    rig.receive(Answered);
    EXPECT_EQ(rig.all("send"), Effects{"send g1-f3"});
}

TEST(PreMove, APointerThatRestsOnTheOwnPieceToBeTakenBackQueuesItAgain) {
    Waiting rig;
    rig.drag("g1", "d2");
    rig.receive(Answered);
    EXPECT_TRUE(rig.all("send").empty());
    EXPECT_TRUE(rig.queued("g1", "d2"));
}

TEST(PreMove, TheEndOfTheGameForgetsIt) {
    Waiting rig;
    rig.queue("g1", "f3");
    rig.game.zEndParms();
    EXPECT_FALSE(rig.game.PreMoveSet);
    EXPECT_EQ(rig.game.hand.MoveMode, 0);
}

// Moves

TEST(Finish, ALegalMoveOfALiveGameGoesToTheServer) {
    MyGame rig;
    rig.drag("g1", "f3");
    EXPECT_EQ(rig.all("send"), Effects{"send g1-f3"});
    EXPECT_EQ(rig.game.hand.FromSet, 0);
}

TEST(Finish, AnIllegalMoveGoesBackWithoutAWord) {
    MyGame rig;
    rig.press("g1");
    rig.effects.clear();
    rig.release("g5");
    EXPECT_EQ(rig.all("draw"), (Effects{"draw 6 0", "draw 38 0"}));
    EXPECT_TRUE(rig.all("send").empty());
    EXPECT_EQ(rig.game.Board[6], 5);
    EXPECT_EQ(rig.game.Turn, 1);
}

TEST(Finish, DroppedOnItsOriginItGivesAPlainRepaint) {
    MyGame rig;
    rig.drag("g1", "g1");
    EXPECT_TRUE(rig.saw("draw 6 0"));
    EXPECT_TRUE(rig.all("send").empty());
    EXPECT_EQ(rig.game.hand.FromSet, 0);
    rig.drag("g1", "f3");
    EXPECT_EQ(rig.all("send"), Effects{"send g1-f3"}) << "and it can be lifted again";
}

// Both squares go back, and the last target was that of the opponent's move.
TEST(Finish, DroppedOnItsOriginItTakesTheMarkOfTheLastMovesTargetAlong) {
    MyGame rig;
    rig.game.zHighlightMove("P/e7-e5");
    rig.press("g1");
    rig.effects.clear();
    rig.release("g1");
    EXPECT_EQ(rig.all("draw"), (Effects{"draw 6 0", "draw 36 0"}));
}

TEST(Finish, AnyMoveModeButOneIsTheNormalPath) {
    for (const int mode : {-1, 0}) {
        MyGame rig;
        rig.press("e2");
        rig.game.hand.MoveMode = static_cast<std::int16_t>(mode);
        rig.release("e4");
        EXPECT_EQ(rig.all("send"), Effects{"send e2-e4"}) << mode;
    }
}

TEST(Finish, BothPathsEndWithAnUpdate) {
    MyGame played;
    played.drag("e2", "e4");
    EXPECT_TRUE(played.saw("picture"));
    Waiting queued;
    queued.drag("d2", "d4");
    EXPECT_TRUE(queued.saw("picture"));
}

TEST(Finish, AMoveThatDiffersOverwritesTheStoredOneAndEndsWhatLayAhead) {
    Local rig;
    rig.game.MoveText[1][0] = "d4";
    rig.game.MoveText[1][1] = "d5";
    rig.drag("e2", "e4");
    EXPECT_EQ(rig.game.MoveText[1][0], "e4");
    EXPECT_EQ(rig.game.MoveText[1][1], "");
    EXPECT_EQ(rig.game.Deviated, 1);
    EXPECT_FALSE(rig.game.CanForward);
}

TEST(Finish, BlacksMoveBlanksWhitesNextOne) {
    Local rig;
    rig.drag("e2", "e4");
    rig.game.MoveText[1][1] = "c5";
    rig.game.MoveText[2][0] = "Nf3";
    rig.game.zFor(true);
    rig.drag("e7", "e5");
    EXPECT_EQ(rig.game.MoveText[1][1], "e5");
    EXPECT_EQ(rig.game.MoveText[2][0], "");
    EXPECT_EQ(rig.game.Deviated, 2);
}

TEST(Finish, AMoveThatRepeatsTheStoredOneWalksAlong) {
    Local rig;
    rig.game.MoveText[1][0] = "e4";
    rig.game.MoveText[1][1] = "d5";
    rig.game.Deviated = -1;
    rig.drag("e2", "e4");
    EXPECT_EQ(rig.game.MoveText[1][1], "d5");
    EXPECT_EQ(rig.game.Deviated, -1);
    EXPECT_TRUE(rig.game.CanForward);
}

TEST(Finish, InALoadedGameTheFirstMoveLeavesTheLineAndTheTextStays) {
    Local rig;
    rig.game.GameLoaded = true;
    rig.game.Deviated = 0;
    rig.game.MoveText[1][0] = "d4";
    rig.game.MoveText[1][1] = "d5";
    rig.drag("e2", "e4");
    EXPECT_EQ(rig.game.MoveText[1][0], "d4");
    EXPECT_EQ(rig.game.MoveText[1][1], "d5");
    EXPECT_EQ(rig.game.Deviated, 1);
    EXPECT_FALSE(rig.game.CanForward);
    rig.drag("e7", "e5");
    EXPECT_EQ(rig.game.Deviated, 1) << "the ply of the first move that left it";
}

TEST(Finish, AMoveThatWasNotMadeChangesNoText) {
    for (const bool loaded : {false, true}) {
        Local rig;
        rig.game.GameLoaded = loaded;
        rig.game.Deviated = 0;
        rig.game.MoveText[1][0] = "d4";
        rig.drag("e2", "e7");
        EXPECT_EQ(rig.game.MoveText[1][0], "d4");
        EXPECT_EQ(rig.game.Deviated, 0);
        EXPECT_TRUE(rig.game.CanForward);
    }
}

TEST(Finish, OnALocalBoardTheGridIsTintedAsOffTheLine) {
    Local rig;
    rig.game.GridLightOn = true;
    rig.drag("e2", "e4");
    EXPECT_EQ(rig.game.grdMoves.cells[1][1].tint, GridTint::OffLine);
}

TEST(Finish, OnALocalBoardTheGridIsTintedAsOnTheLineWhileMovesLieAhead) {
    Local rig;
    rig.game.GridLightOn = true;
    rig.game.MoveText[1][0] = "e4";
    rig.drag("e2", "e4");
    EXPECT_EQ(rig.game.grdMoves.cells[1][1].tint, GridTint::OnLine);
}

TEST(Finish, WithTheLightOffOrInALiveGameTheGridIsNotTinted) {
    Local local;
    local.drag("e2", "e4");
    EXPECT_EQ(local.game.grdMoves.cells[1][1].tint, GridTint::Plain);
    MyGame live;
    live.game.GridLightOn = true;
    live.game.grdMoves.goTo(1, 1);
    live.drag("e2", "e4");
    EXPECT_EQ(live.game.grdMoves.cells[1][1].tint, GridTint::Plain);
}

TEST(Finish, TheMoveOfRow200FaultsForBlack) {
    Local rig;
    rig.game.MoveRow = 200;
    rig.drag("e2", "e4");
    EXPECT_EQ(rig.game.MoveText[200][0], "e4");
    EXPECT_THROW(rig.drag("e7", "e5"), Fault);
}
