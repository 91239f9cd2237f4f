// Walking through a local game: steps, start and end, cells, divergence and return, the label and the tints.
#include "board/WalkRig.h"

#include <gtest/gtest.h>

namespace {

// 1. e4 e5 2. Nf3 Nc6, played on the board itself, at its end.
struct OwnGame : WalkRig {
    OwnGame() {
        for (const char* move : {"e2e4", "e7e5", "g1f3", "b8c6"}) play(move);
        effects.clear();
    }
};

// The same four moves seen live; the game has ended.
struct EndedGame : WalkRig {
    EndedGame() {
        watch({"e4", "e5", "Nf3", "Nc6"});
        game.zEndParms();
        effects.clear();
    }
};

} // namespace

TEST(Walk, ANewBoardHasTheBuiltInStartLineAndNothingAhead) {
    WalkRig rig;
    EXPECT_EQ(rig.game.InitialLine, FixedStartLine);
    EXPECT_FALSE(rig.game.CanForward);
    rig.game.zReposition(1);
    rig.game.zReposition(2);
    EXPECT_EQ(rig.ply(), 0);
}

TEST(Walk, ZeroHasNoEffect) {
    EndedGame rig;
    rig.game.zReposition(0);
    EXPECT_TRUE(rig.effects.empty());
}

TEST(Walk, BackOnTheFirstPositionChangesNothing) {
    WalkRig rig;
    const BoardSquares before = rig.game.Board;
    rig.game.zReposition(-1);
    EXPECT_TRUE(rig.effects.empty());
    EXPECT_EQ(rig.game.Board, before);
    EXPECT_EQ(rig.ply(), 0);
}

TEST(Walk, AStepBackByItselfStopsAtTheStartToo) {
    WalkRig rig;
    rig.game.zStepBack();
    EXPECT_TRUE(rig.effects.empty());
    EXPECT_EQ(rig.ply(), 0);
}

TEST(Walk, AStepBackGoesToThePositionBeforeAndPaintsItsSquaresAlone) {
    EndedGame rig;
    rig.game.zReposition(-1);
    EXPECT_EQ(rig.at("b8"), -Piece::Knight);
    EXPECT_EQ(rig.at("c6"), 0);
    EXPECT_EQ(rig.game.MoveRow, 2);
    EXPECT_EQ(rig.game.Turn, -1);
    EXPECT_EQ(rig.all("draw"), (Effects{"draw 42 0", "draw 57 0"}));
    rig.game.zReposition(-1);
    EXPECT_EQ(rig.game.MoveRow, 2);
    EXPECT_EQ(rig.game.Turn, 1);
    EXPECT_EQ(rig.at("g1"), Piece::Knight);
}

TEST(Walk, BackFollowsTheListAndTheLabelTellsTheMoveNowLastPlayed) {
    EndedGame rig;
    rig.game.zReposition(-1);
    EXPECT_EQ(rig.current(), "2,1 Nf3");
    EXPECT_EQ(rig.label(), "2. Nf3");
    rig.game.zReposition(-1);
    EXPECT_EQ(rig.current(), "1,2 e5");
    EXPECT_EQ(rig.label(), "1.. e5");
    rig.game.zReposition(-1);
    rig.game.zReposition(-1);
    EXPECT_EQ(rig.current(), "0,2 Black");
    EXPECT_EQ(rig.label(), "");
}

TEST(Walk, ForwardMakesTheStoredMoveAndTintsItAsOnTheLine) {
    EndedGame rig;
    rig.game.zReposition(-2);
    rig.game.zReposition(1);
    EXPECT_EQ(rig.at("e4"), Piece::Pawn);
    EXPECT_EQ(rig.current(), "1,1 e4");
    EXPECT_EQ(rig.label(), "1. e4");
    EXPECT_EQ(rig.tints(), (Tints{{1, 1, GridTint::OnLine}}));
    rig.game.zReposition(1);
    EXPECT_EQ(rig.label(), "1.. e5");
    EXPECT_EQ(rig.tints(), (Tints{{1, 2, GridTint::OnLine}}));
    EXPECT_TRUE(rig.all("send").empty());
}

TEST(Walk, AStepToEitherSideKeepsThePicture) {
    EndedGame rig;
    rig.game.zReposition(-1);
    EXPECT_EQ(rig.all("picture").size(), 1U);
    rig.effects.clear();
    rig.game.zReposition(1);
    EXPECT_EQ(rig.all("picture").size(), 1U);
}

