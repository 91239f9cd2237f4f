// The rule test, piece by piece, and the gaps that it is required to have.
#include "board/MoveRig.h"

#include <gtest/gtest.h>

TEST(MoveLegal, CaptureOfOnesOwnPieceIsRefused) {
    MoveRig rig("Rd4 Pd6 pf4 Pb4");
    EXPECT_FALSE(rig.legal("d4d6"));
    EXPECT_FALSE(rig.legal("d4b4"));
    EXPECT_TRUE(rig.legal("d4f4"));
}

TEST(MoveLegal, AnEmptySquareHasNoMove) {
    MoveRig rig("Pd5 pe5");
    EXPECT_FALSE(rig.legal("a1a2")) << "to another empty square";
    EXPECT_FALSE(rig.legal("d4d5")) << "to a white piece";
    EXPECT_FALSE(rig.legal("e4e5")) << "to a black piece";
}

TEST(MoveLegal, ACodeOfNoPieceHasNoMove) {
    MoveRig rig("");
    for (const auto code : std::initializer_list<std::int16_t>{7, -7, 127}) {
        rig.game.Board[27] = code;
        EXPECT_EQ(rig.targets("d4"), "") << code;
    }
}

TEST(MoveLegal, ASquareThatIsNotThereIsRefused) {
    MoveRig rig("Qa1 Ka8 kh8");
    for (const auto& [from, to] : {std::pair{0, 65}, {0, -1}, {-1, 0}, {65, 0}, {1000, 1001}, {-1, -2}}) {
        EXPECT_FALSE(rig.game.zMoveLegal(from, to)) << from << " " << to;
    }
}

TEST(MoveLegal, ARowPastTheArraysRefusesEnPassantAndNothingElse) {
    MoveRig rig("Pe5 pd5");
    rig.game.MoveRow = 201;
    EXPECT_FALSE(rig.legal("e5d6"));
    EXPECT_TRUE(rig.legal("e5e6"));
}

TEST(MoveLegal, TheTurnIsNotTested) {
    MoveRig rig("Pe2 pe7", -1);
    EXPECT_TRUE(rig.legal("e2e4"));
    EXPECT_TRUE(rig.legal("e7e5"));
}

TEST(MoveLegal, KingGoesOneSquareAndCastlesTwoSideways) {
    MoveRig rig("Kd4");
    EXPECT_EQ(rig.targets("d4"), "c3 d3 e3 b4 c4 e4 f4 c5 d5 e5");
}

TEST(MoveLegal, QueenGoesBothWays) {
    MoveRig rig("Qa1 Pa3 pc3");
    EXPECT_EQ(rig.targets("a1"), "b1 c1 d1 e1 f1 g1 h1 a2 b2 c3");
}

TEST(MoveLegal, RookGoesStraight) {
    MoveRig rig("rd4 Pd6 pf4");
    EXPECT_EQ(rig.targets("d4"), "d1 d2 d3 a4 b4 c4 e4 d5 d6");
}

TEST(MoveLegal, BishopGoesDiagonally) {
    MoveRig rig("bd4 Pf6 pb2");
    EXPECT_EQ(rig.targets("d4"), "g1 f2 c3 e3 c5 e5 b6 f6 a7");
}

TEST(MoveLegal, KnightGoesTwoAndOneOverPieces) {
    MoveRig rig("Nd4 Pc4 Pe4 Pd3 Pd5 Pe6 pc6");
    EXPECT_EQ(rig.targets("d4"), "c2 e2 b3 f3 b5 f5 c6");
    EXPECT_EQ(MoveRig("Na1").targets("a1"), "c2 b3");
    EXPECT_EQ(MoveRig("Nh8").targets("h8"), "g6 f7");
}

