// Making a move: what changes on the board, what undoes it, the list, the store, and the line to the server.
#include "board/MoveRig.h"

#include "common/Fault.h"

#include <gtest/gtest.h>

namespace {

using Effects = std::vector<std::string>;

// The codes of a slot of MoveUndo from kind 0 to kind 7.
std::vector<int> slot(const MoveRig& rig, int row, int col) {
    const auto& kinds = rig.game.MoveUndo[row][col];
    return {kinds.begin(), kinds.end()};
}

// A slot full of 99, so that a test sees which kinds a move has written.
void stain(MoveRig& rig) {
    for (auto& row : rig.game.MoveUndo) {
        for (auto& kinds : row) kinds.fill(99);
    }
}

} // namespace

TEST(MakeMove, WithoutAFromSquareNoMoveIsMade) {
    for (const auto set : std::initializer_list<std::int16_t>{0, 2, -1}) {
        MoveRig rig("Pe2");
        rig.game.FromSq = 12;
        rig.game.hand.FromSet = set;
        EXPECT_EQ(rig.game.zMakeMove(28, true, true), "");
        EXPECT_EQ(rig.game.hand.FromSet, set);
        EXPECT_EQ(rig.at("e2"), 6);
        EXPECT_TRUE(rig.effects.empty());
    }
}

TEST(MakeMove, ToTheFromSquareOnlyFreesTheHand) {
    MoveRig rig("Pe2");
    rig.game.ToSq = 5;
    stain(rig);
    EXPECT_EQ(rig.make("e2e2"), "");
    EXPECT_EQ(rig.game.hand.FromSet, 0);
    EXPECT_EQ(rig.game.FromSq, 12);
    EXPECT_EQ(rig.game.ToSq, 5);
    EXPECT_EQ(rig.at("e2"), 6);
    EXPECT_EQ(rig.game.Turn, 1);
    EXPECT_EQ(slot(rig, 1, 0), std::vector<int>(8, 99));
    EXPECT_TRUE(rig.effects.empty());
}

TEST(MakeMove, AnIllegalMoveIsNotMade) {
    MoveRig rig("Pe2");
    stain(rig);
    EXPECT_EQ(rig.make("e2e5"), "");
    EXPECT_EQ(rig.game.hand.FromSet, 0);
    EXPECT_EQ(rig.game.ToSq, 36) << "for the repaint of both squares";
    EXPECT_EQ(rig.at("e2"), 6);
    EXPECT_EQ(rig.game.Turn, 1);
    EXPECT_EQ(slot(rig, 1, 0), std::vector<int>(8, 99));
    EXPECT_TRUE(rig.effects.empty());
}

TEST(MakeMove, WithoutTheCheckEveryMoveIsMade) {
    MoveRig rig("Pe2");
    EXPECT_EQ(rig.make("e2e5", false), "e5");
    EXPECT_EQ(rig.at("e5"), 6);
}

TEST(MakeMove, APieceLetGoBesideTheBoardMakesNoMove) {
    MoveRig rig("Ra1");
    for (const int to : {64, 65, -1}) {
        rig.game.zSetFrom(0);
        EXPECT_EQ(rig.game.zMakeMove(to, true, true), "") << to;
        EXPECT_EQ(rig.game.hand.FromSet, 0);
        EXPECT_EQ(rig.game.ToSq, to) << "so that no square but the first is repainted";
        EXPECT_EQ(rig.at("a1"), 3) << "although the open file leads to square 64";
    }
}

TEST(MakeMove, APlainMoveDoesItsStepsInOrder) {
    MoveRig rig("Ng1 ke8 Ke1");
    EXPECT_EQ(rig.make("g1f3"), "Nf3");
    EXPECT_EQ(rig.at("g1"), 0);
    EXPECT_EQ(rig.at("f3"), 5);
    EXPECT_EQ(rig.game.ToSq, 21);
    EXPECT_EQ(rig.effects, (Effects{"draw 6 0", "draw 21 0", "cell 1 0 [1]", "cell 1 1 [Nf3]"}));
}

