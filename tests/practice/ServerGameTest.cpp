// Tests of whole games at the server's socket, with the real engine for the rules.
#include "practice/ServerRig.h"
#include "practice/text/Text.h"

#include <gtest/gtest.h>

#include <chrono>
#include <initializer_list>
#include <thread>

namespace {

const std::string board = "\n\r<12> ";

// Two guests at a game of Ada (white) against Bert.
struct ServerGame : testing::Test {
    TestServer server;
    TestClient ada{server.port()};
    TestClient bert{server.port()};
    std::string number;

    ServerGame() {
        ada.enterAsGuest("Ada");
        bert.enterAsGuest("Bert");
        ada.ask("seek 5 0 white");
        bert.until("Ada (++++) seeking 5 0 unrated blitz [white] (\"play 26\" to respond)\n\rfics% ");
        bert.line("play Ada");
        bert.until("{Game ");
        number = bert.until(" ");
        number.pop_back();
        bert.until("Creating unrated blitz match.}\n\r" + board);
        bert.until(" none 1 0 0\n\r\n\rGame " + number +
                   ": A disconnection will be considered a forfeit.\n\r\n\rfics% ");
        ada.until("Bert(U) accepts your seek.\n\rfics% \n\rCreating: Ada (++++) Bert (++++) unrated blitz 5 0\n\r");
        ada.until("fics% ");
    }