TEST(MoveLegal, PawnGoesOneForwardToAnEmptySquareOnly) {
    EXPECT_EQ(MoveRig("Pe4").targets("e4"), "e5");
    EXPECT_EQ(MoveRig("Pe4 pe5").targets("e4"), "");
    EXPECT_EQ(MoveRig("Pe4 Pe5").targets("e4"), "");
    EXPECT_EQ(MoveRig("pe5").targets("e5"), "e4");
    EXPECT_EQ(MoveRig("pe5 Pe4").targets("e5"), "");
}

TEST(MoveLegal, PawnTakesDiagonallyForward) {
    EXPECT_EQ(MoveRig("Pe4 pd5 pf5 pd3 pf3 pd4").targets("e4"), "d5 e5 f5");
    EXPECT_EQ(MoveRig("pe5 Pd4 Pf4 Pd6 Pf6 Pd5").targets("e5"), "d4 e4 f4");
    EXPECT_EQ(MoveRig("Pa4 ph5 ph4 ph6").targets("a4"), "a5") << "not round the edge";
    EXPECT_EQ(MoveRig("ph5 Pa4 Pa5 Pa6").targets("h5"), "h4");
}

TEST(MoveLegal, PawnOnItsStartRowGoesTwoOverAnEmptySquareToAnEmptyOne) {
    EXPECT_EQ(MoveRig("Pa2").targets("a2"), "a3 a4");
    EXPECT_EQ(MoveRig("Pa2 pa3").targets("a2"), "") << "a3 occupied";
    EXPECT_EQ(MoveRig("Pa2 pa4").targets("a2"), "a3") << "a4 occupied";
    EXPECT_EQ(MoveRig("ph7").targets("h7"), "h5 h6");
    EXPECT_EQ(MoveRig("ph7 Ph6").targets("h7"), "");
    EXPECT_EQ(MoveRig("ph7 Ph5").targets("h7"), "h6");
}

TEST(MoveLegal, PawnOffItsStartRowGoesNoTwo) {
    EXPECT_FALSE(MoveRig("Pa3").legal("a3a5"));
    EXPECT_FALSE(MoveRig("Pa1").legal("a1a3"));
    EXPECT_FALSE(MoveRig("Pa7").legal("a7a5")) << "the other side's row and way";
    EXPECT_FALSE(MoveRig("ph6").legal("h6h4"));
    EXPECT_FALSE(MoveRig("ph8").legal("h8h6"));
}

TEST(MoveLegal, PawnGoesNoTwoRowsSideways) {
    EXPECT_FALSE(MoveRig("Pb2").legal("b2a4"));
    EXPECT_FALSE(MoveRig("Pb2 pc4").legal("b2c4"));
    EXPECT_FALSE(MoveRig("Pb2").legal("b2d3"));
}

TEST(MoveLegal, LocalEnPassantNeedsTheGrantInTheMoversOwnSlot) {
    MoveRig white("Pe5 pd5");
    EXPECT_FALSE(white.legal("e5d6"));
    white.game.MoveUndo[1][1][6] = -1;
    EXPECT_FALSE(white.legal("e5d6")) << "black's slot";
    white.game.MoveUndo[1][0][6] = -1;
    EXPECT_TRUE(white.legal("e5d6"));
    MoveRig black("Pe4 pd4", -1);
    black.game.MoveRow = 7;
    EXPECT_FALSE(black.legal("d4e3"));
    black.game.MoveUndo[7][1][6] = -1;
    EXPECT_TRUE(black.legal("d4e3"));
}

TEST(MoveLegal, LocalEnPassantGoesByTheSlotOfThePawnsOwnColourWhoeverIsToMove) {
    MoveRig white("Pe5 pd5", -1);
    white.game.MoveUndo[1][1][6] = -1;
    EXPECT_FALSE(white.legal("e5d6"));
    white.game.MoveUndo[1][0][6] = -1;
    EXPECT_TRUE(white.legal("e5d6"));
    MoveRig black("Pe4 pd4", 1);
    black.game.MoveUndo[1][0][6] = -1;
    EXPECT_FALSE(black.legal("d4e3"));
    black.game.MoveUndo[1][1][6] = -1;
    EXPECT_TRUE(black.legal("d4e3"));
}

