// The mouse over a board: lifting, following, letting go, the anti-slip delay.
#include "board/MoveInputRig.h"

#include "settings/MouseSlips.h"

#include <gtest/gtest.h>

#include <iterator>

namespace {

using Effects = std::vector<std::string>;

struct MyGame : MoveInputRig {
    MyGame() { openWith(MyMove); }
};

// A piece hangs on the pointer.
struct Lifted : MyGame {
    Lifted() {
        press("e2");
        effects.clear();
    }
};

// A piece was let go over e4 with a delay.
struct InDelay : Lifted {
    explicit InDelay(std::int16_t mouseSlip = 8) {
        modChess.MouseSlip = mouseSlip;
        release("e4");
        effects.clear();
    }
    bool pending() const { return game.hand.Dragging && all("send").empty(); }
    bool played() const { return !game.hand.Dragging && all("send") == Effects{"send e2-e4"}; }
};

} // namespace

// Mouse down without a piece in hand

TEST(MouseDown, NothingHappensWhileTheSelfCheckIsUnfinished) {
    MyGame rig;
    modChess.SelfCheckOK = false;
    rig.press("e2");
    EXPECT_FALSE(rig.game.hand.Dragging);
    EXPECT_TRUE(rig.effects.empty());
}

TEST(MouseDown, WhileTheSelfCheckIsUnfinishedAPieceInHandStaysThereToo) {
    Lifted clicked;
    modChess.DragMode = 0;
    modChess.SelfCheckOK = false;
    clicked.press("e4");
    EXPECT_TRUE(clicked.game.hand.Dragging);
    EXPECT_TRUE(clicked.effects.empty());
    InDelay rig;
    modChess.SelfCheckOK = false;
    rig.press("e4", InDelay::Right);
    EXPECT_TRUE(rig.pending());
    EXPECT_NE(rig.slip, 0) << "the delay goes on";
}

TEST(MouseDown, DragModeIsOnByEveryNumberButZero) {
    for (const auto mode : std::initializer_list<std::int16_t>{-1, 2}) {
        MyGame rig;
        modChess.DragMode = mode;
        rig.press("e2");
        rig.press("e4");
        EXPECT_TRUE(rig.game.hand.Dragging) << mode << ": no second click";
        rig.release("e4");
        EXPECT_EQ(rig.all("send"), Effects{"send e2-e4"}) << mode;
    }
}

TEST(MouseDown, TheLeftButtonLiftsAPieceThatMayMoveStepByStep) {
    MyGame rig;
    rig.press("e2");
    EXPECT_EQ(rig.effects, (Effects{"draw 12 -1", "picture", "yank 12", rig.pieceAt("e2", 128)}));
    EXPECT_TRUE(rig.game.hand.Dragging);
    EXPECT_EQ(rig.game.hand.DragFrom, 12);
    EXPECT_EQ(rig.game.FromSq, 12);
    EXPECT_EQ(rig.game.hand.FromSet, 1);
    EXPECT_EQ(rig.game.hand.MoveMode, -1);
}

TEST(MouseDown, APieceThatMayPreMoveLeavesItsSquareInThePreMoveColour) {
    MoveInputRig rig;
    rig.openWaiting();
    rig.press("g1");
    EXPECT_EQ(rig.effects.front(), "draw 6 1");
    EXPECT_EQ(rig.game.hand.MoveMode, 1);
    EXPECT_TRUE(rig.game.hand.Dragging);
}

TEST(MouseDown, APieceThatMayNotMoveStays) {
    MyGame rig;
    rig.game.hand.MoveMode = -1;
    for (const char* square : {"e7", "e4"}) {
        rig.press(square);
        EXPECT_FALSE(rig.game.hand.Dragging) << square;
        EXPECT_EQ(rig.game.hand.MoveMode, 0) << square;
    }
    EXPECT_TRUE(rig.effects.empty());
}

