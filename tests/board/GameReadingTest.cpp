// Taking over a game from a file: the list, the positions behind its moves, and what the board is left at.
#include "board/GameRouting.h"
#include "board/WalkRig.h"
#include "records/PgnRig.h"

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::IsEmpty;

namespace {

struct ReadingRig : WalkRig {
    // The moves, read from a file as the writer leaves it.
    void read(const std::string& moves) { readLines("\r\n" + moves + "\r\n1-0\r\n\r\n"); }

    void readLines(const std::string& bytes) {
        files.file(bytes);
        LineFile file(files.path());
        game.zReadPGNgame(file);
    }

    // The texts of a row, "e4/e5".
    std::string row(int number) const { return game.grdMoves.text(number, 1) + "/" + game.grdMoves.text(number, 2); }

    void toLast() { game.zReposition(2); }

    PgnRig files;
};

} // namespace

TEST(GameReading, ItsMovesAreListedAndTheBoardStandsAtTheStart) {
    ReadingRig rig;
    rig.play("d2d4");
    rig.read("1. e4 e5 2. Nf3 Nc6");
    EXPECT_EQ(rig.row(1), "e4/e5");
    EXPECT_EQ(rig.row(2), "Nf3/Nc6");
    EXPECT_EQ(rig.game.grdMoves.text(2, 0), "2");
    EXPECT_EQ(rig.row(3), "/");
    EXPECT_EQ(rig.ply(), 0);
    EXPECT_EQ(rig.at("e2"), 6);
    EXPECT_EQ(rig.at("d2"), 6);
    EXPECT_EQ(rig.game.MoveText[2][1], "Nc6");
}

TEST(GameReading, LeavesTheBoardWithAStoredGame) {
    ReadingRig rig;
    rig.read("1. e4 e5 2. Nf3");
    EXPECT_EQ(rig.game.LastRow, 2);
    EXPECT_EQ(rig.game.LastCol, 0);
    EXPECT_EQ(rig.game.MoveRow, 1);
    EXPECT_EQ(rig.game.Turn, 1);
    EXPECT_EQ(rig.game.Deviated, 0);
    EXPECT_TRUE(rig.game.CanForward);
    EXPECT_TRUE(rig.game.GameLoaded);
    EXPECT_TRUE(rig.game.GridLightOn);
    EXPECT_TRUE(rig.saw("last ")) << "lblMove is empty";
    EXPECT_TRUE(rig.saw("paint")) << "the board is laid out afresh";
}

TEST(GameReading, TheLastMoveIsWhitesOrBlacks) {
    ReadingRig rig;
    rig.read("1. e4 e5");
    EXPECT_EQ(rig.game.LastRow, 1);
    EXPECT_EQ(rig.game.LastCol, 1);
    rig.readLines("1. e4 *\n\n");
    EXPECT_EQ(rig.game.LastRow, 1);
    EXPECT_EQ(rig.game.LastCol, 0);
}

TEST(GameReading, EveryPositionCanBeGoneToAtOnce) {
    ReadingRig rig;
    rig.read("1. e4 d5 2. exd5 Qxd5 3. Nf3 Nf6 4. Be2 Bg4 5. O-O");
    rig.toLast();
    EXPECT_EQ(rig.at("g1"), 1);
    EXPECT_EQ(rig.at("f1"), 3);
    EXPECT_EQ(rig.current(), "5,1 O-O");
    rig.game.grdMovesClick(2, 1);
    EXPECT_EQ(rig.at("d5"), 6);
    EXPECT_EQ(rig.at("d7"), 0);
    rig.game.zReposition(-2);
    rig.game.zReposition(1);
    EXPECT_EQ(rig.current(), "1,1 e4");
}

TEST(GameReading, FromABoardWhereBlackIsToMoveItIsTheSame) {
    ReadingRig rig;
    rig.play("e2e4");
    ASSERT_EQ(rig.game.Turn, -1);
    rig.read("1. e4 d5 2. exd5 Qxd5");
    rig.toLast();
    EXPECT_EQ(rig.at("d5"), -2);
}

