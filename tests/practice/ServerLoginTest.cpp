// Tests of the log-on and of talk at the server's socket.
#include "practice/ServerRig.h"

#include <gtest/gtest.h>

namespace {

const std::string echoOff = "\xFF\xFB\x01";
const std::string echoOn = "\xFF\xFC\x01";

void enterPupil(TestClient& client) {
    client.until("login: ");
    client.line("Pupil");
    client.until("password: " + echoOff);
    client.line("practice");
    client.until(echoOn + "\n\r**** Starting FICS session as Pupil ****\n\r");
    client.until("fics% ");
}

TEST(ServerLogin, AGuestEntersWithANameOfTheServer) {
    TestServer server;
    TestClient client(server.port());
    const std::string name = client.enterAsGuest();
    EXPECT_EQ(name.size(), 9U);
    EXPECT_TRUE(name.starts_with("Guest"));
}

TEST(ServerLogin, ARegisteredPlayerEntersWithHisPassword) {
    TestServer server;
    TestClient client(server.port());
    enterPupil(client);
    EXPECT_EQ(client.ask("set style 12"), "Style 12 set.\n\rfics% ");
}

TEST(ServerLogin, AWrongPasswordGivesAnotherChance) {
    TestServer server;
    TestClient client(server.port());
    client.until("login: ");
    client.line("Pupil");
    client.until("password: " + echoOff);
    client.line("nope");
    client.until(echoOn + "\n\r\n\r**** Invalid password! ****\n\r");
    enterPupil(client);
}

TEST(ServerLogin, LinesMayEndWithReturnAndLineFeed) {
    TestServer server;
    TestClient client(server.port());
    client.until("login: ");
    client.send("guest\r\n\r\n");
    client.until("fics% ");
    client.send("set style 12\r\n");
    EXPECT_EQ(client.until("fics% "), "Style 12 set.\n\rfics% ");
}

TEST(ServerLogin, TheSecondLogOnOfAPlayerEndsTheFirst) {
    TestServer server;
    TestClient first(server.port());
    enterPupil(first);
    TestClient second(server.port());
    enterPupil(second);
    bool closed = false;
    EXPECT_NE(first.rest(closed).find("**** Pupil has arrived; you can't both be logged in. ****"), std::string::npos);
    EXPECT_TRUE(closed);
    EXPECT_NE(second.ask("who").find("Pupil"), std::string::npos);
}

TEST(ServerLogin, TheSecondGuestOfANameIsRefused) {
    TestServer server;
    TestClient first(server.port());
    first.enterAsGuest("Zorro");
    TestClient second(server.port());
    second.until("login: ");
    second.line("zorro");
    second.until("logged on already");
    second.until("login: ");
}

TEST(ServerLogin, QuitClosesTheConnection) {
    TestServer server;
    TestClient client(server.port());
    client.enterAsGuest();
    client.line("quit");
    bool closed = false;
    EXPECT_TRUE(client.rest(closed).starts_with("Logging you out.\n\r"));
    EXPECT_TRUE(closed);
}

TEST(ServerLogin, TellsGoBetweenTwoClientsWithTheRecordedLineBreaks) {
    TestServer server;
    TestClient ada(server.port());
    TestClient bert(server.port());
    ada.enterAsGuest("Ada");
    bert.enterAsGuest("Bert");
    EXPECT_EQ(ada.ask("tell bert hi there"), "(told Bert)\n\rfics% ");
    EXPECT_EQ(bert.until("fics% "), "\n\rAda(U) tells you: hi there\n\rfics% ");
    EXPECT_EQ(bert.ask("tell 50 hello"), "Bert(U)(50): hello\n\r(told 2 players in channel 50)\n\rfics% ");
    EXPECT_EQ(ada.until("fics% "), "\n\rBert(U)(50): hello\n\rfics% ");
    EXPECT_EQ(bert.ask("shout hello"), "Bert(U) shouts: hello\n\r(shouted to 1 player)\n\rfics% ");
    EXPECT_EQ(ada.until("fics% "), "\n\rBert(U) shouts: hello\n\rfics% ");
}

TEST(ServerLogin, AnEmptyLineAndAnUnknownWordAreAnswered) {
    TestServer server;
    TestClient client(server.port());
    client.enterAsGuest();
    EXPECT_EQ(client.ask(""), "fics% ");
    EXPECT_EQ(client.ask("foo"), "foo: Command not found.\n\rfics% ");
}

} // namespace
