// Tests of reading the engine's lines.
#include "practice/engine/UciReplies.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

TEST(UciReplies, MovesAreToldFromOtherWords) {
    EXPECT_TRUE(isEngineMove("e2e4"));
    EXPECT_TRUE(isEngineMove("e7e8q"));
    EXPECT_TRUE(isEngineMove("e7e8k")) << "where pieces are to be lost";
    EXPECT_TRUE(isEngineMove("Q@e4"));
    for (const char* text : {"", "e2", "e2e9", "e7e8p", "Q@e9", "q@e4", "Q@e44", "0000", "(none)", "e2e4e5", "Nodes"}) {
        EXPECT_FALSE(isEngineMove(text)) << text;
    }
}

TEST(UciReplies, FactsOfAPositionAreCollected) {
    FactsReader reader;
    for (const char* line : {"", " +---+---+", "Fen: 4k3/8/8/8/8/8/4P3/4K3 w - - 0 1", "Sfen: x b - 1", "Key: 12",
                             "Checkers: ", "e2e3: 1", "e2e4: 1\r", ""}) {
        EXPECT_FALSE(reader.take(line)) << line;
    }
    EXPECT_TRUE(reader.take("Nodes searched: 2"));
    EXPECT_EQ(reader.facts.fen, "4k3/8/8/8/8/8/4P3/4K3 w - - 0 1");
    EXPECT_EQ(reader.facts.legal, (std::vector<std::string>{"e2e3", "e2e4"}));
    EXPECT_FALSE(reader.facts.check);
}

TEST(UciReplies, CheckIsTakenFromTheCheckers) {
    FactsReader reader;
    reader.take("Checkers: h4 ");
    EXPECT_TRUE(reader.facts.check);
}

TEST(UciReplies, ProposalsComeBestFirstWithTheirLastScores) {
    SearchReader reader;
    reader.take("info depth 1 seldepth 1 multipv 1 score cp 10 nodes 20 pv e2e4");
    reader.take("info depth 2 seldepth 2 multipv 1 score cp 31 nodes 40 pv d2d4 d7d5");
    reader.take("info depth 2 seldepth 2 multipv 2 score cp -4 nodes 40 pv e2e4 e7e5");
    reader.take("info depth 2 currmove e2e4 currmovenumber 1");
    EXPECT_TRUE(reader.take("bestmove d2d4 ponder d7d5"));
    const auto found = reader.candidates();
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].move, "d2d4");
    EXPECT_EQ(found[0].score, 31);
    EXPECT_EQ(found[1].move, "e2e4");
    EXPECT_EQ(found[1].score, -4);
}

TEST(UciReplies, MatesStandBeyondAllOtherScores) {
    SearchReader reader;
    reader.take("info depth 5 multipv 1 score mate 2 pv h5f7 e8f7");
    reader.take("info depth 5 multipv 2 score mate -3 pv a2a3");
    reader.take("bestmove h5f7");
    EXPECT_EQ(reader.candidates()[0].score, 29'998);
    EXPECT_EQ(reader.candidates()[1].score, -29'997);
}

TEST(UciReplies, ABestMoveWithoutScoresStandsAlone) {
    SearchReader reader;
    EXPECT_TRUE(reader.take("bestmove e7e8q"));
    ASSERT_EQ(reader.candidates().size(), 1U);
    EXPECT_EQ(reader.candidates()[0].move, "e7e8q");
}

TEST(UciReplies, AFinishedGameHasNoProposals) {
    SearchReader reader;
    reader.take("info depth 0 score mate 0");
    EXPECT_TRUE(reader.take("bestmove (none)"));
    EXPECT_TRUE(reader.candidates().empty());
}

TEST(UciReplies, BrokenLinesDoNoHarm) {
    SearchReader reader;
    for (const char* line : {"", "info", "info multipv", "info score", "info score cp", "info pv",
                             "info multipv x score y z pv q", "info score cp 99999999999999999999 pv e2e4"}) {
        EXPECT_FALSE(reader.take(line)) << line;
    }
    EXPECT_TRUE(reader.take("bestmove"));
}

} // namespace
} // namespace practice