TEST(MouseDown, TheRightButtonLiftsNothingButSetsMoveMode) {
    MyGame rig;
    rig.press("e2", MyGame::Right);
    EXPECT_FALSE(rig.game.hand.Dragging);
    EXPECT_EQ(rig.game.hand.MoveMode, -1);
    EXPECT_TRUE(rig.effects.empty());
}

TEST(MouseDown, OnATurnedBoardTheSquareUnderThePointerIsLifted) {
    MyGame rig;
    rig.turnBoard();
    rig.input.mouseDown(1, 3 * 54 + 5, 54 + 5); // e2 is the fourth from the left, the second from above
    EXPECT_EQ(rig.game.hand.DragFrom, 12);
}

TEST(MouseDown, BesideTheBoardNothingIsLifted) {
    MyGame rig;
    rig.input.mouseDown(1, -1, 400);
    rig.input.mouseDown(2, 400, 432);
    EXPECT_FALSE(rig.game.hand.Dragging);
    EXPECT_TRUE(rig.effects.empty());
}

TEST(MouseDown, ForFourSecondsAfterAGameOpenedNothingIsLifted) {
    MyGame rig;
    rig.game.zExitMove();
    rig.press("e2");
    EXPECT_FALSE(rig.game.hand.Dragging);
    rig.game.tmrNoPlay();
    rig.press("e2");
    EXPECT_TRUE(rig.game.hand.Dragging);
}

// Mouse down with a piece in hand

TEST(MouseDown, InClickStyleTheSecondLeftClickMovesAtOnce) {
    MyGame rig;
    modChess.DragMode = 0;
    modChess.MouseSlip = 11; // delays belong to the drag style
    rig.press("e2");
    rig.release("e2");
    rig.press("e4");
    EXPECT_EQ(rig.all("send"), Effects{"send e2-e4"});
    EXPECT_FALSE(rig.game.hand.Dragging);
}

TEST(MouseDown, InClickStyleOtherButtonsDoNothingWithAPieceInHand) {
    Lifted rig;
    modChess.DragMode = 0;
    for (const int button : {2, 4}) rig.press("e4", button);
    EXPECT_TRUE(rig.game.hand.Dragging);
    EXPECT_TRUE(rig.effects.empty());
}

TEST(MouseDown, InClickStyleASecondClickStopsADelayThatRuns) {
    InDelay rig;
    modChess.DragMode = 0;
    rig.press("e3");
    EXPECT_EQ(rig.slip, 0);
    EXPECT_EQ(rig.all("send"), Effects{"send e2-e3"});
}

TEST(MouseDown, InDragStyleNoButtonDoesAnythingWithoutADelay) {
    Lifted rig;
    for (const int button : {1, 2, 4}) rig.press("e4", button);
    EXPECT_TRUE(rig.game.hand.Dragging);
    EXPECT_TRUE(rig.effects.empty());
}

TEST(MouseDown, ARightClickWithNoDelayRunningDoesNothingToADrag) {
    for (const std::int16_t mouseSlip : {std::int16_t{0}, std::int16_t{8}}) {
        Lifted rig;
        modChess.MouseSlip = mouseSlip;
        rig.press("e4", Lifted::Right);
        rig.release("e4", Lifted::Right);
        EXPECT_TRUE(rig.game.hand.Dragging);
        EXPECT_EQ(rig.slip, 0);
        EXPECT_TRUE(rig.effects.empty());
    }
}

TEST(MouseDown, TheRightButtonEndsTheDelayAtTheHeldPoint) {
    InDelay rig;
    rig.press("a6", InDelay::Right);
    EXPECT_TRUE(rig.played());
    EXPECT_EQ(rig.slip, 0);
}

// Mouse move