TEST(MakeMove, WithoutDisplayNothingIsPaintedOrListed) {
    MoveRig rig("Pe5 pd5 Ke1 Rh1");
    rig.game.MoveUndo[1][0][6] = -1;
    EXPECT_EQ(rig.make("e5d6", true, false), "exd6");
    rig.game.Turn = 1;
    EXPECT_EQ(rig.make("e1g1", true, false), "O-O");
    EXPECT_TRUE(rig.effects.empty()) << rig.effects.front();
    EXPECT_EQ(rig.at("d6"), 6);
    EXPECT_EQ(rig.at("d5"), 0);
    EXPECT_EQ(rig.at("f1"), 3);
}

TEST(MakeMove, UndoKinds0And1TakeTheSquaresAndNoOtherButGrantAndPromotionIsWritten) {
    MoveRig rig("Ng1 Ke1 ke8");
    stain(rig);
    rig.make("g1f3");
    EXPECT_EQ(slot(rig, 1, 0), (std::vector<int>{6, 21, 99, 99, 99, 99, 99, 0}));
    EXPECT_EQ(slot(rig, 1, 1), (std::vector<int>{99, 99, 99, 99, 99, 99, 0, 99})) << "the grant of the next mover";
}

TEST(MakeMove, UndoKinds4And5TakeACapture) {
    MoveRig rig("Ng1 nf3 Ke1 ke8");
    rig.make("g1f3");
    EXPECT_EQ(slot(rig, 1, 0), (std::vector<int>{6, 21, 0, 0, 21, -5, 0, 0}));
}

TEST(MakeMove, BlacksMoveStandsInTheSecondColumnAndGrantsInTheNextRow) {
    MoveRig rig("pe7 Pd5 Ke1 ke8", -1);
    rig.game.MoveRow = 3;
    stain(rig);
    EXPECT_EQ(rig.make("e7e5"), "e5");
    EXPECT_EQ(slot(rig, 3, 1), (std::vector<int>{52, 36, 99, 99, 99, 99, 99, 0}));
    EXPECT_EQ(rig.undo(4, 0, 6), -1);
    EXPECT_EQ(rig.game.EPGranted, 0);
    EXPECT_EQ(rig.game.grdMoves.text(3, 0), "") << "its number is written by white's move";
}

TEST(MakeMove, WhitesDoubleStepGrantsInBlacksSlotOfTheSameRow) {
    MoveRig rig("Pe2 pd4 Ke1 ke8");
    rig.make("e2e4");
    EXPECT_EQ(rig.undo(1, 1, 6), -1);
    EXPECT_EQ(rig.make("d4e3"), "dxe3");
    EXPECT_EQ(rig.at("e4"), 0);
}

TEST(MakeMove, TheGrantLastsForOneMove) {
    MoveRig rig("Pe2 pd4 Ke1 ke8");
    rig.make("e2e4");
    rig.make("e8e7");
    rig.make("e1e2");
    EXPECT_EQ(rig.make("d4e3"), "");
    EXPECT_EQ(rig.at("d4"), -6);
}

TEST(MakeMove, EnPassantEmptiesTheSquareBehindAndRecordsThePawn) {
    MoveRig rig("Pe5 pd7 Ke1 kg8", -1);
    rig.make("d7d5");
    rig.effects.clear();
    EXPECT_EQ(rig.make("e5d6"), "exd6");
    EXPECT_EQ(rig.at("d5"), 0);
    EXPECT_EQ(rig.at("d6"), 6);
    EXPECT_EQ(slot(rig, 2, 0), (std::vector<int>{36, 43, 0, 0, 35, -6, -1, 0}));
    EXPECT_EQ(rig.game.EPCapture, 0);
    EXPECT_EQ(rig.all("draw"), (Effects{"draw 36 0", "draw 43 0", "draw 35 0"}));
}

TEST(MakeMove, EnPassantOfBlackRecordsAWhitePawn) {
    MoveRig rig("Pe2 pd4 Kg1 ke8");
    rig.make("e2e4");
    rig.make("d4e3");
    EXPECT_EQ(slot(rig, 1, 1), (std::vector<int>{27, 20, 0, 0, 28, 6, -1, 0}));
}

