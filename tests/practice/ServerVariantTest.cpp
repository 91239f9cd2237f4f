// Tests of other kinds of chess at the server's socket, with the real engine for the rules.
#include "practice/ServerRig.h"
#include "practice/text/Text.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace {

const std::string board = "\n\r<12> ";

// Ada against Bert; a match begins with begin().
struct ServerVariant : testing::Test {
    TestServer server;
    TestClient ada{server.port()};
    TestClient bert{server.port()};
    std::string start; // the board line that Ada, white, got first

    ServerVariant() {
        ada.enterAsGuest("Ada");
        bert.enterAsGuest("Bert");
    }

    void begin(const std::string& kind) {
        ada.line("Match bert 5 0 " + kind + " u White ");
        ada.until("Issuing: Ada (++++) [white] Bert (++++) unrated ");
        bert.until("Challenge: Ada (++++) [white] Bert (++++) unrated ");
        bert.until("propose different parameters.\n\rfics% ");
        bert.line("Accept");
        ada.until("Bert accepts your match offer.");
        ada.until(board);
        start = ada.until("\n\r");
        bert.until(board);
    }

    // Plays moves in turn and gives the board line that Bert got last, with its hands if any.
    std::string play(std::initializer_list<const char*> moves) {
        std::string text;
        bool white = true;
        for (const char* move : moves) {
            (white ? ada : bert).line(move);
            ada.until(board);
            bert.until(board);
            text = bert.until("fics% ");
            white = !white;
        }
        return text;
    }
};

TEST_F(ServerVariant, CrazyhouseHasHandsAndDrops) {
    begin("Crazyhouse");
    ada.until("<b1> game 2 white [] black []\n\r\n\rGame 2: A disconnection will be considered a forfeit.\n\r");
    ada.until("fics% ");
    play({"e4", "d5", "exd5"});
    EXPECT_NE(play({}).size(), 1U);
    bert.line("Qxd5");
    ada.until("<b1> game 2 white [P] black [P] <- BP\n\rfics% ");
    ada.until("<b1> game 2 white [P] black [P]\n\rfics% ");
    ada.line("P@e4");
    bert.until(" P/@@-e4 (0:0");
    EXPECT_NE(bert.until("fics% ").find("<b1> game 2 white [] black [P]"), std::string::npos);
    bert.line("Q@e6");
    EXPECT_NE(bert.until("<12> ").find("Illegal move (Q@e6)."), std::string::npos);
}

TEST_F(ServerVariant, SuicideForcesCapturesAndIsWonByLosingAll) {
    begin("Suicide");
    const auto tokens = practice::words(start);
    EXPECT_EQ(tokens[10] + tokens[11] + tokens[12] + tokens[13], "0000") << "no castling: " << start;
    play({"e4", "d5"});
    ada.line("a3");
    EXPECT_NE(ada.until("<12> ").find("Illegal move (a3)."), std::string::npos);
}

TEST_F(ServerVariant, LosersForcesCapturesToo) {
    begin("Losers");
    play({"e4", "d5"});
    ada.line("a3");
    EXPECT_NE(ada.until("<12> ").find("Illegal move (a3)."), std::string::npos);
    play({"exd5"});
}

// A known shortest game: the king is mated, and in losers that wins.
TEST_F(ServerVariant, LosersIsWonByBeingMated) {
    begin("Losers");
    play({"f3", "e5", "g4", "Qh4"});
    EXPECT_NE(bert.until("} 1-0").find("Ada checkmated"), std::string::npos);
}

TEST_F(ServerVariant, Wild0CastlesFromTheDFile) {
    begin("Wild 0");
    EXPECT_NE(start.find("PPPPPPPP RNBKQBNR W"), std::string::npos) << start;
    const std::string last = play({"Nc3", "Nc6", "b3", "b6", "Bb2", "Bb7", "O-O"});
    EXPECT_NE(last.find("-KR-QBNR"), std::string::npos) << last;
    EXPECT_NE(last.find(" o-o "), std::string::npos) << last;
    EXPECT_NE(last.find(" O-O "), std::string::npos) << last;
}

TEST_F(ServerVariant, Wild5PromotesAtOnce) {
    begin("Wild 5");
    const std::string last = play({"Nf6", "Nf3", "g8=Q"});
    EXPECT_NE(last.find(" P/g7-g8=Q "), std::string::npos) << last;
}

TEST_F(ServerVariant, EachKindStartsWithLegalMoves) {
    for (const char* kind : {"Wild 1", "Wild 2", "Wild 3", "Wild 4", "Wild 8", "Wild 8a", "Wild fr"}) {
        begin(kind);
        ada.line("e9");
        ada.until("fics% ");
        ada.line("resign");
        ada.until("Ada resigns} 0-1\n\rfics% ");
        bert.until("Ada resigns} 0-1\n\rfics% ");
    }
}

TEST_F(ServerVariant, FischerRandomStartsAreDrawnAnewAndPlayed) {
    begin("Wild fr");
    const std::string first = practice::words(start)[7];
    const auto tokens = practice::words(start);
    EXPECT_EQ(tokens[10] + tokens[11] + tokens[12] + tokens[13], "1111") << start;
    const std::string last = play({"a4", "h5"});
    EXPECT_NE(last.find(" P/h7-h5 "), std::string::npos) << last;
    ada.line("resign");
    ada.until("resigns} 0-1\n\rfics% ");
    bert.until("resigns} 0-1\n\rfics% ");
    begin("Wild fr");
    EXPECT_NE(practice::words(start)[7], first);
}

} // namespace