TEST(MouseMove, NothingHappensInTheFirstFourSeconds) {
    Lifted rig;
    rig.game.hand.MouseX = 7;
    rig.game.noPlay = true;
    rig.move("e4", 1);
    EXPECT_EQ(rig.game.hand.MouseX, 7);
    EXPECT_TRUE(rig.effects.empty());
}

TEST(MouseMove, ThePointIsKept) {
    MyGame rig;
    rig.input.mouseMoved(0, 100.5F, 33);
    EXPECT_EQ(rig.game.hand.MouseX, 100.5F);
    EXPECT_EQ(rig.game.hand.MouseY, 33);
}

TEST(MouseMove, InDragStyleThePieceFollowsTheLeftButtonAlone) {
    for (const auto& [button, follows] : {std::pair{1, true}, {3, true}, {0, false}, {2, false}, {4, false}}) {
        Lifted rig;
        rig.move("e4", button);
        EXPECT_EQ(rig.effects == Effects{rig.pieceAt("e4", 128)}, follows) << button;
        EXPECT_EQ(rig.effects.empty(), !follows) << button;
    }
}

TEST(MouseMove, InClickStyleThePieceFollowsWithNoButtonOrTheLeftOne) {
    for (const auto& [button, follows] : {std::pair{0, true}, {1, true}, {2, false}, {3, false}}) {
        Lifted rig;
        modChess.DragMode = 0;
        rig.move("e4", button);
        EXPECT_EQ(rig.effects == Effects{rig.pieceAt("e4", 128)}, follows) << button;
    }
}

TEST(MouseMove, AButtonWithoutAPieceInHandDoesNothing) {
    MyGame rig;
    for (const int button : {1, 2}) rig.move("e2", button);
    EXPECT_TRUE(rig.effects.empty());
    EXPECT_EQ(rig.game.hand.MoveMode, 0);
}

TEST(MouseMove, ThePieceFollowsWithTheStrengthOfTheMoment) {
    Lifted rig;
    rig.game.hand.DragAlpha = 0; // a position is arriving
    rig.move("e4", 1);
    EXPECT_EQ(rig.effects, Effects{rig.pieceAt("e4", 0)});
}

TEST(MouseMove, FromTheMouseUpOnThePieceStandsStillDuringTheDelay) {
    InDelay rig;
    rig.move("a6", 0);
    rig.move("a6", 1);
    EXPECT_TRUE(rig.effects.empty());
}

TEST(MouseMove, AFromSquareThatWasLeftOpenIsClosed) {
    MyGame rig;
    rig.game.zSetFrom(12);
    rig.game.ToSq = 33;
    rig.move("a6");
    EXPECT_EQ(rig.game.hand.FromSet, 0);
    EXPECT_EQ(rig.effects, (Effects{"draw 12 0", "picture"})) << "the mark of the last move stays";
}

TEST(MouseMove, HoveringSetsMoveModeAndThePointerAllTheTime) {
    MyGame rig;
    rig.move("e2");
    EXPECT_EQ(rig.game.hand.MoveMode, -1);
    rig.move("e5");
    EXPECT_EQ(rig.game.hand.MoveMode, 0);
    rig.openWaiting();
    rig.move("g1");
    EXPECT_EQ(rig.game.hand.MoveMode, 1);
    rig.move("g8");
    EXPECT_EQ(rig.game.hand.MoveMode, 0);
    EXPECT_EQ(rig.effects, (Effects{"pointer 4", "pointer 0"}));
    rig.effects.clear();
    rig.receive(Answered);
    rig.effects.clear();
    rig.move("g1");
    EXPECT_EQ(rig.effects, Effects{"pointer 3"});
}

TEST(MouseMove, HoveringBesideTheBoardMeansNoPiece) {
    MyGame rig;
    rig.game.hand.MoveMode = -1;
    rig.input.mouseMoved(0, 500, 10);
    EXPECT_EQ(rig.game.hand.MoveMode, 0);
    EXPECT_EQ(rig.effects, Effects{"pointer 0"});
}

