// Who is asked for the piece of a promotion, and what becomes of the move that waits for the answer.
#include "board/MoveInputRig.h"
#include "board/MoveRig.h"

#include "common/Fault.h"

#include <gtest/gtest.h>

namespace {

using Effects = std::vector<std::string>;

const std::string Ranks = "----k--- PP------ -------- -------- -------- -------- -------- ----K---";

// A live game in which the user's pawns on a7 and b7 are about to promote.
struct Promoting : MoveInputRig {
    Promoting() { openWith({.ranks = Ranks}); }
    // The same position once more.
    void refresh() { receive({.ranks = Ranks, .verbose = "K/e2-e1", .pretty = "Ke1"}); }
    std::size_t asked() const { return all("promote").size(); }
};

// The same before the opponent's move, with a7-a8 queued and the pointer on no piece of the user's.
struct Queued : Promoting {
    Queued() {
        modChess.PreMoveOK = 1;
        receive({.ranks = Ranks, .turn = "B", .relation = -1});
        queue("a7", "a8");
        move("h5");
        effects.clear();
    }
    void opponentMoves() { receive({.ranks = Ranks, .moveNumber = 2, .verbose = "K/d8-e8", .pretty = "Ke8"}); }
};

bool asks(MoveRig& rig, std::string_view move) {
    rig.game.zSetFrom(zSquareNumber(move.substr(0, 2)));
    return rig.game.asksPromotion(zSquareNumber(move.substr(2)));
}

} // namespace

// Who is asked

TEST(AsksPromotion, WhenAPawnGoesToTheLastRowOrTakesThere) {
    MoveRig white("Pa7 rb8");
    EXPECT_TRUE(asks(white, "a7a8"));
    EXPECT_TRUE(asks(white, "a7b8"));
    MoveRig black("pa2 Rb1", -1);
    EXPECT_TRUE(asks(black, "a2a1"));
    EXPECT_TRUE(asks(black, "a2b1"));
}

TEST(AsksPromotion, NotWhenItStopsShortOfItNorForAnotherPiece) {
    MoveRig rig("Pa6 Rb7");
    EXPECT_FALSE(asks(rig, "a6a7"));
    EXPECT_FALSE(asks(rig, "b7b8"));
}

TEST(AsksPromotion, NotForAMoveThatTheRulesRefuse) {
    MoveRig rig("Pa7 ra8");
    EXPECT_FALSE(asks(rig, "a7a8"));
    EXPECT_FALSE(asks(rig, "a7b8"));
    EXPECT_FALSE(asks(rig, "a7h8"));
}

TEST(AsksPromotion, OfAPawnFromTheHandWithoutARule) {
    MoveRig rig("ra8");
    rig.game.Board[HandSquare] = 6;
    rig.game.zSetFrom(HandSquare);
    EXPECT_TRUE(rig.game.asksPromotion(56));
    EXPECT_FALSE(rig.game.asksPromotion(48));
}

TEST(AsksPromotion, NotWhenThePieceIsKnownAndNotWithAutoQueen) {
    MoveRig rig("Pa7");
    rig.game.PromotePiece = 4;
    EXPECT_FALSE(asks(rig, "a7a8"));
    rig.game.PromotePiece = 0;
    for (const std::int16_t autoQueen : std::initializer_list<std::int16_t>{1, -1, 2}) {
        modChess.AutoQueen = autoQueen;
        EXPECT_FALSE(asks(rig, "a7a8")) << autoQueen;
    }
}

TEST(AsksPromotion, NotWithoutAMoveInHand) {
    MoveRig rig("Pa7");
    rig.game.FromSq = 48;
    for (const auto set : std::initializer_list<std::int16_t>{0, 2, -1}) {
        rig.game.hand.FromSet = set;
        EXPECT_FALSE(rig.game.asksPromotion(56)) << set;
    }
}

TEST(AsksPromotion, NotBackOnItsSquareNorBesideTheBoard) {
    MoveRig rig("Pa8 Pa7");
    EXPECT_FALSE(asks(rig, "a8a8"));
    rig.game.Board[HandSquare] = 6;
    for (const int from : {48, HandSquare}) {
        rig.game.zSetFrom(from);
        EXPECT_FALSE(rig.game.asksPromotion(64)) << from;
        EXPECT_FALSE(rig.game.asksPromotion(-1)) << from;
    }
}

