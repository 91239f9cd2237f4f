// Tests of the course of games between two players.
#include "practice/HallRig.h"
#include "practice/play/Departure.h"
#include "practice/play/Flags.h"
#include "practice/play/Moves.h"
#include "practice/text/Text.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

struct PlayTest : testing::Test {
    HallRig rig;

    PlayTest() {
        rig.enter("Ada", "1711");
        rig.enter("Bert");
        rig.enter("Cora");
    }

    void play(std::initializer_list<const char*> moves) {
        rig.match("Ada", "Bert");
        bool white = true;
        for (const char* move : moves) {
            EXPECT_EQ(rig.type(white ? "Ada" : "Bert", move), "") << move;
            white = !white;
        }
    }
};

TEST_F(PlayTest, AGameStartsWithItsLinesForBothPlayers) {
    rig.type("Ada", "seek 5 0 rated white");
    rig.shown.clear();
    rig.type("Bert", "play 1");
    EXPECT_EQ(rig.hall.game(1), nullptr) << "a guest cannot answer a rated ad";
    rig.type("Ada", "unseek");
    rig.type("Ada", "seek 5 0 unrated white");
    rig.shown.clear();
    EXPECT_EQ(rig.type("Bert", "play 2"), "");
    const std::string start =
        "|Creating: Ada (1711) Bert (++++) unrated blitz 5 0\n"
        "{Game 1 (Ada vs. Bert) Creating unrated blitz match.}\n\n"
        "<12> rnbqkbnr pppppppp -------- -------- -------- -------- PPPPPPPP RNBQKBNR W -1 1 1 1 1 0 1 Ada Bert ";
    const std::string behind = "\n\nGame 1: A disconnection will be considered a forfeit.\n";
    EXPECT_EQ(rig.takeShown("Ada"),
              "|Bert(U) accepts your seek." + start + "1 5 0 39 39 300 300 1 none (0:00) none 0 0 0" + behind);
    EXPECT_EQ(rig.takeShown("Bert"), start + "-1 5 0 39 39 300 300 1 none (0:00) none 1 0 0" + behind);
    EXPECT_EQ(rig.takeShown("Cora"), "");
}

TEST_F(PlayTest, AMoveIsShownToPlayersAndObservers) {
    rig.match("Ada", "Bert");
    rig.type("Cora", "observe 1");
    EXPECT_EQ(rig.type("Ada", "e4"), "");
    const std::string board = "|<12> rnbqkbnr pppppppp -------- -------- ----P--- -------- PPPP-PPP RNBQKBNR B 4 ";
    for (const char* name : {"Ada", "Bert", "Cora"}) EXPECT_TRUE(rig.takeShown(name).starts_with(board)) << name;
}

TEST_F(PlayTest, IllegalMovesAreAnsweredWithTheBoard) {
    rig.match("Ada", "Bert");
    const std::string answer = rig.type("Ada", "e2e5");
    EXPECT_TRUE(answer.starts_with("Illegal move (e2e5).\n\n<12> ")) << answer;
    EXPECT_EQ(rig.type("Bert", "e7e5"), "It is not your move.");
    EXPECT_EQ(rig.type("Cora", "e7e5"), "You are not playing or examining a game.");
}

TEST_F(PlayTest, CheckAndMateAreMarkedBehindTheMove) {
    play({"e4", "e5", "Bc4", "Nc6"});
    rig.check = true;
    EXPECT_EQ(rig.type("Ada", "Qh5"), "");
    EXPECT_TRUE(has(rig.takeShown("Bert"), " Qh5+ "));
    rig.type("Bert", "Nf6");
    rig.known.clear();
    rig.type("Ada", "h5f7");
    const std::string shown = rig.takeShown("Bert");
    EXPECT_TRUE(has(shown, " Q/h5-f7 (0:00) Qxf7# "));
    EXPECT_TRUE(shown.ends_with("|{Game 1 (Ada vs. Bert) Bert checkmated} 1-0"));
    EXPECT_EQ(rig.hall.game(1), nullptr);
    EXPECT_EQ(rig.hall.find("Ada")->playing, 0);
}

TEST_F(PlayTest, NoMovesWithoutCheckAreStalemate) {
    play({"e4"});
    rig.known.clear();
    rig.type("Bert", "e5");
    EXPECT_TRUE(has(rig.takeShown("Ada"), "{Game 1 (Ada vs. Bert) Game drawn by stalemate} 1/2-1/2"));
}

TEST_F(PlayTest, TheThirdRepetitionDraws) {
    play({"Nf3", "Nf6", "Ng1", "Ng8", "Nf3", "Nf6", "Ng1"});
    EXPECT_NE(rig.hall.game(1), nullptr);
    rig.type("Bert", "Ng8");
    EXPECT_TRUE(has(rig.takeShown("Ada"), "{Game 1 (Ada vs. Bert) Game drawn by repetition} 1/2-1/2"));
}