    // Plays moves in turn and gives the board line that Bert got last.
    std::string play(std::initializer_list<const char*> moves) {
        std::string line;
        bool white = true;
        for (const char* move : moves) {
            (white ? ada : bert).line(move);
            ada.until(board);
            bert.until(board);
            line = bert.until("\n\r");
            bert.until("fics% ");
            ada.until("fics% ");
            white = !white;
        }
        return line;
    }
};

TEST_F(ServerGame, ScholarsMateIsPlayed) {
    const std::string last = play({"e4", "e7e5", "Bc4", "b8-c6", "Qh5", "Nf6", "Qxf7"});
    EXPECT_NE(last.find(" Q/h5-f7 (0:0"), std::string::npos) << last;
    EXPECT_NE(last.find(") Qxf7# 1 1 0\n\r"), std::string::npos) << last;
    EXPECT_EQ(bert.until("fics% "), "\n\r{Game " + number + " (Ada vs. Bert) Bert checkmated} 1-0\n\rfics% ");
    EXPECT_EQ(ada.until("fics% "), "\n\r{Game " + number + " (Ada vs. Bert) Bert checkmated} 1-0\n\rfics% ");
}

TEST_F(ServerGame, EveryBoardLineHas33Tokens) {
    const std::string line =
        play({"e4", "d5", "exd5", "Qxd5", "Nc3", "Qa5", "d4", "c6", "Nf3", "Bg4", "Be2", "e6", "O-O"});
    const auto tokens = practice::words(line);
    ASSERT_EQ(tokens.size(), 32U) << line; // the wait took "<12>" itself
    EXPECT_EQ(tokens[7], "R-BQ-RK-");
    EXPECT_EQ(tokens[10] + tokens[11] + tokens[12] + tokens[13], "0011");
    EXPECT_EQ(tokens[18], "1");
    EXPECT_EQ(tokens[26], "o-o");
    EXPECT_EQ(tokens[28], "O-O");
}

TEST_F(ServerGame, PromotionIsTypedThreeWaysAndByThePromoteCommand) {
    const std::string line = play({"a4", "h5", "a5", "h4", "a6", "h3", "axb7", "hxg2", "bxa8=Q", "gxh1=n"});
    EXPECT_NE(line.find(" P/g2-h1=N (0:0"), std::string::npos) << line;
    EXPECT_NE(line.find(") gxh1=N "), std::string::npos) << line;
    play({"b4", "g5", "b5", "g4", "b6", "g3", "bxa7", "g2"});
    ada.ask("promote r");
    EXPECT_NE(play({"a7xb8", "g2-f1=B"}).find(" P/g2-f1=B "), std::string::npos);
    bert.line("moves");
    const std::string list = bert.until("{Still in progress} *");
    EXPECT_NE(list.find("axb8=R"), std::string::npos) << list;
    EXPECT_NE(list.find("bxa8=Q"), std::string::npos) << list;
    EXPECT_NE(list.find("gxf1=B"), std::string::npos) << list;
}

TEST_F(ServerGame, AnIllegalMoveIsAnsweredWithTheBoard) {
    ada.line("e2e5");
    EXPECT_EQ(ada.until("<12> "), "Illegal move (e2e5).\n\r\n\r<12> ");
    EXPECT_EQ(bert.ask("e5"), "It is not your move.\n\rfics% ");
}

TEST_F(ServerGame, PinsAndChecksAreTheEnginesMatter) {
    play({"e4", "e5", "Nf3", "d6", "Bb5"});
    bert.line("a6");
    EXPECT_EQ(bert.until("<12> "), "Illegal move (a6).\n\r\n\r<12> ");
}

TEST_F(ServerGame, MovesTypedAheadWaitForTheJudge) {
    ada.send("e4\nmoves\n");
    ada.until(board);
    EXPECT_NE(ada.until("{Still in progress} *").find("  1.  e4 "), std::string::npos);
}

TEST_F(ServerGame, ResigningEndsTheGameForBoth) {
    play({"e4"});
    bert.line("resign");
    const std::string end = "\n\r{Game " + number + " (Ada vs. Bert) Bert resigns} 1-0\n\rfics% ";
    EXPECT_EQ(bert.until("fics% "), end);
    EXPECT_EQ(ada.until("fics% "), end);
}

TEST(ServerDisconnection, TheOneWhoStaysIsTold) {
    TestServer server;
    TestClient ada(server.port());
    ada.enterAsGuest("Ada");
    ada.ask("seek 5 0 white");
    {
        TestClient bert(server.port());
        bert.enterAsGuest("Bert");
        bert.line("play Ada");
        bert.until(board);
    }
    ada.until("Bert disconnected.");
    ada.until("(Ada vs. Bert) Bert lost connection and too few moves; game aborted} *\n\rfics% ");
}

TEST(ServerComputers, AComputerIsPlayedAndAnswersSoon) {
    TestServer server;
    TestClient client(server.port());
    client.enterAsGuest("Ada");
    const std::string ads = client.ask("sought");
    EXPECT_NE(ads.find("  1 1050 Sprout(C)           3   0 unrated blitz                  0-9999 \n\r"),
              std::string::npos);
    client.line("play 1");
    client.until("Creating: ");
    const bool white = client.until(" ") == "Ada ";
    client.until(board);
    if (white) {
        client.line("e4");
        client.until(" e4 0 ");
    }
    client.until(board);
    const auto tokens = practice::words(client.until("\n\r"));
    EXPECT_EQ(tokens[18], "1") << "it is the client's turn again";
    client.line("resign");
    client.until("Ada resigns} ");
    client.until("\n\rSprout(C) (1050) seeking 3 0 unrated blitz (\"play ");
}

TEST(ServerComputers, TheRunningGameIsObserved) {
    TestServer server;
    TestClient client(server.port());
    client.enterAsGuest("Ada");
    EXPECT_NE(client.ask("games").find("  1 game displayed (of   1 in progress)."), std::string::npos);
    EXPECT_TRUE(client.ask("observe 1").starts_with("You are now observing game 1.\n\rGame 1: "));
    for (int i = 0; i < 4; ++i) {
        client.until(board);
        EXPECT_EQ(practice::words(client.until("\n\r"))[18], "0");
        client.until("fics% ");
    }
    client.line("unobserve 1");
    client.until("Removing game 1 from observation list.\n\rfics% ");
}

TEST(ServerComputers, ThePairsGameEndsAndTheNextBegins) {
    TestServer server({"--move-delay", "0", "--seed", "3"});
    TestClient client(server.port());
    client.enterAsGuest("Ada");
    client.ask("observe 1");
    client.until("Removing game 1 from observation list.\n\rfics% ");
    std::string games;
    for (int i = 0; i < 500 && games.find("1 game displayed") == std::string::npos; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        games = client.ask("games");
    }
    EXPECT_NE(games.find("Skipper"), std::string::npos);
}

} // namespace
