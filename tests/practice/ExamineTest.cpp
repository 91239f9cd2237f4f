// Tests of examined games, of the lists of old games, and of adjourning.
#include "practice/HallRig.h"
#include "practice/play/ComputerRoom.h"
#include "practice/play/Departure.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

// Ada has lost a game of three half-moves against Bert.
struct ExamineTest : testing::Test {
    HallRig rig;

    ExamineTest() {
        rig.enter("Ada", "1711");
        rig.enter("Bert", "1500");
        rig.enter("Cora");
        rig.match("Ada", "Bert");
        rig.type("Ada", "e4");
        rig.type("Bert", "e5");
        rig.type("Ada", "Nf3");
        rig.type("Ada", "resign");
        rig.shown.clear();
    }
};

TEST_F(ExamineTest, AFinishedGameIsShownFromItsStart) {
    EXPECT_EQ(
        rig.type("Ada", "ex ada 0"),
        "\n<12> rnbqkbnr pppppppp -------- -------- -------- -------- PPPPPPPP RNBQKBNR W -1 1 1 1 1 0 1 Ada Bert "
        "2 5 0 39 39 300 300 1 none (0:00) none 0 0 0");
    EXPECT_EQ(rig.type("Ada", "examine ada 0"), "You are already examining a game.");
}

TEST_F(ExamineTest, ForwardWalksToTheEnd) {
    rig.type("Ada", "examine -1");
    EXPECT_TRUE(rig.type("Ada", "For").starts_with("Game 1: Ada goes forward 1 move.\n\n<12> "));
    const std::string end = rig.type("Ada", "For 999");
    EXPECT_TRUE(end.starts_with("Game 1: Ada goes forward 999 moves.\n\n<12> ")) << end;
    EXPECT_TRUE(has(end, " 2 N/g1-f3 (0:00) Nf3 0 0 0\nGame 1: Ada resigns 0-1")) << end;
    EXPECT_EQ(rig.type("Ada", "forward"), "You're at the end of the game.");
}

TEST_F(ExamineTest, BackwardWalksToTheStart) {
    rig.type("Ada", "examine -1");
    rig.type("Ada", "forward 3");
    const std::string back = rig.type("Ada", "Back 2");
    EXPECT_TRUE(back.starts_with("Game 1: Ada backs up 2 moves.\n\n<12> "));
    EXPECT_TRUE(back.ends_with(" 1 P/e2-e4 (0:00) e4 0 0 0"));
    EXPECT_TRUE(rig.type("Ada", "Back 999").ends_with(" none (0:00) none 0 0 0"));
    EXPECT_EQ(rig.type("Ada", "Back"), "You're at the beginning of the game.");
}

TEST_F(ExamineTest, TriesLeaveTheGameAndRevertComesBack) {
    rig.type("Ada", "examine -1");
    rig.type("Ada", "forward");
    EXPECT_EQ(rig.type("Ada", "Revert"), "Game 1: Already at mainline.");
    EXPECT_EQ(rig.type("Ada", "Nc6"), "");
    EXPECT_TRUE(rig.takeShown("Ada").ends_with("N/b8-c6 (0:00) Nc6 0 0 0\nGame 1: Ada moves: Nc6"));
    EXPECT_EQ(rig.type("Ada", "forward"), "You cannot go forward unless you are on the main line.");
    const std::string reverted = rig.type("Ada", "Revert");
    EXPECT_TRUE(reverted.starts_with("Game 1: Ada reverts to main line move 1.\n\n<12> "));
    EXPECT_TRUE(has(reverted, " P/e2-e4 "));
    EXPECT_TRUE(rig.type("Ada", "forward").starts_with("Game 1: Ada goes forward 1 move."));
}

TEST_F(ExamineTest, AnExaminedGameHasNoPlayersAndItsClockStands) {
    rig.type("Cora", "examine ada 0");
    EXPECT_EQ(rig.hall.gamesOf(*rig.hall.find("Ada")).size(), 0U);
    rig.type("Cora", "forward 3");
    const std::string board = rig.type("Cora", "refresh");
    rig.now += 100'000;
    EXPECT_EQ(rig.type("Cora", "refresh"), board);
}

TEST_F(ExamineTest, WatchersHaveARelationOfTheirOwn) {
    rig.type("Ada", "examine -1");
    EXPECT_TRUE(has(rig.type("Cora", "observe ada"), " Ada Bert -2 5 0 "));
    rig.type("Ada", "forward");
    EXPECT_TRUE(rig.takeShown("Cora").starts_with("|Game 1: Ada goes forward 1 move.\n\n<12> "));
    rig.type("Ada", "c6");
    rig.type("Ada", "e5");
    EXPECT_TRUE(rig.takeShown("Cora").ends_with("\nGame 1: Ada moves: e5"));
    EXPECT_TRUE(has(rig.type("Cora", "games"), "  1 (Exam. 1711 Ada        1500 Bert      ) [ bu  5   0] W:  2"));
    EXPECT_TRUE(has(rig.type("Cora", "who"), "#Ada"));
    rig.type("Cora", "kibitz why");
    EXPECT_TRUE(has(rig.takeShown("Ada"), "Cora(U)(++++)[1] kibitzes: why"));
    rig.type("Ada", "unexamine");
    EXPECT_EQ(rig.takeShown("Cora"), "|Ada stopped examining game 1.\nRemoving game 1 from observation list.");
    EXPECT_TRUE(rig.hall.find("Cora")->observing.empty());
}

