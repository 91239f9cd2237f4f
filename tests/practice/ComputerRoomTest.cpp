// Tests of what the computer players do.
#include "practice/play/ComputerRoom.h"
#include "practice/HallRig.h"
#include "practice/hall/Computers.h"
#include "practice/play/Departure.h"
#include "practice/play/Flags.h"
#include "practice/play/GameEnd.h"
#include "practice/play/Moves.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

struct ComputerRoomTest : testing::Test {
    HallRig rig;

    ComputerRoomTest() {
        openComputerRoom(rig.hall);
        rig.enter("Ada", "1711");
    }

    Game& pairGame() { return *rig.hall.gamesOf(*rig.hall.find("Skipper")).front(); }
};

TEST_F(ComputerRoomTest, ThePairMovesAtItsPace) {
    const std::size_t before = pairGame().moves.size();
    rig.pass(1'000);
    EXPECT_EQ(pairGame().moves.size(), before);
    rig.pass(4'000);
    EXPECT_GT(pairGame().moves.size(), before);
}

TEST_F(ComputerRoomTest, ThePairBeginsANewGameAfterEachEnd) {
    const auto serial = pairGame().serial;
    rig.pass(600'000);
    EXPECT_GT(rig.hall.gamesOf(*rig.hall.find("Harbour")).front()->serial, serial);
}

TEST_F(ComputerRoomTest, AGameOfThePairEndsAfter150MovesAtMost) {
    pairGame().moves.resize(299);
    pairGame().facts.fen = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR b KQkq - 0 150";
    pairGame().facts.legal = {"e7e5"};
    rig.type("Ada", "observe skipper");
    playMove(rig.hall, pairGame(), "e7e5");
    EXPECT_TRUE(has(rig.takeShown("Ada"), "Game drawn by adjudication} 1/2-1/2"));
}

TEST_F(ComputerRoomTest, AComputerAnswersWithinASecond) {
    rig.proposals = {{"e7e5", 0}, {"e2e4", 0}};
    rig.type("Ada", "play 2");
    Game& game = *rig.hall.game(rig.hall.find("Ada")->playing);
    if (game.sideOf("Ada") == 0) rig.type("Ada", "e4");
    const std::size_t before = game.moves.size();
    rig.pass(1'000);
    EXPECT_EQ(game.moves.size(), before + 1);
}

TEST_F(ComputerRoomTest, AMoveThoughtOutForAPositionTakenBackIsNotPlayed) {
    rig.proposals = {{"e7e5", 0}};
    rig.type("Ada", "match granite 5 0 u white");
    rig.pass(200);
    rig.type("Ada", "e4");
    rig.pass(0);
    rig.type("Ada", "takeback");
    rig.pass(2'000);
    const Game& game = *rig.hall.game(rig.hall.find("Ada")->playing);
    EXPECT_TRUE(game.moves.empty());
    rig.proposals = {{"g8f6", 0}};
    rig.type("Ada", "d4");
    rig.pass(2'000);
    ASSERT_EQ(game.moves.size(), 2U);
    EXPECT_EQ(game.moves.back().engineForm, "g8f6");
}

TEST_F(ComputerRoomTest, AnIllegalProposalIsReplacedByALegalMove) {
    rig.proposals = {{"a1a8", 0}};
    rig.type("Ada", "play 1");
    Game& game = *rig.hall.game(rig.hall.find("Ada")->playing);
    if (game.sideOf("Ada") == 0) rig.type("Ada", "e4");
    const std::size_t before = game.moves.size();
    rig.pass(1'000);
    ASSERT_GT(game.moves.size(), before);
    EXPECT_NE(game.moves.back().engineForm, "a1a8");
}

TEST_F(ComputerRoomTest, AComputerDeclinesADrawUnlessItStandsBadly) {
    rig.type("Ada", "play 3");
    Game& game = *rig.hall.game(rig.hall.find("Ada")->playing);
    game.computerScore = 50;
    EXPECT_EQ(rig.type("Ada", "draw"), "Offering a draw to Granite.");
    rig.takeShown("Ada");
    rig.pass(0);
    EXPECT_TRUE(has(rig.takeShown("Ada"), "|Granite declines your draw offer."));
    game.computerScore = -400;
    EXPECT_EQ(rig.type("Ada", "draw"), "Offering a draw to Granite.");
    EXPECT_TRUE(has(rig.takeShown("Ada"), "Game drawn by mutual agreement} 1/2-1/2"));
}

TEST_F(ComputerRoomTest, AComputerAgreesToAbort) {
    rig.proposals = {{"e7e5", 0}, {"e2e4", 0}};
    rig.type("Ada", "play 1");
    Game& game = *rig.hall.game(rig.hall.find("Ada")->playing);
    game.moves.resize(4);
    rig.type("Ada", "abort");
    EXPECT_TRUE(has(rig.takeShown("Ada"), "Game aborted by mutual agreement} *"));
}

TEST_F(ComputerRoomTest, AComputerClaimsAFallenFlag) {
    rig.type("Ada", "play 1");
    Game& game = *rig.hall.game(rig.hall.find("Ada")->playing);
    game.moves.resize(game.sideOf("Ada") == 0 ? 2U : 3U);
    game.clock.halfmoves = 2;
    rig.now += 200'000;
    watchClocks(rig.hall);
    EXPECT_TRUE(has(rig.takeShown("Ada"), "Ada forfeits on time} "));
}

TEST_F(ComputerRoomTest, AComputerSaysAWordToATell) {
    EXPECT_EQ(rig.type("Ada", "tell willow hello"), "(told Willow)");
    rig.pass(500);
    EXPECT_TRUE(rig.takeShown("Ada").starts_with("|Willow(C) tells you: "));
}

TEST_F(ComputerRoomTest, WhatAComputerSaysOfGettingAGameIsTrue) {
    rig.type("Ada", "play granite");
    for (const Computer& computer : computers()) {
        rig.type("Ada", "tell " + computer.name + " hello");
        rig.takeShown("Ada");
        rig.pass(300);
        const std::string said = rig.takeShown("Ada");
        const bool offers = has(rig.type("Ada", "sought"), " " + computer.name);
        const bool plays = !rig.hall.gamesOf(*rig.hall.find(computer.name)).empty();
        EXPECT_EQ(has(said, "\"sought\" shows my ad."), offers) << said;
        EXPECT_EQ(has(said, "\"observe " + computer.name + "\" shows my game."), plays) << said;
        EXPECT_EQ(has(said, "\"match " + computer.name + "\" gets you a game."), !plays && !offers) << said;
    }
}

TEST_F(ComputerRoomTest, TheAdOfSparkIsAMinuteForTheWholeGame) {
    rig.type("Ada", "play spark");
    EXPECT_TRUE(has(rig.takeShown("Ada"), " unrated lightning 1 0\n"));
}

TEST_F(ComputerRoomTest, TheWordOfThePairNamesACommandThatWorks) {
    for (const char* name : {"Skipper", "Harbour"}) {
        EXPECT_TRUE(rig.type("Ada", std::string("observe ") + name).starts_with("You are now observing game ")) << name;
        rig.type("Ada", "unobserve");
    }
}

TEST_F(ComputerRoomTest, AnOpponentWhoLeavesIsForgottenQuietly) {
    rig.type("Ada", "play 1");
    leaveHall(rig.hall, "Ada");
    rig.pass(5'000);
    EXPECT_TRUE(rig.hall.gamesOf(*rig.hall.find("Sprout")).empty());
}

TEST_F(ComputerRoomTest, TheSameSeedGivesThePairTheSameGame) {
    HallRig other;
    other.hall.seed = rig.hall.seed = 11;
    other.proposals = rig.proposals = {{"e2e4", 20}, {"d2d4", 15}, {"g1f3", 10}};
    openComputerRoom(other.hall);
    endGame(rig.hall, pairGame(), "Game aborted", "*");
    endGame(other.hall, *other.hall.game(1), "Game aborted", "*");
    rig.pass(20'000);
    other.pass(20'000);
    const Game& first = pairGame();
    const Game& second = *other.hall.game(1);
    EXPECT_EQ(first.names, second.names);
    const std::size_t common = std::min(first.moves.size(), second.moves.size());
    ASSERT_GT(common, 1U);
    for (std::size_t i = 0; i < common; ++i) EXPECT_EQ(first.moves[i].engineForm, second.moves[i].engineForm);
}

} // namespace
} // namespace practice