TEST_F(PlayTest, FiftyMovesWithoutProgressDraw) {
    Game& game = rig.match("Ada", "Bert");
    game.facts.fen = "rnbqkbnr/8/8/8/8/8/8/RNBQKBNR w KQkq - 99 60";
    rig.type("Ada", "Nf3");
    EXPECT_TRUE(has(rig.takeShown("Ada"), "Game drawn by the 50 move rule} 1/2-1/2"));
}

TEST_F(PlayTest, BareKingsDraw) {
    Game& game = rig.match("Ada", "Bert");
    game.facts.fen = "4k3/8/8/8/8/8/5p2/6N1 w - - 0 60";
    game.facts.legal = {"g1f3"};
    rig.known = {"e8e7"};
    rig.type("Ada", "Nf3");
    EXPECT_NE(rig.hall.game(1), nullptr) << "a pawn can still mate";
    rig.hall.game(1)->facts.fen = "4k3/8/8/8/8/5N2/8/4K3 b - - 0 60";
    rig.known = {"f3g1"};
    rig.hall.game(1)->facts.legal = {"e8e7"};
    rig.type("Bert", "Ke7");
    EXPECT_TRUE(has(rig.takeShown("Ada"), "Neither player has mating material} 1/2-1/2"));
}

TEST_F(PlayTest, AGameEndsBefore200Moves) {
    Game& game = rig.match("Ada", "Bert");
    game.moves.resize(Game::plyLimit - 2);
    rig.type("Ada", "e4");
    EXPECT_NE(rig.hall.game(1), nullptr);
    rig.type("Bert", "e5");
    EXPECT_TRUE(has(rig.takeShown("Ada"), "Game drawn by adjudication} 1/2-1/2"));
    EXPECT_LT(Game::plyLimit, 400U);
}

TEST_F(PlayTest, ResigningLosesAndTakesTheGameOffTheObserversLists) {
    rig.match("Ada", "Bert");
    rig.type("Cora", "observe 1");
    EXPECT_EQ(rig.type("Bert", "resign"), "");
    const std::string line = "|{Game 1 (Ada vs. Bert) Bert resigns} 1-0";
    EXPECT_EQ(rig.takeShown("Ada"), line);
    EXPECT_EQ(rig.takeShown("Bert"), line);
    EXPECT_EQ(rig.takeShown("Cora"), line + "|Removing game 1 from observation list.");
    EXPECT_TRUE(rig.hall.find("Cora")->observing.empty());
    EXPECT_EQ(rig.type("Bert", "resign"), "You are not playing a game.");
}

TEST_F(PlayTest, GameResultsGoToThoseWhoWantThem) {
    rig.match("Ada", "Bert");
    rig.enter("Dora");
    rig.type("Cora", "set gin 1");
    rig.type("Ada", "resign");
    EXPECT_EQ(rig.takeShown("Cora"), "|{Game 1 (Ada vs. Bert) Ada resigns} 0-1");
    EXPECT_EQ(rig.takeShown("Dora"), "");
}

TEST_F(PlayTest, ADrawIsOfferedAndAccepted) {
    play({"e4"});
    rig.shown.clear();
    EXPECT_EQ(rig.type("Ada", "draw"), "Offering a draw to Bert.");
    EXPECT_EQ(rig.takeShown("Bert"), "|Ada offers you a draw.");
    EXPECT_EQ(rig.type("Bert", "draw"), "Accepting the draw offer from Ada.");
    EXPECT_TRUE(has(rig.takeShown("Ada"), "Game drawn by mutual agreement} 1/2-1/2"));
}

TEST_F(PlayTest, AMoveDeclinesTheDraw) {
    play({"e4"});
    rig.type("Ada", "draw");
    rig.type("Bert", "e5");
    EXPECT_EQ(rig.type("Bert", "accept"), "There are no offers to accept.");
    EXPECT_NE(rig.hall.game(1), nullptr);
}

TEST_F(PlayTest, ADrawIsDeclinedInWords) {
    play({"e4"});
    rig.type("Ada", "draw");
    rig.shown.clear();
    rig.type("Cora", "observe 1");
    EXPECT_EQ(rig.type("Bert", "decline"), "Declining the draw offer from Ada.");
    EXPECT_EQ(rig.takeShown("Ada"), "|Bert declines your draw offer.");
    EXPECT_EQ(rig.takeShown("Cora"), "|Game 1: Bert declines the draw offer.");
}

