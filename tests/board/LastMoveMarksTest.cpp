// The marks of the last move.
#include "board/BoardRig.h"

#include <gtest/gtest.h>

namespace {

// The squares that a text marks, for the side that just moved.
std::vector<std::string> marksOf(const std::string& verbose, bool whiteMoved = true) {
    BoardRig rig;
    rig.game.HiFrom = -1;
    rig.game.HiTo = -1;
    rig.game.FromSq = -1;
    rig.game.ToSq = -1;
    rig.game.Style12Record.SideToMove = whiteMoved ? 1 : 0;
    rig.game.zHighlightMove(verbose);
    return rig.all("draw");
}

using Marks = std::vector<std::string>;

} // namespace

TEST(LastMoveMarks, ALongMoveMarksBothSquares) {
    EXPECT_EQ(marksOf("P/e2-e4"), (Marks{"draw 12 -1", "draw 28 -1"}));
    EXPECT_EQ(marksOf("Q/h8-a1"), (Marks{"draw 63 -1", "draw 0 -1"}));
    EXPECT_EQ(marksOf("P/e7-e8=Q"), (Marks{"draw 52 -1", "draw 60 -1"}));
    EXPECT_EQ(marksOf("P/e21e4"), (Marks{"draw 12 -1", "draw 28 -1"})) << "two characters each, whatever follows";
}

TEST(LastMoveMarks, CastlingMarksTheKingsSquaresOfTheSideThatMoved) {
    EXPECT_EQ(marksOf("o-o", true), (Marks{"draw 4 -1", "draw 6 -1"}));
    EXPECT_EQ(marksOf("o-o", false), (Marks{"draw 60 -1", "draw 62 -1"}));
    EXPECT_EQ(marksOf("o-o-o", true), (Marks{"draw 4 -1", "draw 2 -1"}));
    EXPECT_EQ(marksOf("O-O-O", false), (Marks{"draw 60 -1", "draw 58 -1"}));
}

TEST(LastMoveMarks, ADropMarksOnlyItsTarget) {
    EXPECT_EQ(marksOf("N/@@-f3"), Marks{"draw 21 -1"});
    BoardRig rig;
    rig.game.zHighlightMove("N/@@-f3");
    EXPECT_EQ(rig.game.HiFrom, -41);
}

TEST(LastMoveMarks, ARankOrFileOffTheBoardGivesANegativeSquare) {
    for (const char* text : {"P/e9-e9", "P/e0-e0", "P/i1-i1", "P/`2-`2"}) {
        BoardRig rig;
        rig.game.zHighlightMove(text);
        EXPECT_LT(rig.game.HiFrom, 0) << text;
        EXPECT_LT(rig.game.HiTo, 0) << text;
    }
}

TEST(LastMoveMarks, ATextOfUnknownFormMarksNothing) {
    for (const char* text :
         {"", "x", "garbage", "hello world", "P/", "P/i9-j0", "P/i2-j3", "P/E2-E4", "\xFF\xFF\xFF\xFF\xFF\xFF\xFF"}) {
        EXPECT_EQ(marksOf(text), Marks{}) << text;
    }
}

// FromSq holds the square that emptied, ToSq the target of the move before.
TEST(LastMoveMarks, APositionWithATextOfUnknownFormMarksNeitherTheEmptiedSquareNorTheOldTarget) {
    for (const char* text : {"", "x", "P/", "pass"}) {
        BoardRig rig;
        rig.open();
        rig.receive({.ranks = AfterE4, .turn = "B", .moveNumber = 1, .verbose = "P/e2-e4", .pretty = "e4"});
        rig.effects.clear();
        rig.receive({.ranks = AfterE4E5, .moveNumber = 2, .verbose = text, .pretty = "e5"});
        EXPECT_EQ(rig.all("draw"), (Marks{"draw 36 0", "draw 52 0", "draw 12 0", "draw 28 0"})) << text;
    }
}

TEST(LastMoveMarks, TheOldMarksAreRepaintedPlainFirst) {
    BoardRig rig;
    rig.game.zHighlightMove("P/e2-e4");
    rig.effects.clear();
    rig.game.zHighlightMove("P/e7-e5");
    EXPECT_EQ(rig.effects, (Marks{"draw 12 0", "draw 28 0", "draw 52 -1", "draw 36 -1"}));
}

TEST(LastMoveMarks, NoneOnlyRepaintsTheOldMarks) {
    BoardRig rig;
    rig.game.zHighlightMove("P/e2-e4");
    rig.effects.clear();
    rig.game.zHighlightMove("None");
    EXPECT_EQ(rig.effects, (Marks{"draw 12 0", "draw 28 0"}));
}