TEST(Walk, WithoutTheGridLightAStepForwardTintsNothing) {
    OwnGame rig;
    ASSERT_FALSE(rig.game.GridLightOn);
    rig.game.zReposition(-1);
    rig.game.zReposition(1);
    EXPECT_EQ(rig.current(), "2,2 Nc6");
    EXPECT_TRUE(rig.tints().empty());
}

TEST(Walk, ForwardDoesNothingWithNothingAhead) {
    EndedGame rig;
    rig.game.zReposition(-1);
    rig.game.zFor(false);
    rig.effects.clear();
    rig.game.zReposition(1);
    rig.game.zReposition(2);
    EXPECT_TRUE(rig.effects.empty());
    EXPECT_EQ(rig.ply(), 3);
}

TEST(Walk, ForwardAtTheEndOfTheStoredMovesMakesNone) {
    EndedGame rig;
    rig.game.zReposition(1);
    EXPECT_EQ(rig.ply(), 4);
    EXPECT_EQ(rig.game.zStepForward(true), "");
}

TEST(Walk, ForwardBehindRow200FindsNoStoredMove) {
    WalkRig rig;
    rig.game.MoveRow = 201;
    EXPECT_EQ(rig.game.zStepForward(true), "");
    rig.game.Board[1] = 0; // beside the rook on the first square
    EXPECT_EQ(rig.game.zStepForward(true), "");
}

TEST(Walk, TheStoredMoveOfRow200IsMade) {
    WalkRig rig;
    rig.game.MoveRow = 200;
    rig.game.MoveText[200][0] = "e4";
    EXPECT_EQ(rig.game.zStepForward(true), "e4");
}

TEST(Walk, TheCellInFrontOfTheFirstRowIsTheStart) {
    WalkRig rig;
    rig.play("e2e4");
    rig.game.zGoToPosition(0, 2);
    EXPECT_EQ(rig.at("e2"), 6);
    EXPECT_EQ(rig.ply(), 0);
}

TEST(Walk, AStoredMoveThatCannotBeMadeStopsThere) {
    EndedGame rig;
    rig.game.MoveText[2][0] = "Qxh7";
    rig.game.zReposition(-2);
    for (int step = 0; step < 5; ++step) rig.game.zReposition(1);
    EXPECT_EQ(rig.ply(), 2);
}

TEST(Walk, AStoredMoveWithoutASourceIsTriedFromTheFirstSquare) {
    WalkRig rig;
    rig.game.Board[zSquareNumber("a2")] = 0;
    rig.game.MoveText[1][0] = "Na5";
    rig.game.zFor(true);
    EXPECT_EQ(rig.game.zStepForward(true), "Ra5") << "the rook of a1 can go there";
}

TEST(Walk, APromotionIsMadeAsStoredWithoutAQuestion) {
    for (const auto& [text, piece] : std::vector<std::pair<std::string, int>>{{"a8=N", 5}, {"axb8=R", 3}, {"a8Q", 2}}) {
        WalkRig rig;
        rig.game.Board[zSquareNumber("a7")] = Piece::Pawn;
        rig.game.Board[zSquareNumber("a8")] = 0;
        rig.game.MoveText[1][0] = text;
        EXPECT_NE(rig.game.zStepForward(true), "") << text;
        EXPECT_EQ(rig.at(text[1] == 'x' ? "b8" : "a8"), piece) << text;
        EXPECT_EQ(rig.game.PromotePiece, 0) << text;
    }
}

TEST(Walk, APromotionWithoutAPieceForgetsThePieceOfAnother) {
    WalkRig rig;
    std::int16_t from = 0;
    std::int16_t to = 0;
    bool ok = false;
    rig.game.zdeAnn("a8=N", 1, from, to, ok);
    EXPECT_EQ(rig.game.PromotePiece, Piece::Knight);
    rig.game.zdeAnn("a7", 1, from, to, ok);
    EXPECT_EQ(rig.game.PromotePiece, Piece::Knight) << "no promotion";
    rig.game.zdeAnn("a8", 1, from, to, ok);
    EXPECT_EQ(rig.game.PromotePiece, 0);
}

