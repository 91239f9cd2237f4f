// Pieces in hand, from "<b1>" lines.
#include "board/BoardRig.h"

#include <gtest/gtest.h>

namespace {

std::vector<int> held(const Game& game, long side) {
    std::vector<int> counts;
    for (long kind = 0; kind <= 4; ++kind) counts.push_back(game.Holdings[kind][side]);
    return counts;
}

} // namespace

TEST(Holdings, CountsQueenRookBishopKnightPawnOfBothSides) {
    BoardRig rig;
    rig.game.zSetBughouse("<b1> game 1 white [QRRBNPPP] black [NNQ] <- BN\r\n");
    EXPECT_EQ(held(rig.game, 0), (std::vector{1, 2, 1, 1, 3}));
    EXPECT_EQ(held(rig.game, 1), (std::vector{1, 0, 0, 2, 0}));
    EXPECT_EQ(rig.effects, (std::vector<std::string>{"hold [QRRBNPPP] [NNQ]"}));
    EXPECT_TRUE(rig.game.HoldingsShown);
}

TEST(Holdings, EmptyBracketsZeroAllCountsAndAreShown) {
    BoardRig rig;
    rig.game.zSetBughouse("<b1> game 1 white [QP] black [R]\r\n");
    rig.effects.clear();
    rig.game.zSetBughouse("<b1> game 1 white [] black []\r\n");
    EXPECT_EQ(held(rig.game, 0), (std::vector{0, 0, 0, 0, 0}));
    EXPECT_EQ(held(rig.game, 1), (std::vector{0, 0, 0, 0, 0}));
    EXPECT_EQ(rig.effects, (std::vector<std::string>{"hold [] []"}));
    EXPECT_TRUE(rig.game.HoldingsShown);
}

TEST(Holdings, AStrayDigitStopsTheCount) {
    BoardRig rig;
    rig.game.zSetBughouse("<b1> [PP2PP] [R1]\r\n");
    EXPECT_EQ(held(rig.game, 0), (std::vector{0, 0, 0, 0, 2}));
    EXPECT_EQ(held(rig.game, 1), (std::vector{0, 1, 0, 0, 0}));
    EXPECT_EQ(rig.effects, (std::vector<std::string>{"hold [PP2PP] [R1]"}));
}

TEST(Holdings, TheCaseOfALetterDoesNotMatterAndAKingStopsTheCount) {
    BoardRig rig;
    rig.game.zSetBughouse("<b1> [qQkQ] [pPnN]\r\n");
    EXPECT_EQ(held(rig.game, 0), (std::vector{2, 0, 0, 0, 0}));
    EXPECT_EQ(held(rig.game, 1), (std::vector{0, 0, 0, 2, 2}));
}

TEST(Holdings, ALineWithoutBracketsLeavesNothingInHand) {
    BoardRig rig;
    rig.game.zSetBughouse("<b1>\r\n");
    EXPECT_EQ(held(rig.game, 0), (std::vector{0, 0, 0, 0, 0}));
    rig.game.zSetBughouse("<b1> [PP~\r\n");
    EXPECT_EQ(held(rig.game, 0), (std::vector{0, 0, 0, 0, 2}));
    EXPECT_EQ(rig.effects.back(), "hold [PP~ ");
    rig.game.zSetBughouse("<b1> [PP] [NN");
    EXPECT_EQ(held(rig.game, 1), (std::vector{0, 0, 0, 2, 0}));
    rig.game.zSetBughouse("<b1> [[QQ]");
    EXPECT_EQ(held(rig.game, 0), (std::vector{0, 0, 0, 0, 0}));
    EXPECT_EQ(held(rig.game, 1), (std::vector{2, 0, 0, 0, 0}));
}

TEST(Holdings, BlacksBeginAtTheSecondBracketEvenWithinTheFirst) {
    BoardRig rig;
    rig.game.zSetBughouse("<b1> game 1 white [PP[RRB] black [Q]\r\n");
    EXPECT_EQ(held(rig.game, 0), (std::vector{0, 0, 0, 0, 2}));
    EXPECT_EQ(held(rig.game, 1), (std::vector{0, 2, 1, 0, 0}));
    EXPECT_EQ(rig.effects, (std::vector<std::string>{"hold [PP[RRB] [RRB]"}));
}
