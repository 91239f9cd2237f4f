// Walking through a live game: by commands where the user examines, in the store where he watches or plays.
#include "board/WalkRig.h"

#include <gtest/gtest.h>

namespace {

// 1. e4 e5 2. Nf3, watched or played from `relation`.
struct LiveGame : WalkRig {
    explicit LiveGame(int relation) {
        watch({"e4", "e5", "Nf3"}, relation);
        effects.clear();
    }
};

// The game that is examined stands behind 2. Nf3; its list was fetched.
struct ExaminedGame : LiveGame {
    ExaminedGame() : LiveGame(2) {}

    std::vector<std::string> sent() const {
        std::vector<std::string> texts;
        for (const std::string& effect : all("send")) texts.push_back(effect.substr(5));
        return texts;
    }
};

} // namespace

TEST(LiveWalk, AnExaminedGameIsWalkedByTheServer) {
    ExaminedGame rig;
    const BoardSquares before = rig.game.Board;
    for (const int step : {-2, -1, 0, 1, 2}) rig.game.zReposition(step);
    EXPECT_EQ(rig.effects, (Effects{"send Back 999", "send Back", "send For", "send For 999"}))
        << "and nothing else moves";
    EXPECT_EQ(rig.game.Board, before);
}

TEST(LiveWalk, AClickInAnExaminedGameSendsTheDistance) {
    ExaminedGame rig;
    ASSERT_EQ(rig.game.CurRow, 2);
    ASSERT_EQ(rig.game.CurCol, 1);
    rig.game.grdMovesClick(3, 2);
    rig.game.grdMovesClick(1, 1);
    rig.game.grdMovesClick(2, 2);
    rig.game.grdMovesClick(1, 2);
    rig.game.grdMovesClick(200, 2);
    EXPECT_EQ(rig.sent(), (std::vector<std::string>{"For 3", "Back 2", "For 1", "Back 1", "For 397"}));
}

TEST(LiveWalk, TheDistanceCountsFromTheMoveLastPlayedWithoutAListToo) {
    WalkRig rig;
    modChess.ExamineNoMoves = true;
    rig.watch({"e4", "e5", "Nf3"}, 2);
    rig.effects.clear();
    rig.game.grdMovesClick(3, 2);
    EXPECT_EQ(rig.effects, (Effects{"send For 3"}));
}

TEST(LiveWalk, AClickOnTheCurrentCellOfAnExaminedGameSendsNothing) {
    ExaminedGame rig;
    rig.game.grdMovesClick(2, 1);
    rig.game.grdMovesClick(0, 1);
    rig.game.grdMovesClick(2, 0);
    EXPECT_TRUE(rig.effects.empty());
}

TEST(LiveWalk, TheBoardFollowsWhenTheServerAnswers) {
    ExaminedGame rig;
    rig.game.grdMovesClick(1, 1);
    EXPECT_EQ(rig.game.CurRow, 2) << "not before";
    MoveRig other = MoveRig::start();
    other.make("e2e4");
    for (int times = 0; times < 2; ++times) { // the same answer twice is one
        rig.receiveFrom(other.game, 2, "e4");
        EXPECT_EQ(rig.game.CurRow, 1);
        EXPECT_EQ(rig.game.CurCol, 1);
        EXPECT_EQ(rig.at("g1"), Piece::Knight);
        EXPECT_EQ(rig.label(), "1. e4");
    }
    rig.effects.clear();
    rig.game.grdMovesClick(2, 1);
    EXPECT_EQ(rig.sent(), (std::vector<std::string>{"For 2"}));
}

TEST(LiveWalk, AServerThatRefusesLeavesTheBoardWhereItWas) {
    ExaminedGame rig;
    rig.game.grdMovesClick(9, 1);
    rig.game.grdMovesClick(9, 1);
    EXPECT_EQ(rig.sent(), (std::vector<std::string>{"For 14", "For 14"}));
    EXPECT_EQ(rig.current(), "2,1 ");
}

TEST(LiveWalk, ADoubleClickOnTheLabelSendsRevertWhateverTheState) {
    for (const int relation : {2, 1, 0, -2}) {
        LiveGame rig(relation);
        rig.game.lblMoveDoubleClick();
        EXPECT_EQ(rig.effects, (Effects{"send Revert"})) << relation;
    }
    WalkRig idle;
    idle.game.lblMoveDoubleClick();
    EXPECT_EQ(idle.effects, (Effects{"send Revert"}));
}

TEST(LiveWalk, AWatchedGameIsViewedInTheStore) {
    LiveGame rig(0);
    rig.game.zReposition(-2);
    EXPECT_EQ(rig.game.ShownPly, 0);
    EXPECT_EQ(rig.at("e2"), Piece::Pawn);
    rig.game.zReposition(1);
    EXPECT_EQ(rig.game.ShownPly, 1);
    EXPECT_EQ(rig.at("e4"), Piece::Pawn);
    EXPECT_EQ(rig.at("e7"), -Piece::Pawn);
    rig.game.zReposition(2);
    EXPECT_EQ(rig.game.ShownPly, 3);
    EXPECT_EQ(rig.at("f3"), Piece::Knight);
    EXPECT_TRUE(rig.all("send").empty());
    EXPECT_EQ(rig.game.MoveRow, 2) << "the game itself goes nowhere";
}

