// Tests of the reasons that end a game of another kind than standard chess.
#include "practice/play/Endings.h"
#include "practice/HallRig.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

struct EndingsTest : testing::Test {
    HallRig rig;
    Game game;

    EndingsTest() { game.names = {"Ada", "Bert"}; }

    // The end of a position in which the side to move, white, cannot move.
    std::string end(const std::string& variant, const std::string& fen, Outcome outcome, bool check = false) {
        game.terms.variant = variant;
        game.facts = {fen, {}, check, outcome};
        const auto ending = endingOf(rig.hall, game);
        return ending ? ending->reason + " " + ending->result : std::string("none");
    }
};

TEST_F(EndingsTest, StandardChessEndsInMateOrStalemate) {
    EXPECT_EQ(end("", std::string(startFen), Outcome::Lost, true), "Ada checkmated 0-1");
    EXPECT_EQ(end("crazyhouse", std::string(startFen), Outcome::Lost, true), "Ada checkmated 0-1");
    EXPECT_EQ(end("", std::string(startFen), Outcome::Drawn), "Game drawn by stalemate 1/2-1/2");
}

TEST_F(EndingsTest, SuicideIsWonWithoutPieces) {
    EXPECT_EQ(end("suicide", "8/8/8/8/8/8/8/4k3 w - - 0 9", Outcome::Won), "Ada wins by losing all material 1-0");
}

TEST_F(EndingsTest, AStalemateInSuicideIsWonWithFewerPieces) {
    const std::string reason = " wins by having less material (stalemate)";
    EXPECT_EQ(end("suicide", "8/8/p1p5/P7/8/8/8/8 w - - 0 3", Outcome::Won), "Ada" + reason + " 1-0");
    EXPECT_EQ(end("suicide", "8/8/p7/P7/P7/8/8/8 w - - 0 3", Outcome::Lost), "Bert" + reason + " 0-1");
    EXPECT_EQ(end("suicide", "8/8/p7/P7/8/8/8/8 w - - 0 3", Outcome::Drawn), "Game drawn by stalemate 1/2-1/2");
}

TEST_F(EndingsTest, BarePiecesDrawOnlyWherePiecesWin) {
    game.facts = {"4k3/8/8/8/8/8/8/4K3 w - - 0 9", {"e1e2"}, false, Outcome::Drawn};
    game.seen[repetitionKey(game.facts.fen)] = 1;
    EXPECT_TRUE(endingOf(rig.hall, game).has_value());
    for (const char* kind : {"crazyhouse", "suicide", "losers"}) {
        game.terms.variant = kind;
        EXPECT_FALSE(endingOf(rig.hall, game).has_value()) << kind;
    }
}

TEST_F(EndingsTest, LosersIsWonByTheBareKingTheMatedAndTheStalemated) {
    EXPECT_EQ(end("losers", "4k2q/8/8/8/8/8/8/4K3 w - - 0 9", Outcome::Won), "Ada wins by losing all material 1-0");
    EXPECT_EQ(end("losers", std::string(startFen), Outcome::Won, true), "Ada checkmated 1-0");
    EXPECT_EQ(end("losers", std::string(startFen), Outcome::Won), "Ada wins by stalemate 1-0");
}

} // namespace
} // namespace practice