TEST(MakeMove, CastlingTowardsHigherFilesMovesTheRook) {
    MoveRig rig("Ke1 Rh1 ka8");
    EXPECT_EQ(rig.make("e1g1"), "O-O");
    EXPECT_EQ(rig.at("g1"), 1);
    EXPECT_EQ(rig.at("f1"), 3);
    EXPECT_EQ(rig.at("h1"), 0);
    EXPECT_EQ(slot(rig, 1, 0), (std::vector<int>{4, 6, 7, 5, 0, 0, 0, 0}));
    EXPECT_EQ(rig.all("draw"), (Effects{"draw 4 0", "draw 6 0", "draw 7 0", "draw 5 0"}));
}

TEST(MakeMove, CastlingTowardsLowerFilesMovesTheOtherRook) {
    MoveRig rig("ke8 ra8 Ka1", -1);
    EXPECT_EQ(rig.make("e8c8"), "O-O-O");
    EXPECT_EQ(rig.at("c8"), -1);
    EXPECT_EQ(rig.at("d8"), -3);
    EXPECT_EQ(rig.at("a8"), 0);
    EXPECT_EQ(slot(rig, 1, 1), (std::vector<int>{60, 58, 56, 59, 0, 0, 0, 0}));
}

TEST(MakeMove, AKingOnE4CastlesToG4AndAWhiteRookAppearsOnF4WhileH4Empties) {
    MoveRig rig("Ke4 ph4 ka8");
    EXPECT_EQ(rig.make("e4g4"), "O-O");
    EXPECT_EQ(rig.at("g4"), 1);
    EXPECT_EQ(rig.at("f4"), 3);
    EXPECT_EQ(rig.at("h4"), 0);
}

TEST(MakeMove, AKingOnF4CastlesAndTheSquareThreeNumbersOnEmpties) {
    MoveRig rig("Kf4 Pa5 ka8");
    EXPECT_EQ(rig.make("f4h4"), "O-O");
    EXPECT_EQ(rig.at("g4"), 3);
    EXPECT_EQ(rig.at("a5"), 0);
}

TEST(MakeMove, AKingOnD1CastlesToB1AndNothingEmptiesWhereThereIsNoSquare) {
    MoveRig rig("Kd1 ka8");
    EXPECT_EQ(rig.make("d1b1"), "O-O-O");
    EXPECT_EQ(rig.at("b1"), 1);
    EXPECT_EQ(rig.at("c1"), 3);
    EXPECT_EQ(rig.undo(1, 0, 2), -1);
}

TEST(MakeMove, AKingOnF8CastlesToH8WhereTheHandIsTheSquareThatEmpties) {
    MoveRig rig("kf8 Ka1", -1);
    rig.game.Board[HandSquare] = 5;
    EXPECT_EQ(rig.make("f8h8"), "O-O");
    EXPECT_EQ(rig.at("g8"), -3);
    EXPECT_EQ(rig.game.Board[HandSquare], 0);
    EXPECT_EQ(rig.all("draw"), (Effects{"draw 61 0", "draw 63 0", "draw 62 0"}));
}

TEST(MakeMove, AnEnPassantCaptureInHandWhileATakebackCameFaultsNowhere) {
    MoveRig rig("Pe7 pd7 Ke1 ka1", -1);
    modChess.AutoQueen = 1;
    EXPECT_EQ(rig.live().make("e7d8"), "exd8=Q");
    EXPECT_EQ(rig.at("d7"), -6) << "the server's next line puts all this right";
}

TEST(MakeMove, CastlingMayGiveCheck) { EXPECT_EQ(MoveRig("Ke1 Rh1 kf8").make("e1g1"), "O-O+"); }