TEST_F(ExamineTest, UnexamineEndsIt) {
    EXPECT_EQ(rig.type("Ada", "unex"), "You are not examining any games.");
    EXPECT_EQ(rig.type("Ada", "forward"), "You are not examining any games.");
    EXPECT_EQ(rig.type("Ada", "revert"), "You are not examining any games.");
    rig.type("Ada", "examine -1");
    EXPECT_EQ(rig.type("Ada", "unex"), "You are no longer examining game 1.");
    EXPECT_TRUE(rig.hall.games.empty());
}

TEST_F(ExamineTest, WithoutAGameTheStartPositionIsExamined) {
    const std::string answer = rig.type("Ada", "examine");
    EXPECT_TRUE(answer.starts_with("Starting a game in examine (scratch) mode.\n\n<12> ")) << answer;
    EXPECT_TRUE(has(answer, " 1 Ada Ada 2 0 0 "));
    rig.type("Ada", "e4");
    EXPECT_TRUE(has(rig.takeShown("Ada"), " P/e2-e4 "));
}

TEST_F(ExamineTest, WhoExaminesDoesNothingElse) {
    rig.type("Ada", "examine -1");
    EXPECT_EQ(rig.type("Ada", "match bert 5 0"), "You can't challenge while you are examining a game.");
    EXPECT_EQ(rig.type("Bert", "match ada 5 0"), "Ada is examining a game.");
    EXPECT_EQ(rig.type("Ada", "seek 5 0"), "You cannot seek while you examine a game.");
    EXPECT_EQ(rig.type("Ada", "play 1"), "You are examining a game.");
    leaveHall(rig.hall, "Ada");
    EXPECT_TRUE(rig.hall.games.empty());
}

TEST_F(ExamineTest, MovesWaitWhileThePositionIsLookedUp) {
    rig.type("Ada", "examine -1");
    rig.holdRules = true;
    rig.type("Ada", "forward");
    EXPECT_EQ(rig.type("Ada", "Nc6"), "It is not your move.");
    rig.holdRules = false;
    rig.release();
    EXPECT_EQ(rig.resumed["Ada"] > 0, true);
    EXPECT_EQ(rig.type("Ada", "Nc6"), "");
}

TEST_F(ExamineTest, HistoryAndItsMovesAreListed) {
    const std::string table = rig.type("Cora", "History ada");
    EXPECT_TRUE(has(table, "\n 0: - 1711 W 1500 Bert          [ bu  5   0] --- Res Sat Nov 21, 02:42 UTC 2026"));
    const std::string moves = rig.type("Cora", "smoves ada 0");
    EXPECT_TRUE(moves.starts_with("\nAda (1711) vs. Bert (1500) --- ")) << moves;
    EXPECT_TRUE(has(moves, "  1.  e4      (0:00)     e5      (0:00)    \n  2.  Nf3     (0:00)    \n"));
    EXPECT_TRUE(moves.ends_with("      {Ada resigns} 0-1\n"));
    EXPECT_EQ(rig.type("Cora", "smoves ada 7"), "There is no history game 7 for Ada.");
    EXPECT_EQ(rig.type("Cora", "examine nobody 0"), "There is no player matching the name nobody.");
}

TEST_F(ExamineTest, AGuestsHistoryGoesWithHim) {
    rig.match("Ada", "Cora");
    rig.type("Cora", "resign");
    EXPECT_TRUE(has(rig.type("Cora", "history"), "History for Cora:"));
    leaveHall(rig.hall, "Cora");
    rig.enter("Cora");
    EXPECT_EQ(rig.type("Cora", "history"), "Cora has no history games.");
    EXPECT_TRUE(has(rig.type("Ada", "history"), "Cora"));
}

TEST_F(ExamineTest, AGameIsAdjournedByBoth) {
    rig.match("Ada", "Bert");
    rig.type("Ada", "e4");
    rig.shown.clear();
    EXPECT_EQ(rig.type("Ada", "adjourn"), "Requesting to adjourn game 1.");
    EXPECT_EQ(rig.takeShown("Bert"), "|Ada would like to adjourn the game; type \"adjourn\" to accept.");
    EXPECT_EQ(rig.type("Bert", "adjourn"), "Accepting the adjourn request from Ada.");
    EXPECT_TRUE(rig.takeShown("Ada").ends_with("|{Game 1 (Ada vs. Bert) Game adjourned by mutual agreement} *"));
    EXPECT_TRUE(has(rig.type("Bert", "stored"), "\n 1: B Ada             Y [ bu  5   0] 39-39 B1   --- "));
    EXPECT_TRUE(has(rig.type("Ada", "smoves ada bert"), "  1.  e4      (0:00)"));
}

