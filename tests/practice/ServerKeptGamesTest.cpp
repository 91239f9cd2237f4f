// Tests of takebacks, adjourned and examined games, computers and the log at the server's socket.
#include "practice/ServerRig.h"

#include <gtest/gtest.h>

#include <csignal>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

const std::string board = "\n\r<12> ";

// Rookery, white, against Partner.
struct ServerKeptGames : testing::Test {
    TestServer server;
    TestClient rookery{server.port()};
    TestClient partner{server.port()};

    ServerKeptGames() {
        rookery.enterRegistered("Rookery");
        partner.enterRegistered("Partner");
        rookery.line("match partner 15 0 r white");
        partner.until("Challenge: Rookery (1640) [white] Partner (1500) rated standard 15 0.");
        partner.line("accept");
        rookery.until(board);
        partner.until(board);
        move(rookery, "e4");
        move(partner, "e5");
        move(rookery, "Nf3");
    }

    // Plays a move and waits until both have seen it.
    void move(TestClient& client, const std::string& text) {
        client.line(text);
        for (TestClient* each : {&rookery, &partner}) {
            each->until(board);
            each->until("fics% ");
        }
    }
};

TEST_F(ServerKeptGames, AMoveIsTakenBackAndAnotherPlayed) {
    rookery.line("takeback");
    partner.until("Rookery would like to take back 1 half-move(s).\n\rfics% ");
    partner.line("accept");
    EXPECT_EQ(partner.until("<12> "), "Accepting the takeback request from Rookery.\n\r\n\r<12> ");
    rookery.until("Partner accepts your takeback request.");
    EXPECT_NE(rookery.until("fics% \n\r<12> ").size(), 0U);
    EXPECT_NE(rookery.until("fics% ").find(" 2 P/e7-e5 "), std::string::npos);
    partner.until("fics% ");
    rookery.line("Nc3");
    EXPECT_NE(partner.until("fics% ").find(" N/b1-c3 "), std::string::npos);
}

TEST_F(ServerKeptGames, AnAdjournedGameGoesOnWhereItStood) {
    rookery.line("adjourn");
    partner.until("type \"adjourn\" to accept.\n\rfics% ");
    partner.line("adjourn");
    rookery.until("(Rookery vs. Partner) Game adjourned by mutual agreement} *\n\rfics% ");
    EXPECT_NE(rookery.ask("stored").find(" 1: W Partner         Y [ sr 15   0] 39-39 B2   --- "), std::string::npos);
    partner.line("match rookery");
    rookery.until("rated standard 15 0 (adjourned).");
    rookery.line("accept");
    partner.until("(Rookery vs. Partner) Continuing rated standard match.}");
    EXPECT_NE(partner.until("fics% ").find(" N/g1-f3 "), std::string::npos);
    rookery.until(board);
    rookery.until("fics% ");
    move(partner, "Nc6");
}

// One answer with one prompt behind it, as the line breaks of the recorded servers have it.
TEST_F(ServerKeptGames, WhatAnAnswerStartsStandsBehindItBeforeThePrompt) {
    rookery.ask("draw");
    partner.until("Rookery offers you a draw.\n\rfics% ");
    EXPECT_EQ(partner.ask("accept"), "Accepting the draw offer from Rookery.\n\r\n\r"
                                     "{Game 2 (Rookery vs. Partner) Game drawn by mutual agreement} 1/2-1/2\n\rfics% ");
    EXPECT_EQ(rookery.until("1/2-1/2\n\rfics% "),
              "\n\rPartner accepts your draw offer.\n\rfics% \n\r"
              "{Game 2 (Rookery vs. Partner) Game drawn by mutual agreement} 1/2-1/2\n\rfics% ");
    rookery.ask("match partner 3 0 u white");
    partner.until("propose different parameters.\n\rfics% ");
    EXPECT_TRUE(partner.ask("accept").starts_with("Accepting the match offer from Rookery.\n\r\n\r"
                                                  "Creating: Rookery (1640) Partner (1500) unrated blitz 3 0\n\r"
                                                  "{Game 2 (Rookery vs. Partner) Creating unrated blitz match.}\n\r"
                                                  "\n\r<12> "));
}