TEST(Walk, APromotionThatIsNoMoveLeavesNoPieceToTheNextPawn) {
    for (const char* text : {"a8=N", "bxa1=R"}) {
        WalkRig rig;
        rig.game.MoveText[1][0] = text;
        EXPECT_EQ(rig.game.zStepForward(true), "") << text;
        EXPECT_EQ(rig.game.PromotePiece, 0) << text;
    }
}

TEST(Walk, ADropThatIsReadAsAMoveLeavesTheHandEmpty) {
    WalkRig rig;
    rig.game.MoveText[1][0] = "P@e4";
    EXPECT_EQ(rig.game.zStepForward(true), "e4");
    EXPECT_EQ(rig.game.Board[HandSquare], 0);
}

TEST(Walk, ADropIsMadeFromTheHand) {
    WalkRig rig;
    rig.game.MoveText[1][0] = "N@e5";
    EXPECT_EQ(rig.game.zStepForward(true), "N@e5");
    EXPECT_EQ(rig.at("e5"), Piece::Knight);
    EXPECT_EQ(rig.game.Board[HandSquare], 0);
}

TEST(Walk, ADropOfBlacksIsABlackPiece) {
    WalkRig rig;
    rig.game.Turn = -1;
    rig.game.MoveText[1][1] = "N@e5";
    EXPECT_EQ(rig.game.zStepForward(true), "N@e5");
    EXPECT_EQ(rig.at("e5"), -Piece::Knight);
}

TEST(Walk, ADropThatALikePieceCanReachIsThatPiecesMove) {
    WalkRig rig;
    rig.game.MoveText[1][0] = "P@e4";
    EXPECT_EQ(rig.game.zStepForward(true), "e4");
    EXPECT_EQ(rig.at("e2"), 0);
}

TEST(Walk, TheHandIsNoSquareThatAMoveIsToldApartFrom) {
    WalkRig rig;
    rig.game.Board[zSquareNumber("c5")] = 5;
    rig.game.Board[zSquareNumber("b7")] = 0;
    rig.game.MoveText[1][0] = "N@b7";
    EXPECT_EQ(rig.game.zStepForward(true), "Nb7");
}

TEST(Walk, ToTheStartFillsTheListAndForgetsTheDivergence) {
    EndedGame rig;
    rig.game.Deviated = 3;
    rig.game.zFor(false);
    rig.game.zReposition(-2);
    EXPECT_EQ(rig.ply(), 0);
    EXPECT_EQ(rig.at("e2"), Piece::Pawn);
    EXPECT_EQ(rig.game.grdMoves.text(1, 0), "1");
    EXPECT_EQ(rig.game.grdMoves.text(2, 2), "Nc6");
    EXPECT_EQ(rig.game.grdMoves.text(3, 0), "") << "up to the last row";
    EXPECT_TRUE(rig.game.CanForward);
    EXPECT_EQ(rig.game.Deviated, 0);
    EXPECT_EQ(rig.label(), "");
    EXPECT_EQ(rig.game.grdMoves.row, 0);
}

TEST(Walk, ToTheStartPaintsEachSquareOfTheStart) {
    EndedGame rig;
    rig.game.zReposition(-2);
    EXPECT_GE(rig.all("draw").size(), 32U);
}

TEST(Walk, ToTheStartIsWhitesTurnWhoeverWasToMove) {
    EndedGame rig;
    rig.game.zReposition(-1);
    ASSERT_EQ(rig.game.Turn, -1);
    rig.game.zReposition(-2);
    EXPECT_EQ(rig.game.Turn, 1);
    EXPECT_EQ(rig.ply(), 0);
}

TEST(Walk, ToTheStartScrollsTheListBack) {
    EndedGame rig;
    rig.game.grdMoves.topRow = 40;
    rig.game.zReposition(-2);
    EXPECT_EQ(rig.game.grdMoves.topRow, 1);
}

TEST(Walk, ToTheEndGoesToTheCellOfTheLastMove) {
    EndedGame rig;
    rig.game.zReposition(-2);
    rig.game.zReposition(2);
    EXPECT_EQ(rig.ply(), 4);
    EXPECT_EQ(rig.at("c6"), -Piece::Knight);
    EXPECT_EQ(rig.current(), "2,2 Nc6");
    EXPECT_EQ(rig.label(), "2.. Nc6");
    EXPECT_EQ(rig.tints(), (Tints{{2, 2, GridTint::OnLine}}));
    EXPECT_TRUE(rig.saw("paint"));
}

