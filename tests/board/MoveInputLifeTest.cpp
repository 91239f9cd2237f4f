// What happens around a move in hand: positions that arrive, the board turned, the window closed.
#include "board/MoveInputRig.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using Effects = std::vector<std::string>;

struct Waiting : MoveInputRig {
    Waiting() { openWaiting(); }
};

// The board goes at the n-th chance, either the game alone or with all that belongs to it.
struct Closing : MoveInputRig {
    int pumps = 0;
    void closeAtPump(int n, bool gone) {
        const auto close = [this, n, gone] {
            if (++pumps != n) return;
            if (gone) {
                destroy();
            } else {
                effects.clear();
                game.windowClosed();
            }
        };
        game.surface.pump = close;
        game.surface.popupPromote = close;
    }
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
    EXPECT_TRUE(rig.game.Dragging);
    EXPECT_EQ(rig.game.FromSq, 6);
    EXPECT_EQ(rig.game.FromSet, 1);
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

TEST(ArrivingPosition, ADelayGoesOnAndEndsInTheNewPosition) {
    Waiting rig;
    modChess.MouseSlip = 9;
    rig.drag("g1", "f3");
    rig.receive(Answered);
    EXPECT_EQ(rig.slip, 2035);
    rig.input.tmrSlip();
    EXPECT_EQ(rig.all("send"), Effects{"send g1-f3"});
}

TEST(ArrivingPosition, ADropWhileItArrivesIsQueuedFromItsOwnOriginAndPlayedAtItsEnd) {
    Waiting rig;
    rig.press("g1");
    bool dropped = false;
    rig.game.surface.pump = [&] {
        if (std::exchange(dropped, true)) return;
        EXPECT_EQ(rig.game.FromSq, 52) << "the square that emptied";
        rig.release("f3");
    };
    rig.receive(Answered);
    EXPECT_EQ(rig.all("send"), Effects{"send g1-f3"});
}

TEST(ArrivingPosition, MayComeWhileThePromotionIsAskedFor) {
    MoveInputRig rig;
    const std::string before = "----k--- P------- -------- -------- -------- -------- -------- ----K---";
    rig.openWith({.ranks = before});
    rig.game.surface.popupPromote = [&rig, &before] {
        rig.receive({.ranks = before, .relation = 1, .moveNumber = 1, .pretty = "none"});
        rig.game.PromotePiece = 2;
    };
    rig.drag("a7", "a8");
    EXPECT_EQ(rig.all("send"), Effects{"send a7-a8=Q+"});
    EXPECT_FALSE(rig.game.Dragging);
}

TEST(ArrivingPosition, TheGameMayEndWhileThePromotionIsAskedFor) {
    MoveInputRig rig;
    rig.openWith({.ranks = "----k--- P------- -------- -------- -------- -------- -------- ----K---"});
    rig.game.surface.popupPromote = [&rig] {
        rig.game.zEndParms();
        rig.game.PromotePiece = 2;
    };
    rig.drag("a7", "a8");
    EXPECT_TRUE(rig.all("send").empty()) << "there is no game to move in any more";
    EXPECT_FALSE(rig.game.Dragging);
}

TEST(ArrivingPosition, ANewGameUnderThePromotionMenuGetsNoMoveOfTheOldOne) {
    MoveInputRig rig;
    rig.openWith({.ranks = "----k--- P------- -------- -------- -------- -------- -------- ----K---"});
    rig.game.surface.popupPromote = [&rig] {
        rig.game.zEndParms();
        rig.open({.game = 13});
        rig.game.zExitMove();
        rig.effects.clear();
        rig.game.PromotePiece = 2;
    };
    rig.drag("a7", "a8");
    EXPECT_TRUE(rig.all("send").empty());
    EXPECT_EQ(rig.game.Board[48], -6);
    EXPECT_EQ(rig.game.Board[56], -3);
    EXPECT_EQ(rig.all("draw"), (Effects{"draw 48 0", "draw 56 0"}));
}

// The game ends

TEST(GameEnds, InTheMiddleOfADragNothingIsSentAndTheBoardIsTheUsersOwn) {
    MoveInputRig rig;
    rig.openWith(MyMove);
    rig.press("e2");
    rig.game.zEndParms();
    EXPECT_TRUE(rig.game.Dragging);
    rig.release("e4");
    EXPECT_TRUE(rig.all("send").empty());
    EXPECT_FALSE(rig.game.Dragging);
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
    EXPECT_FALSE(rig.game.Dragging);
}

// A new game, a repaint

TEST(MoveInHand, ANewGameOnTheBoardGivesItUp) {
    Waiting rig;
    rig.press("g1");
    rig.game.zExitMove();
    EXPECT_FALSE(rig.game.Dragging);
    EXPECT_EQ(rig.game.FromSet, 0);
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
    EXPECT_TRUE(rig.game.Dragging);
    rig.press("e3");
    EXPECT_EQ(rig.all("send"), Effects{"send e2-e3"});
}

// The window closes

TEST(MoveInputClosed, EveryRoutineEndsAtTheFirstChanceAndTouchesNothingMore) {
    const std::vector<std::function<void(Closing&)>> routines{
        [](Closing& rig) { rig.input.mouseUp(1, 27, 27); },                   // a7 to a8, promotion and update
        [](Closing& rig) { rig.input.zMouseUp(27, 27); },                     //
        [](Closing& rig) { rig.input.tmrSlip(); },                            //
        [](Closing& rig) { rig.input.zSqFinish(56); },                        //
        [](Closing& rig) { rig.game.MoveMode = 1, rig.input.zSqFinish(40); }, // a pre-move
        [](Closing& rig) { modChess.DragMode = 0, rig.press("a8"); },         // the second click
    };
    for (std::size_t which = 0; which < routines.size(); ++which) {
        for (const bool gone : {false, true}) {
            for (int at = 1;; ++at) {
                Closing rig;
                rig.openWith({.ranks = "----k--- P------- -------- -------- -------- -------- -------- ----K---"});
                rig.press("a7");
                rig.input.SlipX = rig.input.SlipY = 27;
                rig.closeAtPump(at, gone);
                routines[which](rig);
                if (rig.pumps < at) {
                    EXPECT_GT(at, 1) << "routine " << which << " never pumped";
                    break;
                }
                EXPECT_TRUE(rig.effects.empty()) << which << " at " << at << ": " << rig.effects.front();
            }
        }
    }
}

TEST(MoveInputClosed, APreMoveThatIsPlayedWhileTheWindowClosesEndsTheUpdate) {
    Waiting rig;
    rig.queue("g1", "f3");
    rig.move("h5");
    int pumps = 0;
    rig.game.surface.pump = [&] {
        if (++pumps == 2) rig.destroy();
    };
    modChess.Record = recordOf(Answered);
    rig.game.zGS();
    EXPECT_FALSE(rig.game.zSetPosition(false));
    EXPECT_TRUE(rig.effects.empty());
}

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