TEST_F(PlayTest, OnesOwnOfferCannotBeAccepted) {
    play({"e4"});
    rig.type("Ada", "draw");
    EXPECT_EQ(rig.type("Ada", "accept"), "There are no offers to accept.");
    rig.type("Ada", "draw");
    EXPECT_NE(rig.hall.game(1), nullptr);
}

TEST_F(PlayTest, AGameIsAbortedAtOnceOnMoveOne) {
    play({"e4"});
    EXPECT_EQ(rig.type("Bert", "abort"), "");
    EXPECT_TRUE(has(rig.takeShown("Ada"), "{Game 1 (Ada vs. Bert) Game aborted on move 1} *"));
    EXPECT_EQ(rig.type("Ada", "history"), "Ada has no history games.");
}

TEST_F(PlayTest, ALaterAbortNeedsTheOpponent) {
    play({"e4", "e5"});
    rig.shown.clear();
    EXPECT_EQ(rig.type("Ada", "abort"), "Requesting to abort game 1.");
    EXPECT_EQ(rig.takeShown("Bert"), "|Ada would like to abort the game; type \"abort\" to accept.");
    EXPECT_EQ(rig.type("Bert", "abort"), "Accepting the abort request from Ada.");
    EXPECT_TRUE(has(rig.takeShown("Ada"), "Game aborted by mutual agreement} *"));
}

TEST_F(PlayTest, AFallenFlagEndsTheGameByItself) {
    play({"e4", "e5"});
    rig.now += 299'000;
    watchClocks(rig.hall);
    EXPECT_NE(rig.hall.game(1), nullptr);
    rig.now += 2'000;
    watchClocks(rig.hall);
    EXPECT_TRUE(has(rig.takeShown("Ada"), "{Game 1 (Ada vs. Bert) Ada forfeits on time} 0-1"));
}

TEST_F(PlayTest, WithoutAutoflagTheFlagIsClaimed) {
    play({"e4", "e5"});
    rig.type("Bert", "set autoflag 0");
    EXPECT_EQ(rig.type("Bert", "flag"), "Ada is not out of time.");
    rig.now += 301'000;
    watchClocks(rig.hall);
    EXPECT_NE(rig.hall.game(1), nullptr);
    EXPECT_EQ(rig.type("Bert", "flag"), "");
    EXPECT_TRUE(has(rig.takeShown("Bert"), "Ada forfeits on time} 0-1"));
}

TEST_F(PlayTest, AFlagThatFellBeforeTheMoveIsClaimedAfterIt) {
    play({"e4", "e5"});
    rig.type("Bert", "set autoflag 0");
    rig.now += 301'000;
    rig.type("Ada", "Nf3");
    rig.takeShown("Ada");
    EXPECT_EQ(rig.type("Ada", "flag"), "Bert is not out of time.");
    EXPECT_EQ(rig.type("Bert", "flag"), "");
    EXPECT_TRUE(has(rig.takeShown("Ada"), "Ada forfeits on time} 0-1"));
}

TEST_F(PlayTest, TwoFallenFlagsDraw) {
    play({"e4", "e5"});
    rig.type("Ada", "set autoflag 0");
    rig.type("Bert", "set autoflag 0");
    rig.now += 301'000;
    rig.type("Ada", "Nf3");
    rig.now += 301'000;
    EXPECT_EQ(rig.type("Ada", "flag"), "");
    EXPECT_TRUE(has(rig.takeShown("Bert"), "Game drawn because both players ran out of time} 1/2-1/2"));
    EXPECT_TRUE(has(rig.type("Ada", "history"), "] --- Fla "));
}

TEST_F(PlayTest, AMoveAfterTheFlagFellLosesToo) {
    play({"e4", "e5"});
    rig.now += 301'000;
    EXPECT_EQ(rig.type("Ada", "Nf3"), "");
    EXPECT_TRUE(has(rig.takeShown("Bert"), "Ada forfeits on time} 0-1"));
}

TEST_F(PlayTest, ABareKingCannotWinOnTime) {
    play({"e4", "e5"});
    rig.hall.game(1)->facts.fen = "4k3/8/8/8/8/8/4P3/4K3 w - - 0 60";
    rig.now += 301'000;
    watchClocks(rig.hall);
    EXPECT_TRUE(has(rig.takeShown("Ada"), "Ada ran out of time and Bert has no material to mate} 1/2-1/2"));
}

TEST_F(PlayTest, TheFirstMovesTakeNoTime) {
    rig.match("Ada", "Bert");
    rig.now += 1'000'000;
    watchClocks(rig.hall);
    EXPECT_NE(rig.hall.game(1), nullptr);
}

