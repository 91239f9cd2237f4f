// What a board, and what belongs to one, holds before anything has happened.
#include "board/CloseRules.h"
#include "board/MoveInput.h"
#include "board/QuietGame.h"

#include <gtest/gtest.h>

TEST(FreshBoard, HasNoGame) {
    const auto game = quietGame();
    EXPECT_EQ(game->id, 0);
    EXPECT_EQ(game->gameIndex, 0);
    for (const bool flag : {game->icsMode, game->GameLoaded, game->HoldingsShown, game->noPlay, game->Flipped})
        EXPECT_FALSE(flag);
    EXPECT_EQ(game->LastSecond, 0);
}

TEST(FreshBoard, StandsInFrontOfWhitesFirstMove) {
    const auto game = quietGame();
    EXPECT_EQ(game->MoveRow, 1);
    EXPECT_EQ(game->Turn, 1);
    for (const int place : {game->NextPly, game->ShownPly}) EXPECT_EQ(place, 0);
    for (const int place : {game->LastRow, game->LastCol, game->CurRow, game->CurCol, game->Deviated})
        EXPECT_EQ(place, 0);
    EXPECT_FALSE(game->CanForward);
    EXPECT_FALSE(game->GridLightOn);
}

TEST(FreshBoard, HasNoMoveInHandNorQueuedNorMarked) {
    const auto game = quietGame();
    for (const int square : {game->FromSq, game->ToSq, game->PreFrom, game->PreTo, game->HiFrom, game->HiTo})
        EXPECT_EQ(square, 0);
    for (const int state : {game->EPGranted, game->EPCapture, game->PromotePiece}) EXPECT_EQ(state, 0);
    EXPECT_FALSE(game->PreMoveSet);
    const MoveInHand& hand = game->hand;
    for (const int number : {hand.FromSet, hand.MoveMode, hand.DragFrom}) EXPECT_EQ(number, 0);
    for (const float point : {hand.MouseX, hand.MouseY, hand.SlipX, hand.SlipY}) EXPECT_EQ(point, 0);
    EXPECT_EQ(hand.DragAlpha, 0);
    EXPECT_FALSE(hand.Dragging);
    EXPECT_FALSE(hand.promotionAnswered);
    EXPECT_FALSE(hand.promotion);
}

TEST(FreshBoard, ShowsItsMoveListFromTheFirstRowWithNoCellTinted) {
    const MoveGridState grid(quietGrid());
    for (const int place : {grid.row, grid.col, grid.tintedRow, grid.tintedCol}) EXPECT_EQ(place, 0);
    EXPECT_EQ(grid.topRow, 1);
    EXPECT_EQ(grid.VisibleRows, 0);
    EXPECT_EQ(GridCell{}.tint, 0xFFFFFF);
}

TEST(FreshBoard, GivingUpTheMoveInHandPutsAllOfItDown) {
    MoveInHand hand;
    hand.Dragging = true;
    hand.FromSet = 1;
    hand.promotion = AskedPromotion{};
    hand.giveUp();
    EXPECT_FALSE(hand.Dragging);
    EXPECT_EQ(hand.FromSet, 0);
    EXPECT_FALSE(hand.promotion);
}

TEST(FreshBoard, TheDesignOfTheMoveListHasItsColoursAndWidths) {
    EXPECT_EQ(GridTint::Plain, 0xFFFFFF);
    EXPECT_EQ(GridTint::OnLine, 0xC0C0FF);
    EXPECT_EQ(GridTint::OffLine, 0x80FFFF);
    EXPECT_EQ(GridTint::Left, 0xC0FFFF);
    EXPECT_EQ(MoveGridState::NumberWidth, 20);
    EXPECT_EQ(MoveGridState::MoveWidth, 47);
}

TEST(FreshBoard, WhereNothingIsKnownOfTheClosingItIsTheOnlyBoardAndTheUsersWish) {
    const CloseFacts facts;
    EXPECT_EQ(facts.openBoards, 1);
    for (const bool fact : {facts.byProgram, facts.pgnInUse, facts.appClosing}) EXPECT_FALSE(fact);
    const CloseDecision decision;
    for (const bool part :
         {decision.enableBoardMenu, decision.closeChooser, decision.refused, decision.unloadPanels, decision.ask})
        EXPECT_FALSE(part);
}

TEST(FreshBoard, TheQuestionBeforeARunningGameIsLeft) {
    EXPECT_EQ(CloseBoxTitle, "Game in progress");
    EXPECT_EQ(CloseBoxText, "Board will close.  Type 'ref' to re-open");
}

TEST(FreshBoard, AnEntryOfTheDropMenuIsDisabledAndAPointIsTheCorner) {
    EXPECT_FALSE(DropEntry{}.enabled);
    EXPECT_EQ(BoardPoint{}.x, 0);
    EXPECT_EQ(BoardPoint{}.y, 0);
}