TEST(MakeMove, CheckAddsAPlusAndMateNothingMore) {
    EXPECT_EQ(MoveRig("Ra1 Ke1 ke8").make("a1a8"), "Ra8+");
    EXPECT_EQ(MoveRig("Ra1 Rb7 Ke1 ke8").make("a1a8"), "Ra8+") << "mate";
    EXPECT_EQ(MoveRig("Ra1 Ke1 ke8").make("a1a7"), "Ra7");
    EXPECT_EQ(MoveRig("ra8 ke8 Ke1", -1).make("a8a1"), "Ra1+");
}

TEST(MakeMove, ADiscoveredCheckCounts) { EXPECT_EQ(MoveRig("Re1 Be2 Ka1 ke8").make("e2h5"), "Bh5+"); }

TEST(MakeMove, APromotionPutsThePieceChosenAndRecordsIt) {
    MoveRig rig("Pe7 Ka1 kg7");
    rig.game.PromotePiece = 5;
    EXPECT_EQ(rig.make("e7e8"), "e8=N+");
    EXPECT_EQ(rig.at("e7"), 0);
    EXPECT_EQ(rig.at("e8"), 5);
    EXPECT_EQ(rig.undo(1, 0, 7), 5);
    EXPECT_EQ(rig.game.PromotePiece, 0);
}

TEST(MakeMove, ACaptureWithPromotionTakesThePiece) {
    MoveRig rig("pd2 Qe1 Ka8 kg7", -1);
    modChess.AutoQueen = 1;
    EXPECT_EQ(rig.make("d2e1"), "dxe1=Q");
    EXPECT_EQ(rig.at("e1"), -2);
    EXPECT_EQ(slot(rig, 1, 1), (std::vector<int>{11, 4, 0, 0, 4, 2, 0, 2}));
}

TEST(MakeMove, ADismissedPromotionLeavesBothSquaresEmpty) {
    MoveRig rig("Pe7 Ka1 kg7");
    rig.game.MoveUndo[1][0][7] = 99;
    EXPECT_EQ(rig.make("e7e8"), "e8");
    EXPECT_EQ(rig.at("e7"), 0);
    EXPECT_EQ(rig.at("e8"), 0);
    EXPECT_EQ(rig.undo(1, 0, 7), 0);
    EXPECT_EQ(rig.game.Turn, -1) << "it counts as a move";
}

TEST(MakeMove, ADropTakesThePieceFromTheHand) {
    MoveRig rig("Ke1 ke8");
    stain(rig);
    EXPECT_EQ(rig.drop(5, "f6"), "N@f6+");
    EXPECT_EQ(rig.at("f6"), 5);
    EXPECT_EQ(rig.game.Board[HandSquare], 0);
    EXPECT_EQ(slot(rig, 1, 0), (std::vector<int>{64, 45, 99, 99, 99, 99, 99, 0}));
    EXPECT_EQ(rig.undo(1, 1, 6), 0);
    EXPECT_EQ(rig.all("draw"), (Effects{"draw 45 0"})) << "the hand is no square of the board";
}

TEST(MakeMove, ADropOnAPieceRecordsIt) {
    MoveRig rig("Ke1 ka8 pf6");
    EXPECT_EQ(rig.drop(5, "f6"), "N@f6");
    EXPECT_EQ(rig.undo(1, 0, 4), 45);
    EXPECT_EQ(rig.undo(1, 0, 5), -6);
}

TEST(MakeMove, ADropIsNotTestedByTheRules) {
    MoveRig rig("Ke1 ka8", -1);
    EXPECT_EQ(rig.drop(-6, "h7"), "P@h7");
    EXPECT_EQ(rig.at("h7"), -6);
}

TEST(MakeMove, ADropStoresTheGrantThatIsThereAndClearsIt) {
    MoveRig rig("Ke1 ka8");
    rig.game.EPGranted = -1;
    rig.drop(5, "f3");
    EXPECT_EQ(rig.undo(1, 1, 6), -1);
    EXPECT_EQ(rig.game.EPGranted, 0);
}