TEST(Walk, ToTheEndOfABoardWithoutMovesChangesNothing) {
    WalkRig rig;
    rig.game.zReposition(-2);
    rig.effects.clear();
    rig.game.zReposition(2);
    EXPECT_EQ(rig.ply(), 0);
    EXPECT_TRUE(rig.all("draw").empty());
}

TEST(Walk, ToTheEndKeepsTheMoveInView) {
    WalkRig rig;
    std::vector<std::string> moves;
    for (int move = 0; move < 20; ++move) moves.insert(moves.end(), {"Nf3", "Nf6", "Ng1", "Ng8"});
    rig.watch(moves);
    rig.game.zEndParms();
    rig.game.grdMoves.VisibleRows = 10;
    rig.game.zReposition(-2);
    EXPECT_EQ(rig.game.grdMoves.topRow, 1);
    rig.game.zReposition(2);
    EXPECT_EQ(rig.game.grdMoves.topRow, 41 - 9);
}

TEST(Walk, EndMakesAllStoredMovesThatLieAhead) {
    EndedGame rig;
    rig.game.zStart();
    rig.game.LastRow = 0;
    rig.effects.clear();
    rig.game.zEnd();
    EXPECT_EQ(rig.ply(), 4);
    EXPECT_EQ(rig.at("c6"), -Piece::Knight);
    EXPECT_TRUE(rig.all("draw").empty()) << "its caller paints";
    EXPECT_TRUE(rig.all("cell").empty());
}

TEST(Walk, EndTintsNoMoveOnItsWay) {
    EndedGame rig;
    rig.game.zStart();
    rig.game.LastRow = 0;
    rig.game.grdMoves.goTo(1, 1);
    rig.game.zEnd();
    EXPECT_EQ(rig.ply(), 4);
    EXPECT_TRUE(rig.tints().empty());
}

TEST(Walk, EndKeepsTheMoveInView) {
    WalkRig rig;
    std::vector<std::string> moves;
    for (int move = 0; move < 20; ++move) moves.insert(moves.end(), {"Nf3", "Nf6", "Ng1", "Ng8"});
    rig.watch(moves);
    rig.game.zEndParms();
    rig.game.zStart();
    rig.game.grdMoves.VisibleRows = 10;
    rig.game.zEnd();
    EXPECT_EQ(rig.game.MoveRow, 41);
    EXPECT_EQ(rig.game.grdMoves.topRow, 41 - 9);
}

TEST(Walk, EndWithALastRowGoesToThePositionInFrontOfTheLastMove) {
    EndedGame rig;
    rig.game.zStart();
    rig.effects.clear();
    rig.game.zEnd();
    EXPECT_TRUE(rig.all("draw").empty()) << "its caller paints";
    EXPECT_EQ(rig.at("b8"), -Piece::Knight) << "the position that 2 x row + column - 2 counts to";
    EXPECT_EQ(rig.at("f3"), Piece::Knight);
    EXPECT_EQ(rig.current(), "2,2 Nc6");
    EXPECT_EQ(rig.tints(), (Tints{{2, 2, GridTint::OnLine}}));
}

TEST(Walk, ACellHasThePositionBehindItsMove) {
    EndedGame rig;
    rig.game.grdMovesClick(1, 2);
    EXPECT_EQ(rig.ply(), 2);
    EXPECT_EQ(rig.game.MoveRow, 2);
    EXPECT_EQ(rig.game.Turn, 1);
    EXPECT_EQ(rig.at("e5"), -Piece::Pawn);
    EXPECT_EQ(rig.at("f3"), 0);
    EXPECT_EQ(rig.label(), "1.. e5");
    rig.game.grdMovesClick(1, 1);
    EXPECT_EQ(rig.game.MoveRow, 1);
    EXPECT_EQ(rig.game.Turn, -1);
    EXPECT_EQ(rig.label(), "1. e4");
    EXPECT_EQ(rig.tints(), (Tints{{1, 1, GridTint::OnLine}}));
}

TEST(Walk, ACellPaintsTheWholeBoardPlainAndEndsTheFourSeconds) {
    EndedGame rig;
    rig.game.noPlay = true;
    rig.game.grdMovesClick(1, 1);
    EXPECT_EQ(rig.all("draw").size(), 64U);
    EXPECT_LT(rig.place("draw 63 0"), rig.place("paint"));
    EXPECT_FALSE(rig.game.noPlay);
}