TEST_F(ExamineTest, AGameWithAGuestIsNotAdjourned) {
    rig.match("Ada", "Cora");
    EXPECT_EQ(rig.type("Ada", "adjourn"), "Only games between registered players can be adjourned.");
    EXPECT_EQ(rig.type("Bert", "adjourn"), "You are not playing a game.");
}

TEST_F(ExamineTest, AnAdjournedGameIsGoneOnWithByAMatch) {
    rig.match("Ada", "Bert", "15 0");
    rig.type("Ada", "e4");
    rig.type("Bert", "adjourn");
    rig.type("Ada", "accept");
    rig.shown.clear();
    EXPECT_EQ(rig.type("Bert", "match ada 3 0"), "Issuing: Bert (1500) Ada (1711) unrated standard 15 0 (adjourned).");
    rig.shown.clear();
    rig.type("Ada", "accept");
    const std::string shown = rig.takeShown("Bert");
    EXPECT_TRUE(has(shown, "{Game 1 (Ada vs. Bert) Continuing unrated standard match.}")) << shown;
    EXPECT_TRUE(has(shown, " Ada Bert 1 15 0 39 39 900 900 1 P/e2-e4 (0:00) e4 1 0 0")) << shown;
    EXPECT_EQ(rig.type("Bert", "e5"), "");
    EXPECT_TRUE(rig.hall.archive.adjourned.empty());
}

TEST_F(ExamineTest, TimeUsedBeforeTheAdjournmentIsUsed) {
    Game& game = rig.match("Ada", "Bert");
    for (const char* move : {"e4", "e5"}) rig.type(game.toMove() == 0 ? "Ada" : "Bert", move);
    rig.now += 60'000;
    rig.type("Ada", "adjourn");
    rig.type("Bert", "accept");
    rig.now += 1'000'000;
    rig.type("Ada", "match bert");
    rig.takeShown("Ada");
    rig.type("Bert", "accept");
    EXPECT_TRUE(has(rig.takeShown("Ada"), " Ada Bert 1 5 0 39 39 240 300 2 P/e7-e5 "));
    rig.now += 10'000;
    EXPECT_EQ(rig.hall.game(1)->clock.remaining(0, 0, rig.now), 230'000);
}

TEST_F(ExamineTest, RepetitionCountsAcrossAnAdjournment) {
    rig.type("Ada", "match bert 5 0 crazyhouse u white");
    rig.type("Bert", "accept");
    for (const char* move : {"Nf3", "Nf6", "Ng1", "Ng8"})
        rig.type(rig.hall.game(1)->toMove() == 0 ? "Ada" : "Bert", move);
    rig.type("Ada", "adjourn");
    rig.type("Bert", "accept");
    rig.type("Ada", "match bert");
    rig.type("Bert", "accept");
    for (const char* move : {"Nf3", "Nf6", "Ng1"}) rig.type(rig.hall.game(1)->toMove() == 0 ? "Ada" : "Bert", move);
    EXPECT_NE(rig.hall.game(1), nullptr);
    rig.takeShown("Ada");
    rig.type("Bert", "Ng8");
    EXPECT_TRUE(has(rig.takeShown("Ada"), "Game drawn by repetition} 1/2-1/2"));
}

TEST_F(ExamineTest, WhoExaminesOffersNoGames) {
    rig.type("Ada", "seek 5 0");
    rig.type("Ada", "examine -1");
    EXPECT_EQ(rig.type("Bert", "play ada"), "Ada is not seeking any games.");
    EXPECT_TRUE(rig.hall.seeks.open.empty());
    EXPECT_EQ(rig.hall.find("Ada")->playing, 0);
}

TEST_F(ExamineTest, TriesEndWhereClientsHaveNoRoom) {
    rig.type("Ada", "examine -1");
    rig.hall.game(1)->moves.resize(Game::plyLimit - 1);
    rig.type("Ada", "e4");
    EXPECT_EQ(rig.hall.game(1)->moves.size(), Game::plyLimit);
    EXPECT_EQ(rig.type("Ada", "d4"), "There is no room for more moves in this game.");
}

TEST_F(ExamineTest, AComputerAdjournsAndTakesBackWillingly) {
    openComputerRoom(rig.hall);
    rig.proposals = {{"e7e5", 0}};
    rig.type("Ada", "match spark 5 0 u white");
    rig.pass(200);
    rig.type("Ada", "e4");
    rig.pass(100);
    ASSERT_EQ(rig.hall.gameAtBoard(*rig.hall.find("Ada"))->moves.size(), 2U);
    rig.shown.clear();
    EXPECT_EQ(rig.type("Ada", "takeback 2"), "Takeback request sent.");
    EXPECT_TRUE(has(rig.takeShown("Ada"), "|Spark accepts your takeback request.|<12> "));
    EXPECT_TRUE(rig.hall.gameAtBoard(*rig.hall.find("Ada"))->moves.empty());
    rig.type("Ada", "e4");
    rig.pass(100);
    EXPECT_EQ(rig.type("Ada", "adjourn"), "Requesting to adjourn game 2.");
    EXPECT_TRUE(has(rig.takeShown("Ada"), "Game adjourned by mutual agreement} *"));
}

} // namespace
} // namespace practice