TEST(MakeMove, APawnDroppedOnTheLastRowLandsPromotedAndRecordsNoPromotion) {
    MoveRig rig("Ke1 ka7");
    rig.game.PromotePiece = 2;
    EXPECT_EQ(rig.drop(6, "h8"), "P@h8");
    EXPECT_EQ(rig.at("h8"), 2);
    EXPECT_EQ(rig.undo(1, 0, 7), 0);
    EXPECT_EQ(rig.game.PromotePiece, 0);
}

TEST(MakeMove, ALocalMoveIsListedInItsCellAndStored) {
    MoveRig rig = MoveRig::start();
    rig.make("e2e4");
    EXPECT_EQ(rig.game.grdMoves.row, 1);
    EXPECT_EQ(rig.game.grdMoves.col, 1);
    EXPECT_EQ(rig.game.MoveRow, 1);
    EXPECT_EQ(rig.game.Turn, -1);
    EXPECT_EQ(rig.game.PositionStore.plies[1][28], 6);
    rig.effects.clear();
    rig.make("e7e5");
    EXPECT_EQ(rig.all("cell"), (Effects{"cell 1 2 [e5]"})) << "black's move writes no number";
    EXPECT_EQ(rig.game.grdMoves.col, 2);
    EXPECT_EQ(rig.game.MoveRow, 2);
    EXPECT_EQ(rig.game.Turn, 1);
    EXPECT_EQ(rig.game.PositionStore.plies[2][36], -6);
    rig.make("g1f3");
    EXPECT_EQ(rig.game.grdMoves.text(2, 0), "2");
    EXPECT_EQ(rig.game.grdMoves.text(2, 1), "Nf3");
    EXPECT_EQ(rig.game.PositionStore.plies[3][21], 5);
}

TEST(MakeMove, ALocalMoveSendsNothing) {
    MoveRig rig = MoveRig::start();
    rig.make("e2e4");
    EXPECT_TRUE(rig.all("send").empty());
}

TEST(MakeMove, TheGridFollowsALocalMove) {
    MoveRig rig("Ng1 Ke1 ke8");
    rig.game.grdMoves.VisibleRows = 5;
    rig.game.MoveRow = 20;
    rig.make("g1f3");
    EXPECT_EQ(rig.all("top"), (Effects{"top 16"}));
}

TEST(MakeMove, ALiveMoveIsSentAndNeitherListedNorStored) {
    MoveRig rig = MoveRig::start();
    rig.live();
    const auto stored = rig.game.PositionStore.plies[1];
    EXPECT_EQ(rig.make("e2e4"), "e4");
    EXPECT_EQ(rig.effects, (Effects{"draw 12 0", "draw 28 0", "send e2-e4"}));
    EXPECT_TRUE(rig.game.PositionStore.plies[1] == stored);
    EXPECT_EQ(rig.game.Turn, -1);
}

TEST(MakeMove, ALiveMoveOfBlackRaisesTheRow) {
    MoveRig rig("pe7 Ke1 ke8", -1);
    rig.live();
    rig.make("e7e5");
    EXPECT_EQ(rig.game.MoveRow, 2);
    EXPECT_EQ(rig.all("send"), (Effects{"send e7-e5"}));
}

TEST(MakeMove, ALiveMoveThatIsRefusedIsNotSent) {
    MoveRig rig = MoveRig::start();
    rig.live();
    EXPECT_EQ(rig.make("e2e5"), "");
    EXPECT_TRUE(rig.effects.empty());
}

TEST(MakeMove, ALiveCastlingIsSentAsTheKingsSquares) {
    MoveRig rig("Ke1 Rh1 ka8");
    rig.live().make("e1g1");
    EXPECT_EQ(rig.all("send"), (Effects{"send e1-g1"}));
}

TEST(MakeMove, ALivePromotionIsSentWithItsPartAndTheSignOfCheck) {
    MoveRig rig("Pe7 Ka1 kg7");
    rig.game.PromotePiece = 2;
    EXPECT_EQ(rig.live().make("e7e8"), "e8=Q");
    EXPECT_EQ(rig.all("send"), (Effects{"send e7-e8=Q"}));
    MoveRig check("Pe7 Ka1 kg8");
    check.game.PromotePiece = 3;
    check.live().make("e7e8");
    EXPECT_EQ(check.all("send"), (Effects{"send e7-e8=R+"}));
}

