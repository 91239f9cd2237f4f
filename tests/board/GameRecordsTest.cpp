// Records taken over by a board: in a live game, in an examined one, and for review.
#include "board/WalkRig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr int ReviewTarget = -2;
const std::vector<std::string> Opening{"e4", "e5", "Nf3", "Nc6", "Bb5", "a6"};

struct GameRecords : testing::Test, WalkRig {
    ~GameRecords() override { modChess = {}; }

    static void head() {
        GameRecord& record = modChess.MovesRecord;
        record.Header = "Anders (1500) vs. Berta (1600) --- Thu Oct 14, 20:36 PDT 2010\r\n";
        record.MatchLine = "Rated blitz match, initial time: 5 minutes, increment: 2 seconds.\r\n";
        record.White = "Anders";
        record.Black = "Berta";
        record.TimeControl = "5+2";
    }

    // The record gets these half-moves.
    static void list(const std::vector<std::string>& moves) {
        GameRecord& record = modChess.MovesRecord;
        if (record.Header.empty()) head(); // a rig begins modChess anew
        record.WhiteMoves = {};
        record.BlackMoves = {};
        for (std::size_t half = 0; half < moves.size(); ++half) {
            (half % 2 == 0 ? record.WhiteMoves : record.BlackMoves)[static_cast<long>(half / 2 + 1)] = moves[half];
        }
        record.LastMove = static_cast<float>(moves.size()) / 2;
        if (moves.size() % 2 != 0) record.LastMove = static_cast<float>(moves.size() / 2) + 0.5F;
    }

    // The user joins game 12 when these half-moves have been made.
    void join(const std::vector<std::string>& moves, int relation = 0) {
        MoveRig other = MoveRig::start();
        for (const std::string& move : moves) {
            other.game.MoveText[other.game.MoveRow][(1 - other.game.Turn) / 2] = move;
            other.game.zStepForward(false);
        }
        modChess.NewGameFlag = true;
        receiveFrom(other.game, relation, moves.empty() ? "none" : moves.back());
        modChess.NewGameFlag = false;
        effects.clear();
    }

    void takeOver(const std::vector<std::string>& moves, int target = 12) {
        list(moves);
        modChess.MovesTarget = static_cast<std::int16_t>(target);
        game.zParseMoves();
    }

    void review(const std::vector<std::string>& moves) {
        list(moves);
        modChess.MovesTarget = ReviewTarget;
        game.zReviewGame();
    }

    // The list's rows from 1 to the last one with a number: "1 e4 e5|2 Nf3 ".
    std::string rows() const {
        std::string text;
        for (int row = 1; row <= 200 && !game.grdMoves.text(row, 0).empty(); ++row) {
            text += (row > 1 ? "|" : "") + game.grdMoves.text(row, 0) + " " + game.grdMoves.text(row, 1) + " " +
                    game.grdMoves.text(row, 2);
        }
        return text;
    }

    // The position that the store holds at `ply`, as letters from a1 on.
    std::string stored(int ply) const {
        std::string text;
        for (int square = 0; square < 64; ++square) text += letterOf(game.PositionStore.plies[ply][square]);
        return text;
    }
    std::string shown() const {
        std::string text;
        for (int square = 0; square < 64; ++square) text += letterOf(game.Board[square]);
        return text;
    }
    // The position after these half-moves.
    static std::string after(const std::vector<std::string>& moves) {
        MoveRig other = MoveRig::start();
        std::string text;
        for (const std::string& move : moves) {
            other.game.MoveText[other.game.MoveRow][(1 - other.game.Turn) / 2] = move;
            other.game.zStepForward(false);
        }
        for (int square = 0; square < 64; ++square) text += letterOf(other.game.Board[square]);
        return text;
    }
    static std::string afterFirst(std::size_t count) {
        return after({Opening.begin(), Opening.begin() + static_cast<long>(count)});
    }
};

} // namespace

// A live game