TEST(Walk, ACellBehindTheLastRowIsIgnored) {
    EndedGame rig;
    rig.game.grdMovesClick(3, 1);
    EXPECT_TRUE(rig.effects.empty());
    EXPECT_EQ(rig.ply(), 4);
}

TEST(Walk, TheEmptyBlackCellOfTheLastRowShowsWhateverTheStoreHolds) {
    WalkRig rig;
    rig.watch({"e4", "e5", "Nf3"});
    rig.game.zEndParms();
    rig.game.grdMovesClick(2, 2);
    EXPECT_EQ(rig.ply(), 4);
    EXPECT_EQ(rig.at("e1"), 0) << "nothing was ever stored there";
    EXPECT_EQ(rig.label(), "2.. ");
}

TEST(Walk, HeadingAndNumbersAreNoCells) {
    EndedGame rig;
    rig.game.grdMovesClick(0, 1);
    rig.game.grdMovesClick(0, 0);
    rig.game.grdMovesClick(1, 0);
    EXPECT_TRUE(rig.effects.empty());
}

TEST(Walk, StepsForwardGoOnFromACell) {
    EndedGame rig;
    rig.game.grdMovesClick(1, 2);
    rig.game.zReposition(1);
    EXPECT_EQ(rig.label(), "2. Nf3");
    rig.game.zReposition(1);
    EXPECT_EQ(rig.label(), "2.. Nc6");
}

TEST(Walk, AnotherMoveOfOnesOwnEndsWhatLayAhead) {
    EndedGame rig;
    rig.game.grdMovesClick(1, 2);
    rig.play("g1h3");
    EXPECT_FALSE(rig.game.CanForward);
    EXPECT_EQ(rig.game.Deviated, 3);
    EXPECT_EQ(rig.game.MoveText[2][0], "Nh3");
    EXPECT_EQ(rig.game.MoveText[2][1], "");
    EXPECT_EQ(rig.tints(), (Tints{{2, 1, GridTint::OffLine}}));
    rig.play("b8c6");
    EXPECT_EQ(rig.tints(), (Tints{{2, 1, GridTint::Left}, {2, 2, GridTint::OffLine}}));
}

TEST(Walk, TheStoredMoveMadeByHandWalksAlong) {
    EndedGame rig;
    rig.game.grdMovesClick(1, 2);
    rig.play("g1f3");
    EXPECT_TRUE(rig.game.CanForward);
    EXPECT_EQ(rig.game.Deviated, 0);
    EXPECT_EQ(rig.tints(), (Tints{{2, 1, GridTint::OnLine}}));
    rig.game.zReposition(1);
    EXPECT_EQ(rig.label(), "2.. Nc6");
}

TEST(Walk, BackBeforeTheDivergenceMakesStoredMovesReachableAgain) {
    EndedGame rig;
    rig.game.GameLoaded = true;
    rig.game.grdMovesClick(1, 2);
    rig.play("g1h3");
    EXPECT_EQ(rig.game.Deviated, 3);
    rig.play("b8c6");
    rig.game.zReposition(-1);
    EXPECT_FALSE(rig.game.CanForward) << "still on the own line";
    rig.game.zReposition(-1);
    EXPECT_TRUE(rig.game.CanForward);
    EXPECT_EQ(rig.game.Deviated, 0);
    EXPECT_EQ(rig.tints(), (Tints{{1, 2, GridTint::OnLine}, {2, 1, GridTint::Left}, {2, 2, GridTint::Left}}));
    rig.game.zReposition(1);
    EXPECT_EQ(rig.label(), "2. Nf3") << "the loaded move is made again";
}

TEST(Walk, ALoadedGameKeepsItsTexts) {
    EndedGame rig;
    rig.game.GameLoaded = true;
    rig.game.grdMovesClick(1, 2);
    rig.play("g1h3");
    EXPECT_EQ(rig.game.MoveText[2][0], "Nf3");
    EXPECT_EQ(rig.game.MoveText[2][1], "Nc6");
}