TEST(GameReading, AQueuedPreMoveIsNeitherSentNorPartOfTheGame) {
    ReadingRig rig;
    rig.game.surface.zSqFinish = [&rig](int square) { rig.input.zSqFinish(square); };
    rig.open(LineOf{.relation = -1});
    rig.game.PreMoveSet = true;
    rig.game.PreFrom = static_cast<std::int16_t>(zSquareNumber("d2"));
    rig.game.PreTo = static_cast<std::int16_t>(zSquareNumber("d4"));
    rig.read("1. e4 e5 2. Nf3");
    EXPECT_FALSE(rig.game.PreMoveSet);
    EXPECT_THAT(rig.all("send"), IsEmpty());
    EXPECT_EQ(rig.at("d2"), 6);
    rig.game.grdMovesClick(1, 2);
    EXPECT_EQ(rig.at("d2"), 6);
    EXPECT_EQ(rig.at("d4"), 0);
    EXPECT_EQ(rig.at("e5"), -6);
    rig.game.zGetPos(0, true, false);
    EXPECT_EQ(rig.at("d4"), 0) << "the stored start is that of every game";
}

TEST(GameReading, APreMoveIsNoPartOfTheGameWhereThePointerRestsOnAPieceOfTheUser) {
    ReadingRig rig;
    rig.game.surface.zSqFinish = [&rig](int square) { rig.input.zSqFinish(square); };
    rig.open(LineOf{.turn = "B", .relation = -1});
    rig.game.hand.MoveMode = 1;
    rig.game.PreMoveSet = true;
    rig.game.PreFrom = static_cast<std::int16_t>(zSquareNumber("b1"));
    rig.game.PreTo = static_cast<std::int16_t>(zSquareNumber("c3"));
    rig.read("1. e4 e5 2. Nf3");
    EXPECT_FALSE(rig.game.PreMoveSet);
    EXPECT_EQ(rig.at("b1"), 5);
    EXPECT_EQ(rig.at("c3"), 0);
    rig.game.grdMovesClick(2, 1);
    EXPECT_EQ(rig.at("b1"), 5);
    EXPECT_EQ(rig.at("f3"), 5);
}

TEST(GameReading, AMoveThatCannotBeReadEndsThePositionsAndNotTheList) {
    ReadingRig rig;
    rig.read("1. e4 e5 2. Qe5 Nf6 3. d4 d5");
    EXPECT_EQ(rig.row(2), "Qe5/Nf6");
    EXPECT_EQ(rig.row(3), "d4/d5");
    EXPECT_EQ(rig.game.LastRow, 3);
    for (int step = 0; step < 5; ++step) rig.game.zReposition(1);
    EXPECT_EQ(rig.ply(), 2) << "the last good position";
    EXPECT_EQ(rig.at("e5"), -6);
}

TEST(GameReading, MovesBehindOneThatCannotBeReadShowTheLastGoodPosition) {
    ReadingRig rig;
    rig.read("1. d4 d5 2. c4 e6 3. Nc3 Nf6");
    rig.read("1. e4 e5 2. Qe5 Nf6 3. d4 d5");
    for (const int row : {2, 3}) {
        for (const int column : {1, 2}) {
            rig.game.zReposition(-2);
            rig.game.grdMovesClick(static_cast<std::int16_t>(row), static_cast<std::int16_t>(column));
            EXPECT_EQ(rig.at("e5"), -6) << row << " " << column;
            EXPECT_EQ(rig.at("d4"), 0) << row << " " << column;
        }
    }
}

TEST(GameReading, APromotionOrADropThatCannotBeMadeLeavesNothingToTheNextMove) {
    ReadingRig rig;
    rig.read("1. e4 e5 2. exd8=N Nf6");
    EXPECT_EQ(rig.game.PromotePiece, 0);
    rig.read("1. N@f3 e6");
    EXPECT_EQ(rig.game.Board[64], 0) << "the knight went there";
}

TEST(GameReading, ARowBehindAShorterGameKeepsItsTextsOnTheBoard) {
    ReadingRig rig;
    rig.read("1. e4 e5 2. Nf3 Nc6");
    rig.read("1. d4 d5");
    EXPECT_EQ(rig.row(2), "/") << "it is not listed";
    EXPECT_EQ(rig.game.MoveText[2][0], "Nf3");
    rig.toLast();
    rig.game.zReposition(1);
    EXPECT_EQ(rig.at("f3"), 5) << "and one step behind the end makes it";
}