TEST_F(GameRecords, JoiningARunningGameFillsItsListAndItsStore) {
    join(Opening);
    takeOver(Opening);
    EXPECT_EQ(rows(), "1 e4 e5|2 Nf3 Nc6|3 Bb5 a6|4  ");
    for (std::size_t ply = 0; ply <= Opening.size(); ++ply) EXPECT_EQ(stored(static_cast<int>(ply)), afterFirst(ply));
    EXPECT_EQ(game.MoveText[3][1], "a6");
}

TEST_F(GameRecords, WithBlackToMoveTheStoreBeginsWithWhitesFirstMoveAllTheSame) {
    const std::vector<std::string> moves(Opening.begin(), Opening.begin() + 5);
    join(moves);
    takeOver(moves);
    EXPECT_EQ(rows(), "1 e4 e5|2 Nf3 Nc6|3 Bb5 ");
    for (std::size_t ply = 0; ply <= moves.size(); ++ply) EXPECT_EQ(stored(static_cast<int>(ply)), afterFirst(ply));
}

TEST_F(GameRecords, MovesThatTheLiveGameHasNotSeenAreStoredBehindItsStart) {
    join({});
    takeOver({"e4", "e5"});
    EXPECT_EQ(stored(0), afterFirst(0));
    EXPECT_EQ(stored(1), afterFirst(1));
}

TEST_F(GameRecords, TheLiveBoardStandsAsBeforeAndNothingIsPaintedOrSent) {
    join(Opening);
    takeOver(Opening);
    EXPECT_EQ(shown(), afterFirst(6));
    EXPECT_TRUE(game.icsMode);
    EXPECT_FALSE(game.noPlay);
    EXPECT_EQ(game.MoveRow, 4);
    EXPECT_EQ(game.Turn, 1);
    EXPECT_THAT(all("draw"), IsEmpty());
    EXPECT_THAT(all("send"), IsEmpty());
    EXPECT_THAT(all("sound"), IsEmpty());
}

TEST_F(GameRecords, AfterJoiningTheGameIsWalkedThrough) {
    join(Opening);
    takeOver(Opening);
    game.zReposition(-2);
    EXPECT_EQ(shown(), afterFirst(0));
    for (std::size_t ply = 1; ply <= Opening.size(); ++ply) {
        game.zReposition(1);
        EXPECT_EQ(shown(), afterFirst(ply));
    }
    game.grdMovesClick(2, 1);
    EXPECT_EQ(shown(), afterFirst(3));
    game.zReposition(2);
    EXPECT_EQ(shown(), afterFirst(6));
}

TEST_F(GameRecords, TheNextMoveOfTheServerGoesOnBehindTheList) {
    join(Opening);
    takeOver(Opening);
    std::vector<std::string> next = Opening;
    next.emplace_back("Ba4");
    MoveRig other = MoveRig::start();
    for (const std::string& move : next) {
        other.game.MoveText[other.game.MoveRow][(1 - other.game.Turn) / 2] = move;
        other.game.zStepForward(false);
    }
    receiveFrom(other.game, 0, "Ba4");
    EXPECT_EQ(rows(), "1 e4 e5|2 Nf3 Nc6|3 Bb5 a6|4 Ba4 ");
    EXPECT_EQ(shown(), after(next));
    EXPECT_EQ(game.LastRow, 4);
    EXPECT_EQ(game.LastCol, 0);
}

TEST_F(GameRecords, AnOddLastMoveOfBlackGivesOneNumberedEmptyRowAndAnEvenOneDoesNot) {
    join({"e4", "e5"});
    takeOver({"e4", "e5"});
    EXPECT_EQ(rows(), "1 e4 e5|2  ");
    EXPECT_EQ(game.LastRow, 2);
    takeOver({"e4", "e5", "Nf3", "Nc6"});
    EXPECT_EQ(rows(), "1 e4 e5|2 Nf3 Nc6");
    EXPECT_EQ(game.LastRow, 2);
}

TEST_F(GameRecords, ALastMoveOfWhiteAloneGivesNoEmptyRow) {
    join({"e4"});
    takeOver({"e4"});
    EXPECT_EQ(rows(), "1 e4 ");
    takeOver({"e4", "e5", "Nf3"});
    EXPECT_EQ(rows(), "1 e4 e5|2 Nf3 ");
}