TEST_F(ServerKeptGames, AFinishedGameIsExamined) {
    partner.line("resign");
    rookery.until("Partner resigns} 1-0\n\rfics% ");
    EXPECT_NE(rookery.ask("history").find(" 0: + 1640 W 1500 Partner       [ sr 15   0] --- Res "), std::string::npos);
    EXPECT_NE(rookery.ask("ex rookery 0").find(" Rookery Partner 2 15 0 "), std::string::npos);
    EXPECT_NE(rookery.ask("For 999").find("\n\rGame 2: Partner resigns 1-0\n\r"), std::string::npos);
    EXPECT_NE(rookery.ask("Back 2").find("Game 2: Rookery backs up 2 moves.\n\r"), std::string::npos);
    rookery.line("d5");
    EXPECT_NE(rookery.until("Game 2: Rookery moves: d5\n\rfics% ").find(" P/d7-d5 "), std::string::npos);
    EXPECT_NE(rookery.ask("Revert").find("Game 2: Rookery reverts to main line move 1.\n\r"), std::string::npos);
    EXPECT_EQ(rookery.ask("unex"), "You are no longer examining game 2.\n\rfics% ");
}

TEST_F(ServerKeptGames, LinesTypedAheadWaitForTheExaminedPosition) {
    partner.line("resign");
    rookery.until("Partner resigns} 1-0\n\rfics% ");
    rookery.send("ex -1\nforward\nNc6\nunex\n");
    rookery.until("goes forward 1 move.");
    rookery.until("Game 2: Rookery moves: Nc6");
    rookery.until("You are no longer examining game 2.");
}

// A folder of the test's own for the server's archive.
struct ServerArchive : testing::Test {
    const std::string folder = testing::TempDir() + "practice-archive-" + std::to_string(getpid());
    std::vector<std::string> arguments{"--move-delay", "200", "--ad-pace", "0", "--archive", folder};

    ~ServerArchive() override { std::filesystem::remove_all(folder); }
};

TEST_F(ServerArchive, GamesOutliveARestart) {
    std::string history;
    std::string journal;
    std::string moves;
    {
        TestServer server(arguments);
        TestClient rookery(server.port());
        TestClient partner(server.port());
        rookery.enterRegistered("Rookery");
        partner.enterRegistered("Partner");
        for (const char* last : {"resign", "adjourn"}) {
            rookery.line("match partner 15 0 r white");
            partner.until("Challenge: ");
            partner.line("accept");
            rookery.until(board);
            rookery.line("e4");
            partner.until(" P/e2-e4 ");
            partner.line("e5");
            rookery.until(" P/e7-e5 ");
            rookery.until("fics% ");
            rookery.line(last);
            if (std::string(last) == "adjourn") {
                partner.until("adjourn the game");
                partner.line("adjourn");
            }
            partner.until("{Game ");
            partner.until("fics% ");
            rookery.until("} ");
            rookery.until("fics% ");
        }
        rookery.ask("jsave A rookery 0");
        history = rookery.ask("history");
        journal = rookery.ask("journal");
        moves = rookery.ask("smoves rookery partner");
        EXPECT_NE(history.find(" 0: - "), std::string::npos) << history;
        EXPECT_NE(journal.find("%01: "), std::string::npos) << journal;
        EXPECT_NE(moves.find("  1.  e4      (0:00)     e5      (0:00)"), std::string::npos) << moves;
        kill(server.pid(), SIGKILL);
        EXPECT_EQ(server.wait(), -1) << "no orderly end";
    }
    TestServer server(arguments);
    TestClient rookery(server.port());
    TestClient partner(server.port());
    rookery.enterRegistered("Rookery");
    EXPECT_EQ(rookery.ask("history"), history);
    EXPECT_EQ(rookery.ask("journal"), journal);
    EXPECT_EQ(rookery.ask("smoves rookery partner"), moves);
    partner.enterRegistered("Partner");
    partner.line("match rookery");
    rookery.until("(adjourned).");
    rookery.line("accept");
    partner.until("Continuing rated standard match.}");
    partner.until(" P/e7-e5 ");
    partner.until("fics% ");
    rookery.until(board);
    rookery.until("fics% ");
    rookery.line("Nf3");
    EXPECT_NE(partner.until("fics% ").find(" N/g1-f3 "), std::string::npos) << "the rules know the position";
}