TEST(AsksPromotion, AgainForTheNextPromotion) {
    MoveRig rig("Pa7 Pb7 Ke1 ke7");
    rig.game.PromotePiece = 3;
    rig.make("a7a8");
    rig.game.Turn = 1;
    EXPECT_TRUE(asks(rig, "b7b8"));
}

// Asking

TEST(Promotion, InBothStylesTheMenuIsAskedForOnceAndTheMoveWaitsForTheAnswer) {
    for (const std::int16_t dragMode : {std::int16_t{1}, std::int16_t{0}}) {
        Promoting rig;
        modChess.DragMode = dragMode;
        rig.press("a7");
        rig.move("a8", dragMode);
        if (dragMode == 0) rig.press("a8");
        rig.release("a8");
        EXPECT_EQ(rig.asked(), 1U) << dragMode;
        EXPECT_TRUE(rig.all("send").empty());
        EXPECT_EQ(rig.game.Board[48], 6);
        EXPECT_EQ(rig.game.Turn, 1);
        rig.input.promote(2);
        EXPECT_EQ(rig.all("send"), Effects{"send a7-a8=Q+"}) << dragMode;
        EXPECT_EQ(rig.asked(), 1U);
    }
}

TEST(Promotion, TheHandIsFreeWhileTheMenuIsUp) {
    Promoting rig;
    rig.drag("a7", "a8");
    EXPECT_FALSE(rig.game.hand.Dragging);
    EXPECT_EQ(rig.game.hand.FromSet, 0);
    EXPECT_EQ(rig.game.ToSq, 56);
    EXPECT_TRUE(rig.saw("focus"));
    EXPECT_TRUE(rig.saw("made"));
    rig.effects.clear();
    rig.move("h4");
    EXPECT_EQ(rig.effects, Effects{"pointer 0"}) << "no from-square was left open";
}

TEST(Promotion, EachAnswerPromotesToItsPiece) {
    const std::vector<std::pair<int, std::string>> answers{{2, "=Q+"}, {3, "=R+"}, {4, "=B"}, {5, "=N"}};
    for (const auto& [piece, part] : answers) {
        Promoting rig;
        rig.drag("a7", "a8");
        rig.input.promote(piece);
        EXPECT_EQ(rig.all("send"), Effects{"send a7-a8" + part});
        EXPECT_EQ(rig.game.Board[48], 0);
        EXPECT_EQ(rig.game.Board[56], piece);
    }
}

TEST(Promotion, ADismissedMenuSendsTheMoveWithoutAPieceAndLosesThePawn) {
    Promoting rig;
    rig.drag("a7", "a8");
    rig.input.promote(0);
    EXPECT_EQ(rig.all("send"), Effects{"send a7-a8"});
    EXPECT_EQ(rig.game.Board[48], 0);
    EXPECT_EQ(rig.game.Board[56], 0);
    EXPECT_EQ(rig.game.Turn, -1) << "it counts as a move";
}

TEST(Promotion, ADismissedMenuNamesNoPieceThoughQueensHaveBeenSwitchedOnMeanwhile) {
    Promoting rig;
    rig.drag("a7", "a8");
    modChess.AutoQueen = 1;
    rig.input.promote(0);
    EXPECT_EQ(rig.all("send"), Effects{"send a7-a8"});
    EXPECT_EQ(rig.game.Board[56], 0);
    rig.refresh();
    rig.drag("b7", "b8");
    EXPECT_EQ(rig.all("send").back(), "send b7-b8=Q+") << "the next one does";
}

TEST(Promotion, WithAutoQueenNobodyIsAsked) {
    Promoting rig;
    modChess.AutoQueen = 1;
    rig.drag("a7", "a8");
    EXPECT_EQ(rig.asked(), 0U);
    EXPECT_EQ(rig.all("send"), Effects{"send a7-a8=Q+"});
}

TEST(Promotion, NobodyIsAskedForAMoveThatTheRulesRefuseOrThatGoesBack) {
    Promoting rig;
    for (const char* to : {"h8", "a7"}) rig.drag("a7", to);
    EXPECT_EQ(rig.asked(), 0U);
    EXPECT_TRUE(rig.all("send").empty());
    EXPECT_TRUE(rig.saw("draw 63 0"));
    EXPECT_EQ(rig.game.Board[48], 6);
}