TEST_F(GameRecords, BlacksTextBehindTheLastMoveIsLeftOut) {
    join({"e4"});
    list({"e4"});
    modChess.MovesRecord.BlackMoves[1] = "e5";
    modChess.MovesTarget = 12;
    game.zParseMoves();
    EXPECT_EQ(rows(), "1 e4 ");
    EXPECT_EQ(game.MoveText[1][1], "");
}

TEST_F(GameRecords, RowsOfAnOlderGameAreNumberedWithoutMoves) {
    join({});
    list({});
    modChess.MovesRecord.LastMove = 3;
    modChess.MovesTarget = 12;
    game.zParseMoves();
    EXPECT_EQ(rows(), "1  |2  |3  |4  ");
    game.grdMovesClick(3, 1);
    EXPECT_EQ(shown(), afterFirst(0)) << "they lead to where the moves end";
}

TEST_F(GameRecords, LastRowAndColumnAreThoseOfTheSideToMove) {
    join({"e4", "e5", "Nf3"});
    takeOver({"e4", "e5", "Nf3"});
    EXPECT_EQ(game.LastRow, 2);
    EXPECT_EQ(game.LastCol, 1);
    EXPECT_EQ(game.Turn, -1);
}

TEST_F(GameRecords, TheListsFirstCellBecomesTheCurrentOneAndTheMoveStaysInView) {
    std::vector<std::string> moves = Opening;
    for (int pair = 0; pair < 10; ++pair) moves.insert(moves.end(), {"Ba4", "Nf6", "Bb5", "Ng8"});
    game.grdMoves.VisibleRows = 5;
    join(moves);
    game.grdMoves.goTo(7, 2);
    effects.clear();
    takeOver(moves);
    EXPECT_EQ(current(), "1,1 e4");
    EXPECT_EQ(all("top").back(), "top 20");
    EXPECT_EQ(game.grdMoves.topRow, 20) << "move 24 is the last of five rows";
    game.Style12Record.Relation = 2;
    takeOver(moves);
    EXPECT_EQ(all("top").back(), "top 1");
    EXPECT_EQ(game.grdMoves.topRow, 1) << "an examined one is shown from its top";
}

TEST_F(GameRecords, AListThatBreaksOffKeepsTheNewestPositionAndShowsItsEndOnTheWay) {
    join(Opening);
    takeOver({"e4", "e", "Nf3", "N", "Bb5", "a"});
    EXPECT_EQ(shown(), afterFirst(6));
    EXPECT_EQ(stored(6), afterFirst(6));
    for (int ply = 1; ply < 6; ++ply) EXPECT_EQ(stored(ply), afterFirst(1)) << ply;
    EXPECT_EQ(game.MoveRow, 4) << "that of the live game";
    EXPECT_EQ(game.Turn, 1);
}

TEST_F(GameRecords, AListOfAnotherGameLeavesTheLiveBoardAlone) {
    join(Opening);
    takeOver({"d4", "d5", "c4", "e6", "Nc3", "Nf6", "Bg5"});
    EXPECT_EQ(shown(), afterFirst(6));
    game.zReposition(2);
    EXPECT_EQ(shown(), afterFirst(6));
}

TEST_F(GameRecords, AQueuedMoveAndAPieceInHandOutliveTheArrivalOfTheList) {
    join(Opening, -1);
    game.PreMoveSet = true;
    game.PreFrom = 3;
    game.PreTo = 4;
    game.hand.FromSet = 1;
    game.FromSq = 11;
    game.ToSq = 12;
    game.hand.MoveMode = 1;
    takeOver(Opening);
    EXPECT_TRUE(game.PreMoveSet);
    EXPECT_THAT(all("finish"), IsEmpty());
    EXPECT_EQ(game.hand.FromSet, 1);
    EXPECT_EQ(game.FromSq, 11);
    EXPECT_EQ(game.ToSq, 12);
    EXPECT_EQ(game.hand.MoveMode, 1);
}