TEST(GameReading, TheTextAloneBeginsWithTheStartToo) {
    ReadingRig rig;
    rig.play("d2d4");
    rig.game.zParsePGN("1. e4 d5 2. exd5 1-0 ");
    rig.toLast();
    EXPECT_EQ(rig.at("d5"), 6);
    EXPECT_EQ(rig.at("d2"), 6);
}

TEST(GameReading, AGameWithoutMovesHasAnEmptyList) {
    ReadingRig rig;
    rig.readLines("*\n\n");
    EXPECT_EQ(rig.game.LastRow, 0);
    rig.toLast();
    EXPECT_EQ(rig.ply(), 0);
}

TEST(GameReading, TheEndOfAGameThatEndsWithANumberIsInTheRowAbove) {
    ReadingRig rig;
    rig.read("1. e4 e5 2.");
    EXPECT_EQ(rig.game.LastRow, 2);
    EXPECT_EQ(rig.game.LastCol, -1);
    rig.toLast();
    EXPECT_EQ(rig.ply(), 2);
    EXPECT_EQ(rig.game.Turn, 1);
    EXPECT_EQ(rig.at("e5"), -6);
    rig.game.zReposition(-1);
    EXPECT_EQ(rig.ply(), 1);
    rig.read("1.");
    rig.toLast();
    rig.game.zReposition(-1);
    EXPECT_EQ(rig.ply(), 0);
}

TEST(GameReading, AMovePastRow200IsAFault) {
    ReadingRig rig;
    EXPECT_EQ(faultOf([&] { rig.read("200. Nf3 Nf6"); }), "none");
    EXPECT_EQ(faultOf([&] { rig.read("201. Nf3 Nf6"); }), "subscript");
    EXPECT_EQ(faultOf([&] { rig.read("-1. Nf3 Nf6"); }), "subscript");
    EXPECT_EQ(faultOf([&] { rig.read("300."); }), "subscript") << "the list has no such row";
    EXPECT_EQ(faultOf([&] { rig.read("40000. Nf3"); }), "overflow");
}

TEST(GameReading, ARowThatTheListDoesNotHaveIsNamedAsTheLists) {
    ReadingRig rig;
    try {
        rig.read("300.");
        ADD_FAILURE() << "row 300 was listed";
    } catch (const Fault& fault) {
        EXPECT_THAT(fault.what(), HasSubstr("(rows of the move list)"));
    }
    EXPECT_THAT(rig.all("current"), IsEmpty()) << "the list is filled before it goes to its start";
}

TEST(GameReading, AFileThatEndsWithinTheGameIsAFault) {
    ReadingRig rig;
    EXPECT_EQ(faultOf([&] { rig.readLines("1. e4 e5 1-0\n"); }), "file");
}

TEST(GameReading, ABoardWithAGameOfTheServerSendsNoneOfTheMoves) {
    ReadingRig rig;
    rig.open({.relation = 1});
    rig.read("1. e4 e5 2. Nf3 Nc6");
    EXPECT_THAT(rig.all("send"), IsEmpty());
    EXPECT_TRUE(rig.game.icsMode) << "the game goes on here";
    EXPECT_EQ(rig.game.gameIndex, 12);
}

TEST(GameReading, APieceInHandIsPutDown) {
    ReadingRig rig;
    rig.game.hand.Dragging = true;
    rig.game.hand.FromSet = 1;
    rig.game.hand.DragFrom = 12;
    rig.read("1. e4 e5");
    EXPECT_FALSE(rig.game.hand.Dragging);
    EXPECT_EQ(rig.row(1), "e4/e5");
}

TEST(GameReading, ADropIsMadeWherePiecesOfTheKindCannotReachTheSquare) {
    ReadingRig rig;
    rig.read("1. N@e5 e6");
    rig.toLast();
    EXPECT_EQ(rig.at("e5"), 5);
    EXPECT_EQ(rig.at("e6"), -6);
}
