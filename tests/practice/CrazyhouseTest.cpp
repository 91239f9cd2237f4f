// Tests of hands and drops in the hall.
#include "practice/HallRig.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

struct CrazyhouseTest : testing::Test {
    HallRig rig;

    CrazyhouseTest() {
        rig.enter("Ada", "1711");
        rig.enter("Bert");
        rig.enter("Cora");
        rig.known = {"e2e4", "d7d5", "e4d5", "d8d5", "P@e4", "P@a3"};
        rig.type("Ada", "match bert 5 0 zh u white");
        rig.type("Bert", "accept");
        rig.type("Cora", "observe 1");
        rig.shown.clear();
    }
};

TEST_F(CrazyhouseTest, EachBoardIsFollowedByBothHands) {
    rig.type("Ada", "e4");
    for (const char* name : {"Ada", "Bert", "Cora"}) {
        EXPECT_TRUE(rig.takeShown(name).ends_with(" e4 " + std::string(name == std::string("Bert") ? "1" : "0") +
                                                  " 0 0\n<b1> game 1 white [] black []"))
            << name;
    }
}

TEST_F(CrazyhouseTest, ACaptureIsToldAheadOfTheBoard) {
    for (const char* move : {"e4", "d5"}) rig.type(move[0] == 'e' ? "Ada" : "Bert", move);
    rig.shown.clear();
    rig.type("Ada", "exd5");
    EXPECT_TRUE(rig.takeShown("Bert").starts_with("|<b1> game 1 white [P] black [] <- WP|<12> "));
    rig.type("Bert", "Qxd5");
    const std::string shown = rig.takeShown("Cora");
    EXPECT_TRUE(has(shown, "|<b1> game 1 white [P] black [P] <- BP|<12> "));
    EXPECT_TRUE(shown.ends_with("\n<b1> game 1 white [P] black [P]"));
}

TEST_F(CrazyhouseTest, ADropIsShownWithoutAFromSquare) {
    for (const char* move : {"e4", "d5"}) rig.type(move[0] == 'e' ? "Ada" : "Bert", move);
    rig.type("Ada", "exd5");
    rig.type("Bert", "Qxd5");
    rig.shown.clear();
    EXPECT_EQ(rig.type("Ada", "P@e4"), "");
    EXPECT_TRUE(has(rig.takeShown("Bert"), " P/@@-e4 (0:00) P@e4 1 1 0\n<b1> game 1 white [] black [P]"));
    EXPECT_EQ(rig.type("Bert", "p@a3"), "");
}

TEST_F(CrazyhouseTest, WhatIsNotInTheHandCannotBeDropped) {
    EXPECT_TRUE(rig.type("Ada", "Q@e4").starts_with("Illegal move (Q@e4).\n\n<12> "));
}

TEST_F(CrazyhouseTest, TheMovesAreOfACrazyhouseMatch) {
    EXPECT_TRUE(has(rig.type("Ada", "moves"), "\nUnrated crazyhouse match, initial time: 5 minutes"));
    EXPECT_TRUE(has(rig.type("Ada", "games"), "[ zu  5   0]"));
}

TEST_F(CrazyhouseTest, BareKingsAreNoDrawHere) {
    Game& game = *rig.hall.game(1);
    game.facts.fen = "4k3/8/8/8/8/8/5p2/6K1[] w - - 0 60";
    game.facts.legal = {"g1f2"};
    rig.known = {"e8e7"};
    rig.type("Ada", "Kxf2");
    EXPECT_NE(rig.hall.game(1), nullptr);
}

} // namespace
} // namespace practice