// The newest position then lies where the board keeps what it shows meanwhile.
TEST_F(GameRecords, AtMove201TheBoardStillShowsWhatItShowedAndTheStoreTheNewestPosition) {
    join(Opening);
    receive({.ranks = AfterE4E5, .relation = 0, .moveNumber = 201, .pretty = "Kb8"});
    const std::string newest = shown();
    game.zReposition(-2);
    const std::string viewed = shown();
    ASSERT_NE(viewed, newest);
    takeOver(Opening);
    EXPECT_EQ(shown(), viewed);
    game.zReposition(2);
    EXPECT_EQ(shown(), newest);
}

TEST_F(GameRecords, ABoardThatHasNoGameTakesNoLiveRecord) {
    takeOver(Opening, 0);
    EXPECT_FALSE(game.icsMode);
    EXPECT_EQ(rows(), "");
    EXPECT_THAT(effects, IsEmpty());
}

// Title, panel, console, menu

TEST_F(GameRecords, TheTitleIsTheHeaderUpToItsSecondBracketAndTheUsersPart) {
    const std::vector<std::pair<int, std::string>> parts{{0, " - Observing"}, {2, " - Examining"}, {1, ""}, {-2, ""}};
    for (const auto& [relation, part] : parts) {
        join(Opening, relation);
        takeOver(Opening);
        EXPECT_EQ(all("title").back(), "title Anders (1500) vs. Berta (1600)" + part);
    }
}

TEST_F(GameRecords, WithoutASecondBracketTheTitleHasNoNames) {
    join(Opening);
    modChess.MovesRecord.Header = "Anders (1500) vs. Berta\r\n";
    takeOver(Opening);
    EXPECT_EQ(all("title").back(), "title  - Observing");
}

TEST_F(GameRecords, TheBracketsOfTheTitleMayStandAnywhere) {
    for (const char* header : {")) vs. Berta\r\n", ") Anders) vs. Berta\r\n"}) {
        join(Opening);
        modChess.MovesRecord.Header = header;
        takeOver(Opening);
        EXPECT_EQ(all("title").back(),
                  "title " + std::string(header, std::string(header).rfind(')') + 1) + " - Observing");
    }
}

TEST_F(GameRecords, TheFirstWordOfTheMatchEndsWithABlankOrItsLine) {
    for (const char* match : {"Un~rated blitz match\r\n", "Un~rated\r\n", "Un~rated\n", "Un~rated"}) {
        join(Opening);
        head();
        modChess.MovesRecord.MatchLine = match;
        takeOver(Opening);
        EXPECT_EQ(game.currentGame, "Anders - Berta    [5 2]   Un~rated") << match;
    }
}

TEST_F(GameRecords, ThePanelsNameTheGameAndTheFirstWordOfTheMatch) {
    join(Opening);
    takeOver(Opening);
    const std::string players = "Anders - Berta    [5 2]   Rated";
    EXPECT_EQ(all("panel").back(), "panel 2 " + players);
    EXPECT_TRUE(saw("panel 3 Game 12"));
    EXPECT_EQ(game.currentGame, players);
    game.zEndParms();
    EXPECT_TRUE(saw("panel 2 Was " + players));
}

TEST_F(GameRecords, WhileTheRecordIsTakenOverTheBoardIsLocalAndNoPieceCanBeTaken) {
    join(Opening);
    bool localAndStill = false;
    game.surface.print = [&](const std::string&) { localAndStill = !game.icsMode && game.noPlay; };
    takeOver(Opening);
    EXPECT_TRUE(localAndStill);
    EXPECT_TRUE(game.icsMode);
    EXPECT_FALSE(game.noPlay);
}

TEST_F(GameRecords, AListThatBreaksOffLeavesThePositionsBehindItsLastRow) {
    watch(Opening);
    takeOver({"e4", "e5", "Nf3", "??"});
    EXPECT_EQ(stored(4), afterFirst(3)) << "where the moves end";
    for (const int ply : {5, 6}) EXPECT_EQ(stored(ply), afterFirst(static_cast<std::size_t>(ply))) << ply;
}

TEST_F(GameRecords, TheConsoleGetsHeaderAndMatchLine) {
    join(Opening);
    takeOver(Opening);
    const GameRecord& record = modChess.MovesRecord;
    EXPECT_THAT(all("print"), ElementsAre("print \r\n" + record.Header + record.MatchLine));
}