TEST(MoveLegal, TheLocalGrantIsGoodForEveryPawnBesideAnEnemyPawn) {
    MoveRig rig("Pc5 pd7 Pa4 pb4", -1);
    rig.make("d7d5");
    EXPECT_TRUE(rig.legal("c5d6"));
    EXPECT_TRUE(rig.legal("a4b5"));
}

TEST(MoveLegal, EnPassantNeedsAnEnemyPawnBehindTheSquare) {
    for (const char* pieces : {"Pe5", "Pe5 nd5", "Pe5 Pd5", "Pe5 pf5", "Pe5 pd6"}) {
        MoveRig rig(pieces);
        rig.game.MoveUndo[1][0][6] = -1;
        const bool capture = std::string(pieces) == "Pe5 pd6";
        EXPECT_EQ(rig.legal("e5d6"), capture) << pieces;
        EXPECT_EQ(rig.game.EPCapture, 0) << pieces;
    }
}

TEST(MoveLegal, EPCaptureTellsWhetherTheMoveTestedLastIsEnPassant) {
    MoveRig rig("Pe5 pd5 pf6");
    rig.live();
    EXPECT_TRUE(rig.legal("e5d6"));
    EXPECT_EQ(rig.game.EPCapture, -1);
    EXPECT_TRUE(rig.legal("e5f6"));
    EXPECT_EQ(rig.game.EPCapture, 0) << "a plain capture";
}

TEST(MoveLegal, CastlingTowardsHigherFilesNeedsTwoEmptySquares) {
    EXPECT_TRUE(MoveRig("Ke1 Rh1").legal("e1g1"));
    EXPECT_FALSE(MoveRig("Ke1 Rh1 Bf1").legal("e1g1"));
    EXPECT_FALSE(MoveRig("Ke1 Rh1 ng1").legal("e1g1"));
    EXPECT_TRUE(MoveRig("ke8 rh8").legal("e8g8"));
}

TEST(MoveLegal, CastlingTowardsLowerFilesNeedsThreeEmptySquares) {
    EXPECT_TRUE(MoveRig("Ke1 Ra1").legal("e1c1"));
    for (const char* pieces : {"Ke1 Ra1 nb1", "Ke1 Ra1 nc1", "Ke1 Ra1 nd1"}) {
        EXPECT_FALSE(MoveRig(pieces).legal("e1c1")) << pieces;
    }
    EXPECT_TRUE(MoveRig("ke8 ra8").legal("e8c8"));
}

TEST(MoveLegal, CastlingBesideTheEdgeOfTheBoardReadsTheNumbersBeforeIt) {
    EXPECT_FALSE(MoveRig("Kc1").legal("c1a1")) << "square -1 is not there";
    EXPECT_TRUE(MoveRig("Kc2").legal("c2a2"));
    EXPECT_FALSE(MoveRig("Kc2 Rh1").legal("c2a2")) << "h1 is the third number before c2";
}

TEST(MoveLegal, ALocalKingThatMovedMayNotCastleALiveOneMay) {
    MoveRig rig("Ke1 Rh1 ke8 rh8");
    rig.game.KingMoved[2] = true;
    EXPECT_FALSE(rig.legal("e1g1"));
    rig.game.Turn = -1;
    EXPECT_TRUE(rig.legal("e8g8")) << "the slot of the side to move counts";
    rig.game.Turn = 1;
    rig.live();
    EXPECT_TRUE(rig.legal("e1g1"));
}

TEST(MoveLegal, AnUnguardedKingMayStepIntoCheckAndAPinnedPieceMayLeave) {
    MoveRig rig("Ke1 Be2 re8 rd8");
    EXPECT_TRUE(rig.legal("e1d1"));
    EXPECT_TRUE(rig.legal("e2h5"));
}