TEST(Promotion, AnAnswerThatNobodyAskedForChangesNothing) {
    Promoting rig;
    rig.input.promote(2);
    EXPECT_TRUE(rig.effects.empty());
    rig.drag("a7", "a8");
    rig.input.promote(2);
    rig.effects.clear();
    rig.input.promote(3);
    EXPECT_TRUE(rig.effects.empty()) << "one answer for one menu";
    EXPECT_EQ(rig.game.PromotePiece, 0);
}

TEST(Promotion, TheAnswerEndsWithAnUpdate) {
    for (const int piece : {0, 2}) {
        Promoting rig;
        rig.drag("a7", "a8");
        rig.effects.clear();
        rig.input.promote(piece);
        EXPECT_EQ(rig.effects.back(), "picture");
    }
}

TEST(Promotion, AMenuThatAnswersAtOncePromotesToo) {
    Promoting rig;
    rig.input.surface.popupPromote = [&] { rig.input.promote(3); };
    rig.drag("a7", "a8");
    EXPECT_EQ(rig.all("send"), Effects{"send a7-a8=R+"});
}

TEST(Promotion, BlacksMoveOnALocalBoardIsKeptInBlacksColumn) {
    MoveInputRig rig;
    rig.openWith({.ranks = "----k--- -------- -------- -------- -------- -------- p------- ----K---", .turn = "B"});
    rig.game.zEndParms();
    rig.game.MoveText[1][0] = "Kd2";
    rig.game.MoveText[2][0] = "Kd3";
    rig.drag("a2", "a1");
    rig.input.promote(5);
    EXPECT_EQ(rig.game.MoveText[1][0], "Kd2");
    EXPECT_EQ(rig.game.MoveText[1][1], "a1=N");
    EXPECT_EQ(rig.game.MoveText[2][0], "") << "what lay ahead has ended";
}

TEST(Promotion, OnALocalBoardTheMoveIsListedAndTintedWithTheAnswer) {
    Promoting rig;
    rig.game.zEndParms();
    rig.game.MoveText[1][0] = "Kd2";
    rig.game.MoveText[1][1] = "Kd7";
    rig.game.grdMoves.goTo(1, 1);
    rig.drag("a7", "a8");
    EXPECT_EQ(rig.game.grdMoves.cells[1][1].tint, GridTint::Plain);
    EXPECT_EQ(rig.game.MoveText[1][0], "Kd2");
    rig.input.promote(3);
    EXPECT_EQ(rig.game.grdMoves.text(1, 1), "a8=R+");
    EXPECT_EQ(rig.game.grdMoves.cells[1][1].tint, GridTint::OffLine);
    EXPECT_EQ(rig.game.MoveText[1][0], "a8=R+");
    EXPECT_EQ(rig.game.MoveText[1][1], "");
    EXPECT_TRUE(rig.all("send").empty());
}

TEST(Promotion, TheAnswerFaultsBehindRow200) {
    Promoting rig;
    rig.game.zEndParms();
    rig.game.Turn = -1;
    rig.game.MoveRow = 200;
    rig.game.Board[8] = -6;
    rig.drag("a2", "a1");
    EXPECT_EQ(rig.asked(), 1U);
    EXPECT_THROW(rig.input.promote(2), Fault);
}

// What comes under the menu

TEST(UnderThePromotionMenu, ThePositionOnceMoreChangesNothing) {
    Promoting rig;
    rig.drag("a7", "a8");
    rig.refresh();
    EXPECT_EQ(rig.game.ToSq, 4) << "of the last move's marks";
    rig.input.promote(2);
    EXPECT_EQ(rig.all("send"), Effects{"send a7-a8=Q+"});
    EXPECT_EQ(rig.game.ToSq, 56);
    EXPECT_FALSE(rig.game.hand.Dragging);
}

TEST(UnderThePromotionMenu, TheMoveWasTestedWhenItWasMadeAndIsNotTestedAgain) {
    Promoting rig;
    rig.drag("a7", "a8");
    rig.receive({.ranks = "n---k--- PP------ -------- -------- -------- -------- -------- ----K---"});
    rig.input.promote(2);
    EXPECT_EQ(rig.all("send"), Effects{"send a7-a8=Q+"}) << "the server judges";
    EXPECT_EQ(rig.game.Board[56], 2);
}

