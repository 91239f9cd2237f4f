// Tests of taking moves back, and of what becomes of other offers within a game.
#include "practice/HallRig.h"

#include <gtest/gtest.h>

#include <utility>

namespace practice {
namespace {

bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

struct TakebackTest : testing::Test {
    HallRig rig;

    TakebackTest() {
        rig.enter("Ada", "1711");
        rig.enter("Bert");
        rig.enter("Cora");
        rig.match("Ada", "Bert");
        rig.type("Cora", "observe 1");
        rig.type("Ada", "e4");
        rig.type("Bert", "e5");
        rig.shown.clear();
    }

    const Game& game() { return *rig.hall.game(1); }
};

// The lines that a player typed ahead run as soon as the rules have answered.
TEST_F(TakebackTest, AGameThatEndsWhileTheRulesAnswerIsNotShownAgain) {
    rig.type("Ada", "takeback");
    bool resigned = false;
    rig.hall.find("Bert")->resume = [&] {
        if (!std::exchange(resigned, true)) rig.type("Bert", "resign");
    };
    rig.shown.clear();
    rig.type("Bert", "accept");
    ASSERT_TRUE(resigned);
    EXPECT_TRUE(rig.hall.games.empty());
    EXPECT_TRUE(rig.takeShown("Ada").ends_with("|{Game 1 (Ada vs. Bert) Bert resigns} 1-0"));
}

TEST_F(TakebackTest, ARequestIsToldAndAccepted) {
    EXPECT_EQ(rig.type("Bert", "takeback"), "Takeback request sent.");
    EXPECT_EQ(rig.takeShown("Ada"), "|Bert would like to take back 1 half-move(s).");
    EXPECT_EQ(rig.takeShown("Cora"), "|Game 1: Bert requests to take back 1 half-move(s).");
    EXPECT_EQ(rig.type("Ada", "accept"), "Accepting the takeback request from Bert.");
    EXPECT_TRUE(rig.takeShown("Bert").starts_with("|Ada accepts your takeback request.|<12> rnbqkbnr pppppppp "));
    EXPECT_TRUE(rig.takeShown("Ada").starts_with("|<12> "));
    EXPECT_TRUE(rig.takeShown("Cora").starts_with(
        "|Game 1: Ada accepts the takeback request.|<12> rnbqkbnr pppppppp -------- -------- ----P--- "));
    EXPECT_EQ(game().moves.size(), 1U);
    EXPECT_EQ(rig.type("Bert", "e5"), "");
}

TEST_F(TakebackTest, SeveralHalfMovesGoBackToTheStart) {
    rig.type("Ada", "takeback 2");
    rig.shown.clear();
    rig.type("Bert", "takeback 2");
    EXPECT_TRUE(has(rig.takeShown("Ada"), "PPPPPPPP RNBQKBNR W -1 1 1 1 1 0 1 Ada Bert 1 5 0 39 39 300 300 1 none "));
}

TEST_F(TakebackTest, OtherNumbersAreARequestOfTheirOwn) {
    rig.type("Ada", "takeback 2");
    EXPECT_EQ(rig.type("Bert", "takeback 1"), "Takeback request sent.");
    EXPECT_EQ(game().moves.size(), 2U);
}

TEST_F(TakebackTest, WhatWasNotPlayedCannotBeTakenBack) {
    EXPECT_EQ(rig.type("Ada", "takeback 3"), "There are only 2 half-moves in your game.");
    EXPECT_EQ(rig.type("Ada", "takeback 0"), "Usage: takeback [half-moves]");
    EXPECT_EQ(rig.type("Ada", "takeback x"), "Usage: takeback [half-moves]");
    EXPECT_EQ(rig.type("Cora", "takeback"), "You are not playing a game.");
}

TEST_F(TakebackTest, ARequestForMoreThanIsLeftDoesNotStand) {
    rig.type("Ada", "takeback 2");
    rig.type("Bert", "takeback 1");
    rig.type("Ada", "accept");
    rig.takeShown("Ada");
    EXPECT_EQ(rig.type("Bert", "accept"), "That offer does not stand any more.");
    EXPECT_EQ(rig.takeShown("Ada"), "");
    EXPECT_EQ(game().moves.size(), 1U);
}

TEST_F(TakebackTest, TheClocksGoBackToo) {
    rig.now += 10'000;
    rig.type("Ada", "Nf3");
    rig.type("Ada", "takeback");
    rig.type("Bert", "accept");
    EXPECT_EQ(game().clock.remaining(0, 0, rig.now), 300'000);
    rig.now += 5'000;
    EXPECT_EQ(game().clock.remaining(0, 0, rig.now), 295'000);
}

TEST_F(TakebackTest, PositionsTakenBackDoNotCountForRepetition) {
    for (int i = 0; i < 5; ++i) {
        rig.type("Ada", "Nf3");
        rig.type("Ada", "takeback");
        rig.type("Bert", "accept");
    }
    EXPECT_NE(rig.hall.game(1), nullptr);
    EXPECT_EQ(game().moves.size(), 2U);
}

TEST_F(TakebackTest, AMoveTurnsTheRequestDown) {
    rig.type("Bert", "takeback");
    rig.type("Ada", "Nf3");
    EXPECT_EQ(rig.type("Ada", "accept"), "There are no offers to accept.");
}

TEST_F(TakebackTest, OffersWithinAGameArePendingUntilItEnds) {
    rig.type("Ada", "draw");
    EXPECT_TRUE(has(rig.type("Bert", "pending"), "Offers FROM other players:\n 1: Ada is offering a draw."));
    EXPECT_EQ(rig.type("Ada", "withdraw"), "Withdrawing your draw offer to Bert.");
    rig.type("Ada", "abort");
    rig.type("Ada", "resign");
    EXPECT_TRUE(rig.hall.offers.open.empty());
}

TEST_F(TakebackTest, AnOfferIsNamedByItsKind) {
    rig.type("Ada", "draw");
    rig.type("Ada", "takeback");
    EXPECT_TRUE(rig.type("Bert", "accept").starts_with("There is more than one pending offer."));
    EXPECT_EQ(rig.type("Bert", "decline takeback"), "Declining the takeback request from Ada.");
    rig.type("Bert", "accept draw");
    EXPECT_TRUE(has(rig.takeShown("Ada"), "Game drawn by mutual agreement} 1/2-1/2"));
}

} // namespace
} // namespace practice