TEST(MoveLegal, CastlingOutOfThroughAndIntoCheckPasses) {
    EXPECT_TRUE(MoveRig("Ke1 Rh1 re8").legal("e1g1"));
    EXPECT_TRUE(MoveRig("Ke1 Rh1 rf8").legal("e1g1"));
    EXPECT_TRUE(MoveRig("Ke1 Rh1 rg8").legal("e1g1"));
}

TEST(MoveLegal, CastlingAsksForNoRookAndForNoHomeSquare) {
    EXPECT_TRUE(MoveRig("Ke4").legal("e4g4"));
    EXPECT_TRUE(MoveRig("Ke4").legal("e4c4"));
    EXPECT_TRUE(MoveRig("kb6").legal("b6d6"));
    EXPECT_FALSE(MoveRig("Ke4").legal("e4e6")) << "sideways only";
}

TEST(MoveLegal, InALiveGameAnyPawnBesideAnEnemyPawnCountsAsEnPassant) {
    MoveRig rig("Pe5 pd5 Pa3 pb3 pg6 Ph6");
    rig.live();
    EXPECT_TRUE(rig.legal("e5d6"));
    EXPECT_TRUE(rig.legal("a3b4")) << "on any row";
    EXPECT_TRUE(rig.legal("g6h5"));
    EXPECT_FALSE(rig.legal("e5f6")) << "nobody there";
}

TEST(MoveLegal, CapturingAKingIsLegal) {
    MoveRig rig("Re1 ke8");
    EXPECT_TRUE(rig.legal("e1e8"));
}

TEST(MoveLegal, APawnMayGoToTheLastRowWithoutATest) {
    EXPECT_EQ(MoveRig("Pe7").targets("e7"), "e8");
    EXPECT_EQ(MoveRig("pe2").targets("e2"), "e1");
    EXPECT_EQ(MoveRig("Pe8").targets("e8"), "") << "and never past it";
}

TEST(CheckTest, FindsAnAttackOnTheOtherKing) {
    EXPECT_TRUE(MoveRig("Re1 ke8 Ka1").game.zCheckTest(1));
    EXPECT_TRUE(MoveRig("Rh8 ke8 Ka1").game.zCheckTest(1));
    EXPECT_FALSE(MoveRig("Re1 ke8 Ka1").game.zCheckTest(-1));
    EXPECT_FALSE(MoveRig("Re1 pe5 ke8").game.zCheckTest(1));
    EXPECT_TRUE(MoveRig("re8 Ke1").game.zCheckTest(-1));
    EXPECT_TRUE(MoveRig("Pd7 ke8").game.zCheckTest(1));
    EXPECT_FALSE(MoveRig("Pe7 ke8").game.zCheckTest(1)) << "straight on is no attack";
}

TEST(CheckTest, APieceInHandGivesNone) {
    MoveRig rig("ka8 Ke1");
    rig.game.Board[64] = 3;
    EXPECT_FALSE(rig.game.zCheckTest(1));
}

TEST(CheckTest, TheKingOnTheLowestSquareIsTheOneThatCounts) {
    EXPECT_FALSE(MoveRig("kd1 kd8 Re8").game.zCheckTest(1));
    EXPECT_TRUE(MoveRig("kd1 kd8 Re1").game.zCheckTest(1));
}

TEST(CheckTest, AKingDoesNotAttackByCastling) { EXPECT_FALSE(MoveRig("Ke4 kg4").game.zCheckTest(1)); }

TEST(CheckTest, WithoutAKingSquare64IsTheTarget) {
    EXPECT_TRUE(MoveRig("Ra1").game.zCheckTest(1)) << "the open a-file leads there";
    EXPECT_FALSE(MoveRig("Ra1 pa5").game.zCheckTest(1));
    EXPECT_FALSE(MoveRig("Rb1 Qh8").game.zCheckTest(1));
    EXPECT_FALSE(MoveRig("Bb8").game.zCheckTest(1)) << "no diagonal leaves the board";
    EXPECT_FALSE(MoveRig("ra1").game.zCheckTest(1)) << "the other side's rook";
}
