// Which piece the user may take up, and whether now or as a pre-move.
#include "board/MoveRig.h"

#include <gtest/gtest.h>

namespace {

constexpr int E2 = 12;
constexpr int E4 = 28;
constexpr int E7 = 52;

struct TwoPawns : MoveRig {
    TwoPawns() : MoveRig("Pe2 pe7") {}
};

} // namespace

TEST(MoveOK, NoPlayForbidsEveryPiece) {
    TwoPawns rig;
    rig.game.noPlay = true;
    EXPECT_EQ(rig.game.zMoveOK(E2), 0);
    rig.live();
    EXPECT_EQ(rig.game.zMoveOK(E2), 0);
}

TEST(MoveOK, OnALocalBoardTheUserMovesBothSidesInTurn) {
    TwoPawns rig;
    EXPECT_EQ(rig.game.zMoveOK(E2), -1);
    EXPECT_EQ(rig.game.zMoveOK(E7), 0);
    EXPECT_EQ(rig.game.zMoveOK(E4), 0) << "an empty square";
    rig.game.Turn = -1;
    EXPECT_EQ(rig.game.zMoveOK(E2), 0);
    EXPECT_EQ(rig.game.zMoveOK(E7), -1);
}

TEST(MoveOK, ALocalBoardAsksNeitherForTheNewestPositionNorForAFreeHand) {
    TwoPawns rig;
    rig.game.NextPly = 10;
    rig.game.ShownPly = 3;
    rig.game.hand.FromSet = 1;
    EXPECT_EQ(rig.game.zMoveOK(E2), -1);
}

TEST(MoveOK, AtRelation1And2ThePieceOfTheSideToMoveMayGoNow) {
    for (const auto relation : std::initializer_list<std::int16_t>{1, 2}) {
        TwoPawns rig;
        rig.live(relation);
        EXPECT_EQ(rig.game.zMoveOK(E2), -1);
        EXPECT_EQ(rig.game.zMoveOK(E7), 0);
        EXPECT_EQ(rig.game.zMoveOK(E4), 0) << "an empty square";
    }
}

TEST(MoveOK, AtRelation1ItIsTurnThatCountsWhateverColourTheUserHas) {
    TwoPawns rig;
    rig.live().game.Turn = -1;
    EXPECT_EQ(rig.game.zMoveOK(E7), -1);
    EXPECT_EQ(rig.game.zMoveOK(E2), 0);
}

TEST(MoveOK, AnOlderPositionOnShowForbidsMovesAndPreMoves) {
    modChess = {};
    for (const auto relation : std::initializer_list<std::int16_t>{1, 2, -1}) {
        TwoPawns rig;
        modChess.PreMoveOK = 1;
        rig.live(relation);
        const int square = relation == -1 ? E7 : E2;
        EXPECT_NE(rig.game.zMoveOK(square), 0);
        rig.game.ShownPly = 7;
        EXPECT_EQ(rig.game.zMoveOK(square), 0) << relation;
    }
}

TEST(MoveOK, AChosenFromSquareForbidsAnotherInALiveGame) {
    for (const auto relation : std::initializer_list<std::int16_t>{1, 2, -1}) {
        TwoPawns rig;
        modChess.PreMoveOK = 1;
        rig.live(relation);
        rig.game.hand.FromSet = 1;
        EXPECT_EQ(rig.game.zMoveOK(relation == -1 ? E7 : E2), 0) << relation;
    }
}

TEST(MoveOK, AtRelationMinus1ThePieceThatIsNotToMoveIsAPreMove) {
    TwoPawns rig;
    modChess.PreMoveOK = 1;
    rig.live(-1);
    EXPECT_EQ(rig.game.zMoveOK(E7), 1);
    EXPECT_EQ(rig.game.zMoveOK(E2), 0) << "the opponent's piece";
    EXPECT_EQ(rig.game.zMoveOK(E4), 0) << "an empty square";
}

TEST(MoveOK, PreMovesNeedTheirSetting) {
    TwoPawns rig;
    rig.live(-1);
    modChess.PreMoveOK = 0;
    EXPECT_EQ(rig.game.zMoveOK(E7), 0);
    EXPECT_EQ(rig.game.zMoveOK(E2), 0);
}

TEST(MoveOK, EveryOtherRelationForbidsMoves) {
    for (const auto relation : std::initializer_list<std::int16_t>{0, -2, -3, -4, 3, -100}) {
        TwoPawns rig;
        modChess.PreMoveOK = 1;
        rig.live(relation);
        EXPECT_EQ(rig.game.zMoveOK(E2), 0) << relation;
        EXPECT_EQ(rig.game.zMoveOK(E7), 0) << relation;
    }
}

TEST(MoveOK, SetFromOpensTheMove) {
    TwoPawns rig;
    rig.game.zSetFrom(E2);
    EXPECT_EQ(rig.game.FromSq, E2);
    EXPECT_EQ(rig.game.hand.FromSet, 1);
}

TEST(MoveOK, TheSettingOfPreMovesIsOnByEveryNumberButZero) {
    for (const auto allowed : std::initializer_list<std::int16_t>{-1, 1, 2}) {
        TwoPawns rig;
        rig.live(-1);
        modChess.PreMoveOK = allowed;
        EXPECT_EQ(rig.game.zMoveOK(E7), 1) << allowed;
    }
}

TEST(MoveOK, OnlyTheNewestPlyItselfWillDo) {
    for (const int shown : {7, 9, 10}) {
        TwoPawns rig;
        rig.live();
        rig.game.ShownPly = shown;
        EXPECT_EQ(rig.game.zMoveOK(E2), 0) << shown;
    }
}
