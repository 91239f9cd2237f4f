// Tests of the server against clients that send too much, nonsense, or do not read.
#include "practice/ServerRig.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

namespace {

std::string noise(unsigned seed, std::size_t length) {
    std::mt19937 random(seed);
    std::string bytes;
    for (std::size_t i = 0; i < length; ++i) bytes += static_cast<char>(random() & 0xFFU);
    return bytes;
}

TEST(ServerRobustness, GarbageAtTheLoginDoesNoHarm) {
    TestServer server;
    for (unsigned seed = 1; seed <= 20; ++seed) {
        TestClient client(server.port());
        client.send(noise(seed, 5000));
    }
    TestClient client(server.port());
    client.enterAsGuest("Ada");
}

TEST(ServerRobustness, GarbageInASessionDoesNoHarm) {
    TestServer server;
    TestClient bad(server.port());
    bad.enterAsGuest("Bad");
    bad.send(noise(7, 200'000) + "\n\n");
    bad.line("tell bad finished");
    bad.until("Bad(U) tells you: finished");
    TestClient good(server.port());
    good.enterAsGuest("Good");
    EXPECT_EQ(good.ask("set style 12"), "Style 12 set.\n\rfics% ");
}

TEST(ServerRobustness, CommandsWithStrangeArgumentsAreAnswered) {
    TestServer server;
    TestClient client(server.port());
    client.enterAsGuest("Ada");
    for (const char* word : {"observe",   "moves",    "play",   "unseek",   "seek",      "tell",     "set",
                             "style",     "promote",  "finger", "who",      "games",     "refresh",  "kibitz",
                             "xtell",     "xwhisper", "help",   "+channel", "-channel",  "=channel", "unobserve",
                             "variables", "match",    "say",    "it",       "inchannel", "time",     "."}) {
        for (const char* argument :
             {"", " -1", " 0", " 99999999999999999999", " %s%n", " \"", " \x80\xff\xfe", " a b c d e f"}) {
            client.line(std::string(word) + argument);
        }
    }
    client.line("tell ada finished");
    client.until("Ada(U) tells you: finished");
}

TEST(ServerRobustness, AnEndlessLineIsCut) {
    TestServer server;
    TestClient client(server.port());
    client.enterAsGuest("Ada");
    client.line("shout " + std::string(3'000'000, 'x'));
    const std::string answer = client.until("(shouted to 0 players)\n\rfics% ");
    EXPECT_LT(answer.size(), 2000U);
}

TEST(ServerRobustness, TwentyClientsComeAtOnce) {
    TestServer server;
    std::vector<std::unique_ptr<TestClient>> clients;
    for (int i = 0; i < 20; ++i) clients.push_back(std::make_unique<TestClient>(server.port()));
    for (auto& client : clients) client->enterAsGuest();
    for (auto& client : clients) client->line("match sprout");
    for (auto& client : clients) client->until("\n\r<12> ");
    clients[0]->line("shout hello");
    for (std::size_t i = 1; i < clients.size(); ++i) clients[i]->until(" shouts: hello\n\rfics% ");
    clients[0]->line("who");
    clients[0]->until(" 47 players displayed (of 47).");
}

TEST(ServerRobustness, MoreThan200ClientsAreTurnedAway) {
    TestServer server;
    std::vector<std::unique_ptr<TestClient>> clients;
    for (int i = 0; i < 200; ++i) {
        clients.push_back(std::make_unique<TestClient>(server.port()));
        clients.back()->until("login: ");
    }
    bool closed = false;
    EXPECT_EQ(TestClient(server.port()).rest(closed), "\n\rThe practice hall is full.  Come back later.\n\r");
    EXPECT_TRUE(closed);
    clients.front()->line("guest");
    clients.front()->until("enter the server as \"");
}

TEST(ServerRobustness, AClientThatAsksMuchAndReadsLateGetsAllAnswers) {
    TestServer server;
    TestClient client(server.port());
    client.enterAsGuest("Ada");
    std::string commands;
    for (int i = 0; i < 2000; ++i) commands += "help\n";
    client.send(commands + "tell ada finished\n");
    std::size_t answers = 0;
    const std::string text = client.until("Ada(U) tells you: finished");
    for (auto at = text.find("help [topic]"); at != std::string::npos; at = text.find("help [topic]", at + 1))
        ++answers;
    EXPECT_EQ(answers, 2000U);
}

TEST(ServerRobustness, AClientThatNeverReadsIsDropped) {
    TestServer server;
    TestClient deaf(server.port(), 4096);
    deaf.enterAsGuest("Deaf");
    TestClient loud(server.port());
    loud.enterAsGuest("Loud");
    const std::string shout = "shout " + std::string(1000, 'x');
    std::string who;
    for (int round = 0; round < 60; ++round) {
        for (int i = 0; i < 300; ++i) loud.line(shout);
        loud.line("tell loud round" + std::to_string(round));
        loud.until("tells you: round" + std::to_string(round));
        loud.until("(told Loud)\n\rfics% ");
        who = loud.ask("finger deaf");
        if (who.find("There is no player matching the name deaf.") != std::string::npos) return;
    }
    FAIL() << who;
}

} // namespace
