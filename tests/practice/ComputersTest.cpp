// Tests of the computer players' characters and choices.
#include "practice/hall/Computers.h"
#include "practice/people/Accounts.h"

#include <gtest/gtest.h>

#include <set>

namespace practice {
namespace {

TEST(Computers, ThreeGrowStrongerAndEachAdHasItsTimeControl) {
    std::set<std::pair<int, int>> controls;
    int lastDepth = 0;
    int lastRating = 0;
    for (const Computer& computer : computers()) {
        EXPECT_EQ(handleComplaint(computer.name), "");
        if (computer.role != Role::Host) continue;
        controls.insert({computer.offer.minutes, computer.offer.increment});
        if (computer.prompt) continue;
        EXPECT_GT(computer.depth, lastDepth);
        EXPECT_GT(computer.rating, lastRating);
        lastDepth = computer.depth;
        lastRating = computer.rating;
    }
    EXPECT_EQ(controls.size(), 4U);
}

TEST(Computers, OneAnswersAtOnceAndAlwaysTheSame) {
    int prompt = 0;
    for (const Computer& computer : computers()) {
        if (!computer.prompt) continue;
        ++prompt;
        EXPECT_EQ(computer.depth, 1);
        EXPECT_EQ(computer.proposals, 1) << "no choice, no chance";
    }
    EXPECT_EQ(prompt, 1);
}

TEST(Computers, TwoPlayEachOtherAlways) {
    int pair = 0;
    for (const Computer& computer : computers()) pair += computer.role == Role::Pair ? 1 : 0;
    EXPECT_EQ(pair, 2);
}

TEST(Computers, OnlyMovesWithinTheMarginAreChosen) {
    std::mt19937 random(1);
    const std::vector<Candidate> proposals{{"e2e4", 30}, {"d2d4", 0}, {"a2a3", -80}};
    std::set<std::string> chosen;
    for (int i = 0; i < 100; ++i) chosen.insert(chooseMove(proposals, 40, random));
    EXPECT_EQ(chosen, (std::set<std::string>{"e2e4", "d2d4"}));
}

TEST(Computers, TheSameSeedChoosesTheSameMoves) {
    const std::vector<Candidate> proposals{{"e2e4", 30}, {"d2d4", 20}, {"c2c4", 10}};
    std::mt19937 first(7);
    std::mt19937 second(7);
    for (int i = 0; i < 50; ++i) EXPECT_EQ(chooseMove(proposals, 40, first), chooseMove(proposals, 40, second));
}

TEST(Computers, AMateInSightIsAlwaysTaken) {
    std::mt19937 random(1);
    for (int i = 0; i < 50; ++i) EXPECT_EQ(chooseMove({{"h5f7", 29'999}, {"a2a3", 29'990}}, 500, random), "h5f7");
}

TEST(Computers, NoProposalsGiveNoMove) {
    std::mt19937 random(1);
    EXPECT_EQ(chooseMove({}, 40, random), "");
}

} // namespace
} // namespace practice