TEST(LiveWalk, AViewPaintsTheSquaresThatChangeAlone) {
    LiveGame rig(0);
    rig.game.zReposition(-2);
    rig.effects.clear();
    rig.game.zReposition(1);
    EXPECT_EQ(rig.all("draw"), (Effects{"draw 12 0", "draw 28 0"}));
}

TEST(LiveWalk, ForwardLeadsToTheNewestPosition) {
    LiveGame rig(0);
    rig.game.zReposition(-2);
    for (int step = 0; step < 3; ++step) rig.game.zReposition(1);
    EXPECT_EQ(rig.game.ShownPly, 3);
    EXPECT_EQ(rig.at("f3"), Piece::Knight);
}

TEST(LiveWalk, ForwardFromTheNewestPositionChangesNothing) {
    LiveGame rig(0);
    rig.game.zReposition(1);
    EXPECT_EQ(rig.game.ShownPly, 3);
    EXPECT_TRUE(rig.effects.empty());
}

TEST(LiveWalk, TheNextPositionBringsAViewBack) {
    LiveGame rig(0);
    rig.game.zReposition(-2);
    MoveRig other = MoveRig::start();
    for (const char* move : {"e2e4", "e7e5", "g1f3", "b8c6"}) other.make(move);
    rig.receiveFrom(other.game, 0, "Nc6");
    EXPECT_EQ(rig.game.ShownPly, 4);
    EXPECT_EQ(rig.at("c6"), -Piece::Knight);
    EXPECT_EQ(rig.at("e4"), Piece::Pawn);
}

TEST(LiveWalk, AStepBackInAPlayedGameOnlyTurnsWhoseMoveItIs) {
    LiveGame rig(-1);
    const BoardSquares before = rig.game.Board;
    rig.game.zReposition(-1);
    EXPECT_EQ(rig.game.Board, before);
    EXPECT_EQ(rig.game.ShownPly, 3);
    EXPECT_EQ(rig.game.Turn, 1);
    EXPECT_TRUE(rig.all("draw").empty());
    rig.game.zReposition(-1);
    EXPECT_EQ(rig.game.Turn, -1);
    MoveRig other = MoveRig::start();
    for (const char* move : {"e2e4", "e7e5", "g1f3", "b8c6"}) other.make(move);
    rig.game.zReposition(-1);
    rig.receiveFrom(other.game, 1, "Nc6");
    EXPECT_EQ(rig.game.Turn, 1) << "the next position tells anew";
}

TEST(LiveWalk, AStepBackInAPlayedGameTakesOnesOwnMoveOffTheBoardUntilTheServerAnswers) {
    LiveGame rig(1);
    rig.play("b8c6");
    ASSERT_EQ(rig.at("c6"), -Piece::Knight);
    rig.effects.clear();
    rig.game.zReposition(-1);
    EXPECT_EQ(rig.at("c6"), 0);
    EXPECT_EQ(rig.at("b8"), -Piece::Knight);
    EXPECT_EQ(rig.effects, (Effects{"draw 42 0", "draw 57 0", "last 1. e4"})) << "the label behind the step";
}

TEST(LiveWalk, AStepBackShowsTheMoveOfTheCurrentCell) {
    LiveGame rig(0);
    rig.game.grdMoves.goTo(1, 2);
    rig.game.zReposition(-1);
    EXPECT_EQ(rig.label(), "1.. e5");
}

TEST(LiveWalk, AStoredMoveMadeLiveKeepsNoPicture) {
    LiveGame rig(1);
    rig.game.MoveText[2][1] = "Nc6";
    EXPECT_EQ(rig.game.zStepForward(true), "Nc6");
    EXPECT_TRUE(rig.all("picture").empty());
}

TEST(LiveWalk, AStepBackFromTheFirstViewTurnsNothing) {
    LiveGame rig(0);
    rig.game.zReposition(-2);
    rig.game.zReposition(-1);
    EXPECT_EQ(rig.game.Turn, -1);
    EXPECT_EQ(rig.game.ShownPly, 0);
}

TEST(LiveWalk, NoPieceIsTakenUpInAnOlderPosition) {
    LiveGame rig(-1);
    modChess.PreMoveOK = true;
    rig.game.zReposition(-2);
    EXPECT_EQ(rig.game.zMoveOK(zSquareNumber("e2")), 0);
    rig.game.zReposition(2);
    EXPECT_EQ(rig.game.zMoveOK(zSquareNumber("e4")), 1);
}

TEST(LiveWalk, AClickInAWatchedGameShowsThePositionOfItsCell) {
    LiveGame rig(0);
    rig.game.grdMovesClick(1, 1);
    EXPECT_EQ(rig.at("e4"), Piece::Pawn);
    EXPECT_EQ(rig.at("e5"), 0);
    EXPECT_EQ(rig.label(), "1. e4");
    EXPECT_EQ(rig.tints(), (Tints{{1, 1, GridTint::OnLine}}));
    EXPECT_TRUE(rig.all("send").empty());
}