TEST(UnderThePromotionMenu, TheMoveIsWrittenDownWhereItStoodWhenItWasMade) {
    Promoting rig;
    rig.drag("a7", "a8");
    rig.receive({.ranks = Ranks, .moveNumber = 7, .pretty = "Ke8"});
    rig.input.promote(2);
    EXPECT_EQ(rig.game.MoveText[1][0], "a8=Q+");
    EXPECT_EQ(rig.game.MoveText[7][0], "");
}

TEST(UnderThePromotionMenu, TheEndOfTheGameLeavesTheMoveToTheUsersOwnBoard) {
    Promoting rig;
    rig.drag("a7", "a8");
    rig.game.zEndParms();
    rig.input.promote(2);
    EXPECT_TRUE(rig.all("send").empty()) << "there is no game to move in any more";
    EXPECT_EQ(rig.game.Board[56], 2);
    EXPECT_FALSE(rig.game.hand.Dragging);
}

TEST(UnderThePromotionMenu, ANewGameGetsNoMoveOfTheOldOneEvenWhereItsPawnStandsToo) {
    Promoting rig;
    rig.drag("a7", "a8");
    rig.game.zEndParms();
    rig.open({.ranks = Ranks, .game = 13});
    rig.game.zExitMove();
    rig.effects.clear();
    rig.input.promote(2);
    EXPECT_TRUE(rig.effects.empty());
    EXPECT_EQ(rig.game.Board[48], 6);
    EXPECT_EQ(rig.game.Board[56], 0);
    EXPECT_EQ(rig.game.MoveText[1][0], "");
    EXPECT_EQ(rig.game.Turn, 1);
}

TEST(UnderThePromotionMenu, APositionWithAnotherPieceOnThePawnsSquareEndsItAndBothSquaresAreRepainted) {
    Promoting rig;
    rig.drag("a7", "a8");
    rig.receive({.ranks = "----k--- nP------ -------- -------- -------- -------- -------- ----K---"});
    rig.effects.clear();
    rig.input.promote(2);
    EXPECT_EQ(rig.effects, (Effects{"draw 48 0", "draw 56 0", "picture"}));
    EXPECT_EQ(rig.game.FromSq, 48);
    EXPECT_EQ(rig.game.ToSq, 56);
    EXPECT_EQ(rig.game.Board[48], -5);
    EXPECT_EQ(rig.game.Board[56], 0);
    EXPECT_EQ(rig.game.MoveText[1][0], "");
    EXPECT_EQ(rig.game.Turn, 1);
}

TEST(UnderThePromotionMenu, ATakebackThatGivesTheOtherSideTheMoveEndsIt) {
    Promoting rig;
    rig.drag("a7", "a8");
    rig.receive({.ranks = Ranks, .turn = "B", .relation = -1, .verbose = "K/e2-e1", .pretty = "Ke1"});
    EXPECT_EQ(rig.game.ToSq, 4) << "of the last move's marks";
    rig.effects.clear();
    rig.input.promote(2);
    EXPECT_EQ(rig.effects, (Effects{"draw 48 0", "draw 56 0", "picture"}));
    EXPECT_EQ(rig.game.ToSq, 56) << "as of any move that goes back";
    EXPECT_EQ(rig.game.Board[48], 6);
    EXPECT_EQ(rig.game.Turn, -1);
}

TEST(UnderThePromotionMenu, AfterAMoveThatEndedSoTheNextPromotionAsksAgain) {
    Promoting rig;
    rig.drag("a7", "a8");
    rig.receive({.ranks = Ranks, .turn = "B", .relation = -1});
    rig.input.promote(2);
    EXPECT_EQ(rig.game.PromotePiece, 0);
    rig.refresh();
    rig.drag("a7", "a8");
    EXPECT_EQ(rig.asked(), 2U);
    rig.input.promote(5);
    EXPECT_EQ(rig.all("send"), Effects{"send a7-a8=N"});
}