TEST_F(GameRecords, TheBoardKeepsTheRecordAndMaySaveIt) {
    join(Opening);
    takeOver(Opening);
    EXPECT_TRUE(saw("save 1"));
    EXPECT_TRUE(saw("bottomRow"));
    EXPECT_EQ(game.BoardRecord.WhiteMoves[3], "Bb5");
    EXPECT_EQ(game.BoardRecord.LastMove, 3);
    EXPECT_EQ(game.BoardRecord.Header, modChess.MovesRecord.Header);
    modChess.MovesRecord = {};
    EXPECT_EQ(game.BoardRecord.White, "Anders");
    game.mnuNew();
    EXPECT_EQ(all("save").back(), "save 0");
}

TEST_F(GameRecords, AListWithoutBeepsIsOneOfALiveGame) {
    join(Opening);
    takeOver(Opening);
    EXPECT_FALSE(saw("beep"));
    game.zEndParms();
    review(Opening);
    EXPECT_TRUE(saw("beep"));
}

// Review

TEST_F(GameRecords, AReviewPaintsEachSquareOnceForItsStartAndNothingOnTheWay) {
    effects.clear();
    review(Opening);
    EXPECT_EQ(all("draw").size(), 64U);
}

TEST_F(GameRecords, AReviewedGameStandsAtItsStartAsAStoredOne) {
    review(Opening);
    EXPECT_EQ(shown(), afterFirst(0));
    EXPECT_EQ(rows(), "1 e4 e5|2 Nf3 Nc6|3 Bb5 a6|4  ");
    EXPECT_FALSE(game.icsMode);
    EXPECT_FALSE(game.noPlay);
    EXPECT_TRUE(game.GameLoaded);
    EXPECT_TRUE(game.GridLightOn);
    EXPECT_TRUE(game.CanForward);
    EXPECT_EQ(game.Deviated, 0);
    EXPECT_EQ(game.Turn, 1);
    EXPECT_EQ(game.MoveRow, 1);
    EXPECT_THAT(all("send"), IsEmpty());
    EXPECT_TRUE(saw("save 1"));
}

TEST_F(GameRecords, TheLastCellOfAReviewedGameThatBreaksOffHasNoPositionOfTheBoardBefore) {
    play("d2d4");
    std::vector<std::string> moves(400, "Qe5");
    moves.front() = "e4";
    review(moves);
    game.grdMovesClick(200, 2);
    EXPECT_EQ(shown(), afterFirst(0));
    game.grdMovesClick(200, 1);
    EXPECT_EQ(shown(), after({"e4"}));
}

TEST_F(GameRecords, AReviewedGameSaysWhoseItIs) {
    review(Opening);
    EXPECT_EQ(all("title").back(), "title Anders (1500) vs. Berta (1600) - Reviewing");
    EXPECT_THAT(all("panel"), ElementsAre("panel 2 Anders - Berta   [5 2]  Rated"));
    EXPECT_EQ(game.currentGame, "Anders - Berta   [5 2]  Rated");
    modChess.MovesRecord.TimeControl = "15";
    modChess.MovesRecord.MatchLine = "";
    review(Opening);
    EXPECT_EQ(game.currentGame, "Anders - Berta   15  ");
}

TEST_F(GameRecords, AReviewedGameIsWalkedToItsEndAndBack) {
    review(Opening);
    for (std::size_t ply = 1; ply <= Opening.size(); ++ply) {
        game.zReposition(1);
        EXPECT_EQ(shown(), afterFirst(ply));
    }
    game.zReposition(1);
    EXPECT_EQ(shown(), afterFirst(6)) << "nothing is left";
    for (std::size_t ply = Opening.size(); ply-- > 0;) {
        game.zReposition(-1);
        EXPECT_EQ(shown(), afterFirst(ply));
    }
}