TEST(MakeMove, ALiveCheckWithoutPromotionIsSentWithoutThePlus) {
    MoveRig rig("Ra1 Ke1 ke8");
    EXPECT_EQ(rig.live().make("a1a8"), "Ra8+");
    EXPECT_EQ(rig.all("send"), (Effects{"send a1-a8"}));
}

TEST(MakeMove, ALiveDismissedPromotionIsSentWithoutAPart) {
    MoveRig rig("Pe7 Ka1 kg7");
    rig.live().make("e7e8");
    EXPECT_EQ(rig.all("send"), (Effects{"send e7-e8"}));
}

TEST(MakeMove, ALiveEnPassantTakesThePawnWhateverTheLastMoveWas) {
    MoveRig rig("Pe5 pd5 Ke1 kg8");
    EXPECT_EQ(rig.live().make("e5d6"), "exd6");
    EXPECT_EQ(rig.at("d5"), 0);
    EXPECT_EQ(rig.all("send"), (Effects{"send e5-d6"}));
}

TEST(MakeMove, Row200TakesAMoveOfWhiteAndFaultsAtTheGrantBehindBlacks) {
    MoveRig rig("Ke1 ke8");
    rig.game.MoveRow = 200;
    EXPECT_EQ(rig.make("e1d1"), "Kd1");
    try {
        rig.make("e8d8");
        ADD_FAILURE() << "row 201 was written";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.kind(), FaultKind::Subscript);
    }
}

TEST(MakeMove, Row201PaintsItsMoveAndFaultsBeforeItIsSent) {
    MoveRig rig("Ke1 ke8");
    rig.live();
    rig.game.MoveRow = 201;
    EXPECT_THROW(rig.make("e1d1"), Fault);
    EXPECT_EQ(rig.effects, (Effects{"draw 4 0", "draw 3 0"}));
}

TEST(MakeMove, ARepeatedLocalGameKeepsBoardListAndStoreInStep) {
    MoveRig rig = MoveRig::start();
    const char* const moves[] = {"e2e4", "d7d5", "e4d5", "d8d5", "g1f3", "c8g4", "f1e2", "b8c6", "e1g1", "e8c8"};
    const char* const texts[] = {"e4", "d5", "exd5", "Qxd5", "Nf3", "Bg4", "Be2", "Nc6", "O-O", "O-O-O"};
    for (int ply = 1; ply <= 10; ++ply) {
        EXPECT_EQ(rig.make(moves[ply - 1]), texts[ply - 1]);
        EXPECT_EQ(rig.game.grdMoves.text((ply + 1) / 2, 2 - ply % 2), texts[ply - 1]);
        for (int square = 0; square < 64; ++square) {
            EXPECT_EQ(rig.game.PositionStore.plies[ply][square], rig.game.Board[square]) << ply << " " << square;
        }
    }
    EXPECT_EQ(rig.game.MoveRow, 6);
}

TEST(MakeMove, NoMoveOfAKingIsEverRemembered) {
    MoveRig rig("Ke1 Ra1 Rh1 ke8 ra8 rh8");
    for (const char* move : {"e1g1", "e8c8", "g1g2", "c8c7", "g2g1", "c7c8"}) EXPECT_NE(rig.make(move), "") << move;
    for (long slot = 0; slot <= 2; ++slot) EXPECT_FALSE(rig.game.KingMoved[slot]) << slot;
    MoveRig again("Ke1 Rh1 ke8");
    for (const char* move : {"e1e2", "e8e7", "e2e1", "e7e8"}) again.make(move);
    EXPECT_EQ(again.make("e1g1"), "O-O") << "a king that went and came back";
}

TEST(MakeMove, ALiveMoveIsSentWithoutDisplayToo) {
    MoveRig rig("Pe2");
    rig.live();
    EXPECT_EQ(rig.make("e2e4", true, false), "e4");
    EXPECT_EQ(rig.effects, Effects{"send e2-e4"});
}