TEST_F(PlayTest, NoFieldOfABoardLineIsMoreThanSixteenBitsHold) {
    rig.match("Ada", "Bert", "546 999");
    for (int i = 0; i < 3; ++i) {
        rig.type("Ada", i % 2 == 0 ? "Nf3" : "Ng1");
        rig.type("Bert", i % 2 == 0 ? "Nf6" : "Ng8");
    }
    const auto clocks = [&] {
        const std::string text = rig.type("Cora", "refresh 1");
        const auto tokens = words(text.substr(text.find("<12>")));
        return tokens.at(24) + " " + tokens.at(25);
    };
    EXPECT_EQ(clocks(), "32767 32767");
    for (const char* name : {"Ada", "Bert"}) rig.type(name, "set autoflag 0");
    rig.pass(std::int64_t{200'000} * 1000);
    EXPECT_EQ(clocks(), "-32767 32767");
}

TEST_F(PlayTest, DisconnectionBeforeTwoMovesAborts) {
    play({"e4"});
    leaveHall(rig.hall, "Bert");
    EXPECT_TRUE(rig.takeShown("Ada").ends_with(
        "|Game 1: Bert disconnected.|{Game 1 (Ada vs. Bert) Bert lost connection and too few moves; game aborted} *"));
}

TEST_F(PlayTest, DisconnectionLaterForfeits) {
    play({"e4", "e5"});
    leaveHall(rig.hall, "Ada");
    EXPECT_TRUE(has(rig.takeShown("Bert"), "{Game 1 (Ada vs. Bert) Ada forfeits by disconnection} 0-1"));
    EXPECT_EQ(rig.hall.find("Ada"), nullptr);
}

TEST_F(PlayTest, NothingIsMovedWhileAMoveIsJudged) {
    rig.match("Ada", "Bert");
    rig.holdRules = true;
    rig.type("Ada", "e4");
    EXPECT_EQ(rig.type("Ada", "d4"), "It is not your move.");
    EXPECT_EQ(rig.type("Bert", "e5"), "It is not your move.");
    EXPECT_EQ(rig.resumed["Ada"], 0);
    rig.release();
    EXPECT_EQ(rig.hall.game(1)->moves.size(), 1U);
    EXPECT_EQ(rig.resumed["Ada"], 1);
    EXPECT_EQ(rig.resumed["Bert"], 1);
}

TEST_F(PlayTest, NoFlagIsCalledWhileAMoveIsJudged) {
    play({"e4", "e5"});
    rig.holdRules = true;
    rig.now += 299'000;
    rig.type("Ada", "Nf3");
    rig.now += 5'000;
    watchClocks(rig.hall);
    EXPECT_EQ(rig.type("Bert", "flag"), "Ada is not out of time.");
    rig.release();
    ASSERT_NE(rig.hall.game(1), nullptr);
    EXPECT_EQ(rig.hall.game(1)->moves.size(), 3U);
}

TEST_F(PlayTest, WhoLeavesObservesNoMore) {
    rig.match("Ada", "Bert");
    rig.type("Cora", "observe 1");
    leaveHall(rig.hall, "Cora");
    EXPECT_TRUE(rig.hall.game(1)->observers.empty());
}

TEST_F(PlayTest, AJudgementThatComesTooLateIsDropped) {
    rig.match("Ada", "Bert");
    rig.holdRules = true;
    rig.type("Ada", "e4");
    leaveHall(rig.hall, "Bert");
    rig.takeShown("Ada");
    rig.release();
    EXPECT_EQ(rig.takeShown("Ada"), "");
    EXPECT_EQ(rig.resumed["Ada"], 1);
}

TEST_F(PlayTest, PromotionTakesTheChosenPiece) {
    EXPECT_EQ(rig.type("Ada", "promote n"), "Promotion piece set to KNIGHT.");
    Game& game = rig.match("Ada", "Bert");
    game.facts.fen = "5k2/4P3/8/8/8/8/8/4K3 w - - 0 60";
    game.facts.legal = {"e7e8q", "e7e8n"};
    rig.type("Ada", "e8");
    EXPECT_TRUE(has(rig.takeShown("Bert"), " P/e7-e8=N (0:00) e8=N "));
    EXPECT_EQ(rig.type("Ada", "promote k"), "Promotion piece set to KNIGHT.");
    EXPECT_EQ(rig.type("Ada", "promote"), "Promote to one of q, r, b, n.");
}

TEST_F(PlayTest, APlayerCannotLeaveDuringHisGame) {
    rig.match("Ada", "Bert");
    const Answer stay = runCommand(rig.hall, *rig.hall.find("Ada"), "quit");
    EXPECT_FALSE(stay.leaving);
    const Answer go = runCommand(rig.hall, *rig.hall.find("Cora"), "quit");
    EXPECT_TRUE(go.leaving);
    EXPECT_TRUE(go.text.starts_with("Logging you out.\n"));
}

} // namespace
} // namespace practice