TEST_F(GameRecords, TheEmptyRowOfAReviewedGameAndItsEndButtonShowTheLastPosition) {
    review(Opening);
    game.zReposition(2);
    EXPECT_EQ(shown(), afterFirst(6));
    game.zReposition(-2);
    EXPECT_EQ(shown(), afterFirst(0));
    for (const int col : {1, 2}) {
        game.grdMovesClick(4, col);
        EXPECT_EQ(shown(), afterFirst(6));
    }
    game.grdMovesClick(3, 2);
    EXPECT_EQ(shown(), afterFirst(6));
    game.grdMovesClick(3, 1);
    EXPECT_EQ(shown(), afterFirst(5));
}

TEST_F(GameRecords, AStoredPromotionWithoutAPieceIsAQueen) {
    modChess.AutoQueen = 0;
    const std::vector<std::string> road{"e4", "d5", "exd5", "c6", "dxc6", "a6", "cxb7", "h6", "bxa8", "h5"};
    review(road);
    for (std::size_t step = 0; step < road.size(); ++step) game.zReposition(1);
    EXPECT_EQ(at("a8"), 2);
    EXPECT_EQ(ply(), 10);
    game.zReposition(-1);
    game.zReposition(-1);
    EXPECT_EQ(at("b7"), 6);
    EXPECT_EQ(at("a8"), -3);
}

TEST_F(GameRecords, AStoredPromotionTakesThePieceThatItNames) {
    modChess.AutoQueen = 1;
    review({"e4", "d5", "exd5", "c6", "dxc6", "a6", "cxb7", "h6", "bxa8=N"});
    for (int step = 0; step < 9; ++step) game.zReposition(1);
    EXPECT_EQ(at("a8"), 5);
}

TEST_F(GameRecords, AGameOfTwoHundredMovesFillsTheListToItsEnd) {
    std::vector<std::string> moves;
    for (int pair = 0; pair < 100; ++pair) moves.insert(moves.end(), {"Nf3", "Nf6", "Ng1", "Ng8"});
    moves.pop_back();
    join({});
    takeOver(moves);
    EXPECT_EQ(game.grdMoves.text(200, 1), "Ng1");
    EXPECT_EQ(game.LastRow, 200);
    EXPECT_EQ(shown(), afterFirst(0)) << "the live position";
    game.zEndParms();
    review(moves);
    game.zReposition(2);
    EXPECT_EQ(game.MoveRow, 200);
}

TEST_F(GameRecords, AGameThatIsTooLongIsToldAndListedBeforeItFaults) {
    std::vector<std::string> moves;
    for (int pair = 0; pair < 100; ++pair) moves.insert(moves.end(), {"Nf3", "Nf6", "Ng1", "Ng8"});
    join({});
    EXPECT_THROW(takeOver(moves), Fault);
    EXPECT_EQ(all("print").size(), 1U);
    EXPECT_TRUE(saw("cell 200 2 [Ng8]"));
}

TEST_F(GameRecords, ATextThatIsNoMoveLeavesNothingInTheHand) {
    for (const char* text : {"P@zz", "a8=N", "N@"}) {
        review({text});
        EXPECT_EQ(game.PromotePiece, 0) << text;
        EXPECT_EQ(game.Board[HandSquare], 0) << text;
    }
}

TEST_F(GameRecords, AReviewPutsAPieceInHandBackAndForgetsAPromotion) {
    game.hand.Dragging = true;
    game.hand.FromSet = 1;
    game.hand.DragFrom = 12;
    game.hand.promotion.emplace();
    review(Opening);
    EXPECT_FALSE(game.hand.Dragging);
    EXPECT_EQ(game.hand.FromSet, 0);
    EXPECT_FALSE(game.hand.promotion);
    EXPECT_EQ(effects.at(0), "piece 0 0 0") << "no piece is left hanging on the picture";
    EXPECT_EQ(effects.at(1), "draw 12 0");
}

TEST_F(GameRecords, AReviewedGameIsLeftAndFollowedLikeALoadedOne) {
    review(Opening);
    play("d2d4");
    EXPECT_FALSE(game.CanForward);
    EXPECT_EQ(game.MoveText[1][0], "e4") << "the stored moves stay";
    game.zReposition(-1);
    EXPECT_TRUE(game.CanForward);
    game.zReposition(1);
    EXPECT_EQ(shown(), afterFirst(1));
}
