// Tests of the texts that tell of a game.
#include "practice/games/GameTexts.h"
#include "practice/text/Text.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

Game sample() {
    Game game;
    game.number = 3;
    game.names = {"Ada", "Bert"};
    game.ratings = {"1711", "++++"};
    game.terms.minutes = 5;
    game.terms.increment = 0;
    game.startedAt = "Sat Nov 21, 02:42 UTC 2026";
    game.clock.start(5, 0, 0);
    game.facts.fen = std::string(startFen);
    return game;
}

void addMove(Game& game, const std::string& verbose, const std::string& pretty, std::int64_t taken) {
    game.clock.press(game.toMove(), taken);
    game.moves.push_back({"", verbose, pretty, taken, 4});
}

TEST(GameTexts, SidesAndMoveNumbersFollowTheMoves) {
    Game game = sample();
    EXPECT_EQ(game.toMove(), 0);
    EXPECT_EQ(game.moveNumber(), 1);
    addMove(game, "P/e2-e4", "e4", 0);
    EXPECT_EQ(game.toMove(), 1);
    EXPECT_EQ(game.moveNumber(), 1);
    addMove(game, "P/e7-e5", "e5", 0);
    EXPECT_EQ(game.moveNumber(), 2);
    EXPECT_EQ(game.sideOf("Ada"), 0);
    EXPECT_EQ(game.sideOf("Bert"), 1);
    EXPECT_EQ(game.sideOf("ada"), -1);
}

TEST(GameTexts, TitleAndEndLineNameThePlayers) {
    EXPECT_EQ(gameTitle(sample()), "Game 3: Ada (1711) Bert (++++) unrated blitz 5 0");
    EXPECT_EQ(endLine(sample(), "Bert resigns", "1-0"), "{Game 3 (Ada vs. Bert) Bert resigns} 1-0");
}

TEST(GameTexts, TheBoardLineDependsOnItsViewer) {
    const Game game = sample();
    const auto token = [&](const std::string& viewer, std::size_t index) {
        return words(boardLineFor(game, viewer, 0))[index];
    };
    EXPECT_EQ(token("Ada", 19), "1");
    EXPECT_EQ(token("Bert", 19), "-1");
    EXPECT_EQ(token("Cora", 19), "0");
    EXPECT_EQ(token("Ada", 30), "0");
    EXPECT_EQ(token("Bert", 30), "1");
    EXPECT_EQ(token("Cora", 30), "0");
}

TEST(GameTexts, TheBoardLineTellsTheLastMove) {
    Game game = sample();
    addMove(game, "P/e2-e4", "e4", 7'000);
    const auto tokens = words(boardLineFor(game, "Cora", 7'000));
    EXPECT_EQ(tokens[10], "4");
    EXPECT_EQ(tokens[27], "P/e2-e4");
    EXPECT_EQ(tokens[28], "(0:07)");
    EXPECT_EQ(tokens[29], "e4");
}

TEST(GameTexts, TheMoveListHasFixedColumns) {
    Game game = sample();
    addMove(game, "P/e2-e4", "e4", 0);
    addMove(game, "P/e7-e5", "e5", 0);
    addMove(game, "N/g1-f3", "Nf3", 7'000);
    EXPECT_EQ(moveList(game), "Movelist for game 3:\n\n"
                              "Ada (1711) vs. Bert (++++) --- Sat Nov 21, 02:42 UTC 2026\n"
                              "Unrated blitz match, initial time: 5 minutes, increment: 0 seconds.\n\n"
                              "Move  Ada                Bert\n"
                              "----  ----------------   ----------------\n"
                              "  1.  e4      (0:00)     e5      (0:00)    \n"
                              "  2.  Nf3     (0:07)    \n"
                              "      {Still in progress} *\n");
}

TEST(GameTexts, AMoveListWithoutMovesHasItsFrame) {
    EXPECT_TRUE(moveList(sample()).ends_with("----------------\n      {Still in progress} *\n"));
}

TEST(GameTexts, TheRowOfTheGamesTableHasFixedColumns) {
    Game game = sample();
    EXPECT_EQ(gamesRow(game, 0), "  3 1711 Ada         ++++ Bert       [ bu  5   0]   5:00 -  5:00 (39-39) W:  1");
    game.names = {"Abcdefghijklmnopq", "Qponmlkjihgfedcba"};
    EXPECT_EQ(gamesRow(game, 0), "  3 1711 Abcdefghijk ++++ Qponmlkjih [ bu  5   0]   5:00 -  5:00 (39-39) W:  1");
}

} // namespace
} // namespace practice