TEST(MouseMove, ThereIsNoHoverWhileTheSelfCheckIsUnfinished) {
    MyGame rig;
    modChess.SelfCheckOK = false;
    rig.move("e2");
    EXPECT_EQ(rig.game.hand.MoveMode, 0);
    EXPECT_TRUE(rig.effects.empty());
}

TEST(MouseMove, ThereIsNoHoverWithAPieceInHand) {
    Lifted rig;
    rig.move("e7", 1);
    EXPECT_EQ(rig.game.hand.MoveMode, -1);
}

// Mouse up and the delay

TEST(MouseUp, InClickStyleItDoesNothing) {
    Lifted rig;
    modChess.DragMode = 0;
    modChess.MouseSlip = 3;
    rig.release("e4");
    EXPECT_TRUE(rig.game.hand.Dragging);
    EXPECT_EQ(rig.slip, 0);
    EXPECT_TRUE(rig.effects.empty());
}

TEST(MouseUp, WithoutADelayTheMoveIsTakenOnTheMouseUpItself) {
    Lifted rig;
    rig.release("e4");
    EXPECT_EQ(rig.all("send"), Effects{"send e2-e4"});
    EXPECT_EQ(rig.slip, 0);
}

TEST(MouseUp, EachIndexOfTheSettingHasItsTextAndItsDelay) {
    const std::vector<std::pair<const char*, int>> table{{"Inactive", 0},   {"150 mSec", 165}, {"200 mSec", 220},
                                                         {"250 mSec", 275}, {"300 mSec", 330}, {"400 mSec", 440},
                                                         {"500 mSec", 550}, {"750 mSec", 770}, {"1 Sec", 1045},
                                                         {"2 Sec", 2035},   {"5 Sec", 5000},   {"Infinite", 60000}};
    ASSERT_EQ(std::size(mouseSlips), table.size());
    for (std::size_t index = 0; index < table.size(); ++index) {
        EXPECT_EQ(mouseSlips[index].text, table[index].first);
        const InDelay rig(static_cast<std::int16_t>(index));
        EXPECT_EQ(rig.slip, table[index].second) << index;
        EXPECT_EQ(rig.game.hand.Dragging, index > 0) << index;
    }
}

TEST(MouseUp, AnIndexOutsideTheTableMeansNoDelay) {
    for (const int index : {-32768, -1, 12, 32767}) {
        const InDelay rig(static_cast<std::int16_t>(index));
        EXPECT_EQ(rig.slip, 0) << index;
        EXPECT_FALSE(rig.game.hand.Dragging) << index;
    }
}

TEST(MouseUp, ALeftClickInTheDelayLeavesTheHeldPointAlone) {
    InDelay rig;
    rig.press("e3");
    rig.release("e3");
    EXPECT_TRUE(rig.pending());
    EXPECT_EQ(rig.slip, 1045);
    rig.input.tmrSlip();
    EXPECT_TRUE(rig.played());
}

TEST(MouseUp, ADelayLeftOverFromAClickDoesNotDropThePieceLiftedAfterIt) {
    MyGame rig;
    modChess.MouseSlip = 10;
    rig.press("e5");
    rig.release("e5");
    rig.press("e2");
    EXPECT_EQ(rig.slip, 0);
    EXPECT_TRUE(rig.game.hand.Dragging);
    rig.effects.clear();
    rig.move("e4", 1);
    EXPECT_EQ(rig.effects, Effects{rig.pieceAt("e4", 128)}) << "nor hold it still";
    rig.release("e4");
    EXPECT_EQ(rig.slip, 5000);
}

TEST(SlipTimer, ItStopsAndTheMoveIsTakenAtTheHeldPoint) {
    InDelay rig;
    rig.game.hand.MouseX = 5;
    rig.input.tmrSlip();
    EXPECT_EQ(rig.slip, 0);
    EXPECT_TRUE(rig.played());
}

