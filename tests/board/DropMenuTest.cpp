// The menu that drops a piece in hand.
#include "board/MoveInputRig.h"

#include <gtest/gtest.h>

namespace {

using Effects = std::vector<std::string>;

struct Bughouse : MoveInputRig {
    explicit Bughouse(const LineOf& line = MyMove) {
        openWith(line);
        game.zSetBughouse("<b1> game 12 white [QPPP] black [RBBN]");
        effects.clear();
    }
};

} // namespace

TEST(DropMenu, ARightClickOnAnEmptySquareOpensItForThatSquare) {
    Bughouse rig;
    rig.press("e4", Bughouse::Right);
    EXPECT_EQ(rig.effects, Effects{"menu e4"});
}

TEST(DropMenu, OnATurnedBoardItIsTheSquareUnderThePointer) {
    Bughouse rig;
    rig.turnBoard();
    rig.press("f6", Bughouse::Right);
    EXPECT_EQ(rig.input.DropSquare, "f6");
}

TEST(DropMenu, EntriesTellTheCountOfWhiteWhenWhiteIsToMove) {
    Bughouse rig;
    rig.press("e4", Bughouse::Right);
    EXPECT_EQ(rig.popped, "Queen 1+ Rook- Bishop- Knight- Pawn 3+ ");
}

TEST(DropMenu, EntriesTellTheCountOfBlackWhenBlackIsToMoveAlsoForAnExaminer) {
    Bughouse rig(Examined);
    rig.press("e5", Bughouse::Right);
    EXPECT_EQ(rig.popped, "Queen- Rook 1+ Bishop 2+ Knight 1+ Pawn- ");
}

TEST(DropMenu, TheCountsGoByTurnAndNotByTheRecord) {
    Bughouse rig;
    rig.game.Turn = -1;
    ASSERT_EQ(rig.game.Style12Record.SideToMove, 0);
    rig.press("e4", Bughouse::Right);
    EXPECT_EQ(rig.popped, "Queen- Rook 1+ Bishop 2+ Knight 1+ Pawn- ");
}

TEST(DropMenu, AnExaminerDropsForWhoeverIsToMoveAndNobodyBeyondHim) {
    for (const int relation : {1, 2, 3, 12}) {
        Bughouse rig;
        rig.game.Style12Record.Relation = static_cast<std::int16_t>(relation);
        rig.press("e4", Bughouse::Right);
        EXPECT_EQ(!rig.all("menu").empty(), relation <= 2) << relation;
    }
}

TEST(DropMenu, TheSquareIsThatOfTheMenuOpenedLast) {
    Bughouse rig;
    rig.press("e4", Bughouse::Right);
    rig.press("c3", Bughouse::Right);
    EXPECT_EQ(rig.input.DropSquare, "c3");
    rig.effects.clear();
    rig.input.drop(0);
    EXPECT_EQ(rig.effects, Effects{"send Q@c3"});
}

TEST(DropMenu, AtOtherRelationsARightClickDoesNothingAtAll) {
    for (const int relation : {0, -1, -2, -3, -100}) {
        Bughouse rig;
        rig.game.Style12Record.Relation = static_cast<std::int16_t>(relation);
        rig.game.hand.MoveMode = -1;
        rig.press("e4", Bughouse::Right);
        EXPECT_TRUE(rig.effects.empty()) << relation;
        EXPECT_EQ(rig.game.hand.MoveMode, -1) << relation;
    }
}

TEST(DropMenu, AnOccupiedSquareOpensNone) {
    Bughouse rig;
    rig.press("e2", Bughouse::Right);
    rig.press("e7", Bughouse::Right);
    EXPECT_TRUE(rig.effects.empty());
    EXPECT_EQ(rig.game.hand.MoveMode, 0) << "of the square pressed last";
}

TEST(DropMenu, WithoutHoldingsShownThereIsNone) {
    Bughouse rig;
    rig.game.HoldingsShown = false;
    rig.press("e4", Bughouse::Right);
    EXPECT_TRUE(rig.effects.empty());
}

TEST(DropMenu, TheLeftButtonOpensNone) {
    Bughouse rig;
    rig.press("e4");
    EXPECT_TRUE(rig.effects.empty());
}

TEST(DropMenu, ThereIsNoneWithAPieceInHand) {
    Bughouse rig;
    rig.press("e2");
    rig.press("e4", Bughouse::Right);
    EXPECT_TRUE(rig.all("menu").empty());
}

TEST(DropMenu, EachEntrySendsItsLetterAndTheSquareAndTheBoardWaits) {
    Bughouse rig;
    rig.press("e4", Bughouse::Right);
    rig.effects.clear();
    for (int entry = 0; entry < 5; ++entry) rig.input.drop(entry);
    EXPECT_EQ(rig.effects, (Effects{"send Q@e4", "send R@e4", "send B@e4", "send N@e4", "send P@e4"}));
    EXPECT_EQ(rig.game.Board[28], 0);
    EXPECT_EQ(rig.game.Turn, 1);
}

TEST(DropMenu, AfterTheWindowHasClosedAnEntrySendsNothing) {
    Bughouse rig;
    rig.press("e4", Bughouse::Right);
    rig.input.stop();
    rig.input.drop(4);
    EXPECT_TRUE(rig.all("send").empty());
}

TEST(DropMenu, APositionMayArriveWhileItIsUp) {
    Bughouse rig;
    rig.press("e5", Bughouse::Right);
    rig.receive(AfterMine);
    rig.effects.clear();
    rig.input.drop(4);
    EXPECT_EQ(rig.effects, Effects{"send P@e5"});
    EXPECT_EQ(rig.game.Turn, -1);
}
