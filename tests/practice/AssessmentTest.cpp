// Tests of "assess": what a rated game would be worth.
#include "practice/games/Assessment.h"
#include "practice/HallRig.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

TEST(Assessment, EqualsGainWhatTheyMayLose) { EXPECT_EQ(ratingGains(1500, 1500), (std::array<int, 3>{16, 0, -16})); }

TEST(Assessment, TheStrongerGainsLessAndLosesMore) {
    EXPECT_EQ(ratingGains(1900, 1500), (std::array<int, 3>{3, -13, -29}));
    EXPECT_EQ(ratingGains(1500, 1900), (std::array<int, 3>{29, 13, -3}));
    EXPECT_EQ(ratingGains(640, 2790), (std::array<int, 3>{32, 16, 0}));
}

TEST(Assessment, WhatOneGainsTheOtherLoses) {
    for (int rating = 600; rating <= 2800; rating += 73) {
        const auto one = ratingGains(rating, 1711);
        const auto other = ratingGains(1711, rating);
        for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(one[i], -other[2 - i]) << rating;
    }
}

struct AssessTest : testing::Test {
    HallRig rig;

    AssessTest() {
        rig.enter("Ada", "1500");
        rig.enter("Willow", "1900");
        rig.enter("Driftwood", "----");
        rig.enter("Bert");
        rig.hall.accounts = builtInAccounts();
    }
};

TEST_F(AssessTest, TheTableHasARowForEachOfTheTwo) {
    EXPECT_EQ(rig.type("Ada", "ass Willow"), "A rated game of Ada (1500) against Willow (1900) would be worth:\n\n"
                                             "           win    draw    loss\n"
                                             "Ada        +29     +13      -3\n"
                                             "Willow      +3     -13     -29");
}

TEST_F(AssessTest, TwoNamesCompareOthers) {
    EXPECT_TRUE(
        rig.type("Ada", "assess willow pupil").starts_with("A rated game of Willow (1900) against Pupil (1200) "));
}

TEST_F(AssessTest, WithoutARatingOneCountsAsANewcomer) {
    const std::string text = rig.type("Ada", "assess driftwood");
    EXPECT_TRUE(text.starts_with("A rated game of Ada (1500) against Driftwood (----) would be worth:")) << text;
    EXPECT_NE(text.find("Ada           +16       0     -16\n"), std::string::npos) << text;
    EXPECT_TRUE(text.ends_with("\n\nWithout a rating one counts as 1500."));
}

TEST_F(AssessTest, AGuestsGamesAreUnrated) {
    EXPECT_EQ(rig.type("Ada", "assess bert"), "Bert is not registered, so a game of the two is unrated.");
    EXPECT_EQ(rig.type("Bert", "assess ada"), "Bert is not registered, so a game of the two is unrated.");
}

TEST_F(AssessTest, WrongWordsAreToldOf) {
    EXPECT_EQ(rig.type("Ada", "assess"), "Usage: assess NAME [NAME]");
    EXPECT_EQ(rig.type("Ada", "assess nobody"), "There is no player matching the name nobody.");
    EXPECT_EQ(rig.type("Ada", "assess nobody willow"), "There is no player matching the name nobody.");
    EXPECT_EQ(rig.type("Ada", "assess ada"), "Nobody plays himself.");
}

} // namespace
} // namespace practice