TEST(Walk, WithoutTheGridLightAStepBackBlanksTheMove) {
    OwnGame rig;
    ASSERT_FALSE(rig.game.GridLightOn);
    rig.game.zReposition(-1);
    EXPECT_EQ(rig.game.grdMoves.text(2, 2), "");
    EXPECT_EQ(rig.game.grdMoves.text(2, 0), "2");
    rig.game.zReposition(-1);
    EXPECT_EQ(rig.game.grdMoves.text(2, 1), "");
    EXPECT_EQ(rig.game.grdMoves.text(2, 0), "") << "white's move takes the number along";
    EXPECT_EQ(rig.game.grdMoves.text(1, 2), "e5");
    EXPECT_TRUE(rig.tints().empty());
}

TEST(Walk, AStepBackEmptiesTheRecordOfTheMoveAndGivesItsGrantBack) {
    WalkRig rig;
    for (const char* move : {"e2e4", "a7a6", "e4e5", "d7d5", "e5d6"}) rig.play(move);
    ASSERT_EQ(rig.game.MoveUndo[3][0][5], -Piece::Pawn);
    rig.game.zReposition(-1);
    for (int kind = 0; kind <= 5; ++kind) EXPECT_EQ(rig.game.MoveUndo[3][0][kind], 0) << kind;
    EXPECT_EQ(rig.game.EPGranted, -1);
    EXPECT_EQ(rig.at("d5"), -Piece::Pawn);
    rig.play("e5d6");
    EXPECT_EQ(rig.at("d5"), 0) << "en passant can be made again";
}

TEST(Walk, AStepBackOverACodeOfSevenForgetsThatTheKingMoved) {
    EndedGame rig;
    rig.game.KingMoved.fill(true);
    rig.game.MoveUndo[2][1][5] = 7;
    rig.game.zReposition(-1);
    EXPECT_FALSE(rig.game.KingMoved[0]);
    EXPECT_TRUE(rig.game.KingMoved[2]);
    rig.game.zReposition(-1);
    EXPECT_TRUE(rig.game.KingMoved[2]) << "any other code leaves it";
}

TEST(Walk, AStepBackKeepsTheMoveInView) {
    WalkRig rig;
    std::vector<std::string> moves;
    for (int move = 0; move < 20; ++move) moves.insert(moves.end(), {"Nf3", "Nf6", "Ng1", "Ng8"});
    rig.watch(moves);
    rig.game.zEndParms();
    rig.game.grdMoves.topRow = 40;
    rig.game.zReposition(-1);
    rig.game.zReposition(-1);
    EXPECT_EQ(rig.game.grdMoves.topRow, 39);
}

TEST(Walk, APieceInHandGoesBackFirst) {
    EndedGame rig;
    rig.game.hand.Dragging = true;
    rig.game.hand.DragFrom = zSquareNumber("d2");
    rig.game.zSetFrom(zSquareNumber("d2"));
    rig.game.zReposition(-1);
    EXPECT_FALSE(rig.game.hand.Dragging);
    EXPECT_EQ(rig.game.hand.FromSet, 0);
    EXPECT_TRUE(rig.saw("piece 0 0 0"));
    EXPECT_EQ(rig.effects.at(1), "draw 11 0");
}

TEST(Walk, APieceInHandGoesBackBeforeACellIsShown) {
    EndedGame rig;
    rig.game.hand.Dragging = true;
    rig.game.hand.DragFrom = zSquareNumber("d2");
    rig.game.zSetFrom(zSquareNumber("d2"));
    rig.game.grdMovesClick(1, 1);
    EXPECT_FALSE(rig.game.hand.Dragging);
    EXPECT_EQ(rig.game.hand.FromSet, 0);
    EXPECT_EQ(rig.effects.at(0), "piece 0 0 0");
    EXPECT_EQ(rig.effects.at(1), "draw 11 0");
}

TEST(Walk, AGameThatEndedOnTheServerIsWalkedMoveByMove) {
    WalkRig rig;
    rig.watch(
        {"e4", "d5", "exd5", "Nf6", "Bb5+", "c6", "dxc6", "Qc7", "cxb7+", "Kd8", "bxa8=Q", "e5", "Nf3", "e4", "O-O"});
    rig.game.zEndParms();
    const BoardSquares last = rig.game.Board;
    for (int step = 0; step < 20; ++step) rig.game.zReposition(-1);
    EXPECT_EQ(rig.ply(), 0);
    for (int step = 0; step < 20; ++step) rig.game.zReposition(1);
    EXPECT_EQ(rig.ply(), 15);
    EXPECT_EQ(rig.game.Board, last);
}
