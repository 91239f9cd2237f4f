// The algebraic text of a move about to be made.
#include "board/MoveRig.h"

#include <gtest/gtest.h>

namespace {

struct Promotion {
    std::int16_t piece;
    const char* text;
};

} // namespace

TEST(MoveText, PiecesHaveTheirLettersAndAPawnNone) {
    EXPECT_EQ(MoveRig("Ke1").text("e1e2"), "Ke2");
    EXPECT_EQ(MoveRig("Qe1").text("e1e2"), "Qe2");
    EXPECT_EQ(MoveRig("re1").text("e1e2"), "Re2");
    EXPECT_EQ(MoveRig("Be1").text("e1f2"), "Bf2");
    EXPECT_EQ(MoveRig("ne1").text("e1f3"), "Nf3");
    EXPECT_EQ(MoveRig("Pe2").text("e2e4"), "e4");
}

TEST(MoveText, ACaptureHasAnXAndAPawnsCaptureItsFile) {
    EXPECT_EQ(MoveRig("Re1 pe5").text("e1e5"), "Rxe5");
    EXPECT_EQ(MoveRig("Pe4 pd5").text("e4d5"), "exd5");
}

TEST(MoveText, EnPassantIsACaptureAlthoughTheSquareIsEmpty) {
    MoveRig rig("Pe5 pd5");
    EXPECT_EQ(rig.text("e5d6"), "d6");
    rig.game.EPCapture = -1;
    EXPECT_EQ(rig.text("e5d6"), "exd6");
}

TEST(MoveText, APromotionCarriesThePieceThatWasChosen) {
    for (const auto& [piece, text] : {Promotion{2, "e8=Q"}, {3, "e8=R"}, {4, "e8=B"}, {5, "e8=N"}}) {
        MoveRig rig("Pe7");
        rig.game.PromotePiece = piece;
        EXPECT_EQ(rig.text("e7e8"), text);
        EXPECT_EQ(rig.at("e7"), piece) << "the move that follows carries the new piece";
    }
}

TEST(MoveText, APromotionOfBlackPutsABlackPiece) {
    MoveRig rig("pd2 Re1", -1);
    rig.game.PromotePiece = 5;
    EXPECT_EQ(rig.text("d2e1"), "dxe1=N");
    EXPECT_EQ(rig.at("d2"), -5);
}

TEST(MoveText, ThePieceTakesTheColourOfTheSideToMoveWhateverThePawns) {
    MoveRig rig("Pe7", -1);
    rig.game.PromotePiece = 2;
    rig.text("e7e8");
    EXPECT_EQ(rig.at("e7"), -2);
}

TEST(MoveText, APawnOfEitherColourPromotesOnNamesEndingIn8Or1) {
    for (const char* pieces : {"Pe2", "pe2", "Pe7", "pe7"}) {
        MoveRig rig(pieces);
        rig.game.PromotePiece = 3;
        const std::string from(pieces + 1);
        EXPECT_EQ(rig.text(from + "e8"), "e8=R") << pieces;
        rig.put(pieces);
        EXPECT_EQ(rig.text(from + "e1"), "e1=R") << pieces;
    }
}

TEST(MoveText, WithAutoQueenItIsAQueen) {
    MoveRig rig("Pe7");
    modChess.AutoQueen = 1;
    EXPECT_EQ(rig.text("e7e8"), "e8=Q");
    EXPECT_EQ(rig.at("e7"), 2);
}

TEST(MoveText, APromotionPieceThatIsKnownAlreadyIsTakenWithOrWithoutAutoQueen) {
    for (const auto autoQueen : std::initializer_list<std::int16_t>{0, 1}) {
        MoveRig rig("Pe7");
        modChess.AutoQueen = autoQueen;
        rig.game.PromotePiece = 4;
        EXPECT_EQ(rig.text("e7e8"), "e8=B");
    }
}

TEST(MoveText, WithoutAChoiceThePawnsSquareEmpties) {
    MoveRig rig("Pe7");
    EXPECT_EQ(rig.text("e7e8"), "e8");
    EXPECT_EQ(rig.at("e7"), 0);
    EXPECT_EQ(rig.game.PromotePiece, 0);
}