TEST(SlipTimer, InfiniteEndsNothingAndKeepsRunning) {
    InDelay rig(11);
    rig.input.tmrSlip();
    EXPECT_EQ(rig.slip, 60000);
    EXPECT_TRUE(rig.pending());
}

TEST(SlipTimer, InfiniteIsEndedByTheRightButtonOnly) {
    InDelay rig(11);
    rig.press("e4");
    rig.release("e4");
    rig.input.tmrSlip();
    EXPECT_TRUE(rig.pending());
    rig.press("h8", InDelay::Right);
    EXPECT_TRUE(rig.played());
}

TEST(SlipTimer, ItEndsNothingWhenTheMoveWasGivenUp) {
    InDelay rig;
    rig.game.zExitMove();
    rig.effects.clear();
    rig.input.tmrSlip();
    EXPECT_TRUE(rig.effects.empty());
}

// The end of a drag

TEST(ZMouseUp, WithoutAPieceInHandItDoesNothing) {
    MyGame rig;
    rig.input.zMouseUp(100, 100);
    EXPECT_TRUE(rig.effects.empty());
}

TEST(ZMouseUp, ThePieceLandsSolidInTheMiddleOfItsSquareThenTheMoveIsFinished) {
    Lifted rig;
    rig.input.zMouseUp(4 * 54 + 1, 4 * 54 + 52);
    EXPECT_EQ(rig.effects, (Effects{rig.pieceAt("e4", 255), "draw 12 0", "draw 28 0", "send e2-e4", "picture", "focus",
                                    "pointer 0", "made", "pointer 0"}));
    EXPECT_FALSE(rig.game.hand.Dragging);
    EXPECT_EQ(rig.game.Board[28], 6);
}

TEST(ZMouseUp, OnATurnedBoardItIsTheSquareUnderThePoint) {
    Lifted rig;
    rig.turnBoard();
    rig.input.zMouseUp(3 * 54 + 20, 3 * 54 + 20);
    EXPECT_EQ(rig.all("send"), Effects{"send e2-e4"});
}

TEST(ZMouseUp, NoHoverFollowsWhereAMoveOfThePointerWouldBringNone) {
    for (const bool checking : {false, true}) {
        Lifted rig;
        (checking ? modChess.SelfCheckOK : rig.game.noPlay) = !checking;
        rig.input.zMouseUp(4 * 54 + 1, 4 * 54 + 52);
        EXPECT_EQ(rig.effects.back(), "made") << checking;
    }
}

TEST(ZMouseUp, APieceLetGoBesideTheBoardGoesBack) {
    Lifted rig;
    rig.input.zMouseUp(-300, 9000);
    EXPECT_EQ(rig.effects.front(), rig.pieceAt("e2", 255));
    EXPECT_TRUE(rig.saw("draw 12 0"));
    EXPECT_TRUE(rig.all("send").empty());
    EXPECT_FALSE(rig.game.hand.Dragging);
    EXPECT_EQ(rig.game.Board[12], 6);
}

TEST(ZMouseUp, APieceLetGoBesideTheBoardAsksForItsSquareOnce) {
    Lifted rig;
    int asked = 0; // each point beside the board beeps
    rig.input.surface.zGetSqr = [&](float, float) { return ++asked, OffBoard; };
    rig.release("e4");
    EXPECT_EQ(asked, 1);
}

TEST(ZMouseUp, ARookOnAnOpenAFileLetGoAboveTheBoardGoesBackToo) {
    MoveInputRig rig;
    rig.openWith({.ranks = "-------- -------- ----k--- -------- -------- -------- -------- R---K---"});
    rig.press("a1");
    rig.release("a1", 1); // put down once to leave no state behind
    rig.press("a1");
    rig.input.zMouseUp(10, -10);
    EXPECT_TRUE(rig.all("send").empty());
    EXPECT_EQ(rig.game.Board[0], 3);
}