TEST(UnderThePromotionMenu, APieceThatIsLiftedStaysInHand) {
    Promoting rig;
    rig.drag("a7", "a8");
    rig.press("e1");
    rig.input.promote(2);
    EXPECT_EQ(rig.all("send"), Effects{"send a7-a8=Q+"});
    EXPECT_TRUE(rig.game.hand.Dragging);
    rig.release("e2");
    EXPECT_EQ(rig.all("send").back(), "send e1-e2") << "and is put down where the user lets it go";
}

TEST(UnderThePromotionMenu, APreMoveThatPromotesTakesItOverAndTheMoveThatWaitedGoesBack) {
    Queued rig;
    rig.move("a7"); // MoveMode is 1 from this hover, so the next position queues it again
    rig.opponentMoves();
    rig.drag("b7", "b8");
    EXPECT_EQ(rig.asked(), 1U);
    rig.effects.clear();
    rig.opponentMoves();
    EXPECT_EQ(rig.asked(), 1U);
    EXPECT_TRUE(rig.saw("draw 49 0"));
    EXPECT_TRUE(rig.saw("draw 57 0"));
    rig.input.promote(5);
    EXPECT_EQ(rig.all("send"), Effects{"send a7-a8=N"});
    EXPECT_EQ(rig.game.Board[49], 6);
}

TEST(UnderThePromotionMenu, AWindowThatClosesForgetsTheMove) {
    Promoting rig;
    rig.drag("a7", "a8");
    rig.input.stop();
    rig.effects.clear();
    rig.input.promote(2);
    EXPECT_TRUE(rig.effects.empty());
    EXPECT_EQ(rig.game.Board[48], 6);
}

// Pre-moves

TEST(PreMovePromotion, IsNotAskedForWhenItIsQueued) {
    Queued rig;
    EXPECT_TRUE(rig.game.PreMoveSet);
    EXPECT_EQ(rig.asked(), 0U);
}

TEST(PreMovePromotion, IsAskedForByThePositionWhichEndsBeforeTheAnswer) {
    Queued rig;
    rig.opponentMoves();
    EXPECT_EQ(rig.asked(), 1U);
    EXPECT_FALSE(rig.game.PreMoveSet);
    EXPECT_TRUE(rig.all("send").empty());
    EXPECT_EQ(rig.game.hand.DragAlpha, 128) << "the position has been read to its end";
    EXPECT_EQ(rig.game.hand.FromSet, 0);
    rig.effects.clear();
    rig.input.promote(3);
    EXPECT_EQ(rig.effects, (Effects{"draw 48 0", "draw 56 0", "send a7-a8=R+", "picture"}));
}

TEST(PreMovePromotion, ThatIsDismissedIsSentWithoutAPiece) {
    Queued rig;
    rig.opponentMoves();
    rig.input.promote(0);
    EXPECT_EQ(rig.all("send"), Effects{"send a7-a8"});
}

TEST(PreMovePromotion, WithAutoQueenIsSentByThePositionItself) {
    Queued rig;
    modChess.AutoQueen = 1;
    rig.opponentMoves();
    EXPECT_EQ(rig.asked(), 0U);
    EXPECT_EQ(rig.all("send"), Effects{"send a7-a8=Q+"});
}

TEST(PreMovePromotion, ThatTheNewPositionRefusesAsksNobody) {
    Queued rig;
    rig.receive({.ranks = "r---k--- PP------ -------- -------- -------- -------- -------- ----K---",
                 .moveNumber = 2,
                 .pretty = "Ra8"});
    EXPECT_EQ(rig.asked(), 0U);
    EXPECT_TRUE(rig.all("send").empty());
    EXPECT_TRUE(rig.saw("draw 48 0"));
    EXPECT_TRUE(rig.saw("draw 56 0"));
}

TEST(PreMovePromotion, WithAPieceInHandLeavesItThereAndTheAnswerStillCounts) {
    Queued rig;
    rig.press("e1");
    rig.move("f5", 0);
    rig.opponentMoves();
    EXPECT_TRUE(rig.game.PreMoveSet) << "the lift made this the pointer's piece";
    rig.opponentMoves();
    EXPECT_EQ(rig.asked(), 1U);
    EXPECT_TRUE(rig.game.hand.Dragging);
    rig.input.promote(2);
    EXPECT_EQ(rig.all("send"), Effects{"send a7-a8=Q+"});
    EXPECT_TRUE(rig.game.hand.Dragging);
}