TEST(MoveText, OnlyAPawnPromotes) {
    MoveRig rig("Re7 Pd6");
    rig.game.PromotePiece = 2;
    EXPECT_EQ(rig.text("e7e8"), "Re8");
    EXPECT_EQ(rig.at("e7"), 3);
    EXPECT_EQ(rig.text("d6d7"), "d7");
    EXPECT_EQ(rig.at("d6"), 6);
}

TEST(MoveText, ATwinOnAnotherFileAddsTheFile) {
    EXPECT_EQ(MoveRig("Nb1 Nf1").text("b1d2"), "Nbd2");
    EXPECT_EQ(MoveRig("Nb1 Nf1").text("f1d2"), "Nfd2");
    EXPECT_EQ(MoveRig("Nb1 Nf3 pd2").text("b1d2"), "Nbxd2");
}

TEST(MoveText, ATwinOnTheSameFileAddsTheRank) {
    EXPECT_EQ(MoveRig("Ra1 Ra5").text("a1a3"), "R1a3");
    EXPECT_EQ(MoveRig("ra1 ra5 Pa3").text("a5a3"), "R5xa3");
}

TEST(MoveText, APinnedTwinStillCounts) {
    MoveRig rig("Ke1 Ne2 Nb1 re8");
    EXPECT_EQ(rig.text("b1c3"), "Nbc3") << "the knight on e2 could not leave";
}

TEST(MoveText, TwoTwinsGiveTheWholeFromName) {
    EXPECT_EQ(MoveRig("Ra4 Rh4 Rd8").text("a4d4"), "Ra4d4");
    EXPECT_EQ(MoveRig("Qa1 Qa7 Qg1 Qg7").text("a1d4"), "Qa1d4") << "and the scan stops there";
    EXPECT_EQ(MoveRig("Ra4 Rh4 Rd8 pd4").text("d8d4"), "Rd8xd4");
}

TEST(MoveText, APieceThatIsBlockedOfAnotherKindOrColourIsNoTwin) {
    EXPECT_EQ(MoveRig("Ra4 Rh4 Pf4").text("a4d4"), "Rd4");
    EXPECT_EQ(MoveRig("Ra4 Qh4").text("a4d4"), "Rd4");
    EXPECT_EQ(MoveRig("Ra4 rh4").text("a4d4"), "Rd4");
}

TEST(MoveText, APawnIsNeverToldApart) { EXPECT_EQ(MoveRig("Pe4 Pc4 pd5").text("e4d5"), "exd5"); }

TEST(MoveText, ADropIsThePieceAnAtSignAndTheSquare) {
    const char* const texts[] = {"", "K@e4", "Q@e4", "R@e4", "B@e4", "N@e4", "P@e4"};
    for (std::int16_t piece = 1; piece <= 6; ++piece) {
        MoveRig rig("");
        rig.game.Board[HandSquare] = static_cast<std::int16_t>(-piece);
        EXPECT_EQ(rig.game.zMoveText(HandSquare, 28), texts[piece]);
    }
}

TEST(MoveText, ADropHasNeitherCapturePartNorTwins) {
    MoveRig rig("Nc3 Nd3 pe4");
    rig.game.Board[HandSquare] = 5;
    EXPECT_EQ(rig.game.zMoveText(HandSquare, 28), "N@e4");
}

TEST(MoveText, APawnDroppedOnTheLastRowIsPromotedWithoutAPromotionPart) {
    MoveRig rig("");
    rig.game.PromotePiece = 3;
    rig.game.Board[HandSquare] = 6;
    EXPECT_EQ(rig.game.zMoveText(HandSquare, 60), "P@e8");
    EXPECT_EQ(rig.game.Board[HandSquare], 3);
}

TEST(MoveText, AnEmptyFromSquareHasTheSquareAlone) { EXPECT_EQ(MoveRig("Re8").text("e2e4"), "e4"); }