TEST_F(ServerArchive, WhatGuestsHadGoesWithTheServer) {
    {
        TestServer server(arguments);
        TestClient guest(server.port());
        guest.enterAsGuest("Adaguest");
        guest.line("match spark 5 0 u white");
        guest.until(board);
        guest.line("e4");
        guest.until(" P/e2-e4 ");
        guest.until("fics% ");
        guest.line("resign");
        guest.until("Adaguest resigns} 0-1\n\rfics% ");
        EXPECT_NE(guest.ask("history").find(" 0: - "), std::string::npos);
        kill(server.pid(), SIGKILL);
        EXPECT_EQ(server.wait(), -1);
    }
    TestServer server(arguments);
    TestClient guest(server.port());
    guest.enterAsGuest("Adaguest");
    EXPECT_NE(guest.ask("history").find("Adaguest has no history games."), std::string::npos);
    EXPECT_NE(guest.ask("history spark").find(" Adaguest "), std::string::npos) << "the opponent is at home here";
}

TEST(ServerComputers, SparkAnswersAtOnceAndAlwaysTheSame) {
    std::string first;
    for (const char* seed : {"1", "2"}) {
        TestServer server({"--seed", seed});
        TestClient client(server.port());
        client.enterAsGuest("Ada");
        client.line("match spark 5 0 u white");
        client.until("Spark accepts your match offer.");
        client.until(board);
        std::string answers;
        for (const char* move : {"e4", "d4", "a3"}) {
            client.line(move);
            client.until(board);
            client.until(board);
            client.until(") ");
            answers += client.until(" ");
            client.until("fics% ");
        }
        if (first.empty()) first = answers;
        EXPECT_EQ(answers, first);
    }
}

TEST(ServerComputers, EveryKindIsPlayedAgainstSpark) {
    TestServer server({"--seed", "3"});
    TestClient client(server.port());
    client.enterAsGuest("Ada");
    for (const char* kind : {"Crazyhouse", "Suicide", "Losers", "Wild 0", "Wild 1", "Wild 2", "Wild 3", "Wild 4",
                             "Wild 5", "Wild 8", "Wild 8a", "Wild fr"}) {
        client.line(std::string("Match spark 5 0 ") + kind + " u Black ");
        client.until("Spark accepts your match offer.");
        client.until(board);
        EXPECT_NE(client.until("fics% ").find(" none (0:00) none "), std::string::npos) << kind;
        client.until(board);
        EXPECT_NE(client.until("fics% ").find(" Spark Ada 1 5 0 "), std::string::npos) << kind;
        client.line("resign");
        client.until("Ada resigns} 1-0\n\rfics% ");
    }
}

TEST(ServerLog, WhatClientsSendIsKeptByteForByte) {
    const std::string path = testing::TempDir() + "practice-log-" + std::to_string(getpid());
    {
        TestServer server({"--log", path});
        TestClient client(server.port());
        client.enterAsGuest("Ada");
        client.ask("Match fred 5 0 r ");
        client.ask("Seek ");
    }
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    EXPECT_EQ(text.str(), "-\tAda\n-\t\nAda\tMatch fred 5 0 r \nAda\tSeek \n");
    std::remove(path.c_str());
}

TEST(ServerLog, AFileThatCannotBeWrittenIsNamed) {
    TestServer server({"--log", "/nonexistent/folder/log"});
    EXPECT_NE(server.output().find("cannot write /nonexistent/folder/log"), std::string::npos);
    EXPECT_EQ(server.wait(), 2);
}

} // namespace
