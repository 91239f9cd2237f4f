// Tests of the bytes at the server's socket: what leaves in one piece, telnet's commands, and who is hung up on.
#include "practice/ServerRig.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

namespace {

const std::string hideTyping = "\xFF\xFB\x01";
const std::string showTyping = "\xFF\xFC\x01";

void giveWrongPassword(TestClient& client, const std::string& name) {
    client.until("login: ");
    client.line(name);
    client.until("password: " + hideTyping);
    client.line("nope");
    EXPECT_EQ(client.until("**** Invalid password! ****\n\r"), showTyping + "\n\r\n\r**** Invalid password! ****\n\r");
}

// `text` as a client shows it: whole commands are taken out, a doubled 255 is one, and every other byte stays.
std::string shownOf(const std::string& text) {
    std::string shown;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto next = at + 1 < text.size() ? static_cast<unsigned char>(text[at + 1]) : 0U;
        if (text[at] == '\xFF' && next >= 0xFB && next <= 0xFE && at + 2 < text.size()) {
            at += 2;
        } else {
            shown += text[at];
            if (text[at] == '\xFF' && next == 0xFF) ++at;
        }
    }
    return shown;
}

// Everything of a session that its own client got, wrong password, right one and commands.
std::string pupilsSession(int port, const std::string& command) {
    TestClient client(port);
    giveWrongPassword(client, "pupil");
    client.line("pupil");
    client.until("password: " + hideTyping);
    client.line("practice");
    client.until("fics% ");
    client.ask(command);
    client.line("quit");
    bool closed = false;
    client.rest(closed);
    std::string all;
    for (const std::string& packet : client.takePackets()) all += packet;
    return all;
}

// Each piece that arrived ends with a prompt.
void expectWholeMessages(TestClient& client, const std::string& about) {
    const auto packets = client.takePackets();
    EXPECT_FALSE(packets.empty()) << about;
    for (const std::string& packet : packets) EXPECT_TRUE(packet.ends_with("fics% ")) << about << ": " << packet;
}

TEST(ServerWire, TheThirdWrongPasswordHangsUp) {
    TestServer server;
    TestClient client(server.port());
    for (const char* name : {"Pupil", "Tester", "pupil"}) giveWrongPassword(client, name);
    bool closed = false;
    EXPECT_EQ(client.rest(closed), "\n\rThat was one wrong password too many.  Good-bye.\n\r");
    EXPECT_TRUE(closed);
}

TEST(ServerWire, WhatWasTypedBehindTheThirdWrongPasswordIsNotRead) {
    TestServer server;
    TestClient client(server.port());
    client.send("pupil\na\npupil\nb\npupil\nc\npupil\npractice\nwho\n");
    bool closed = false;
    EXPECT_EQ(client.rest(closed).find("Starting FICS session"), std::string::npos);
    EXPECT_TRUE(closed);
    TestClient other(server.port());
    other.enterAsGuest("Ada");
    EXPECT_EQ(other.ask("finger pupil").find("On for"), std::string::npos);
}

TEST(ServerWire, WrongPasswordsOfAnotherConnectionDoNotCount) {
    TestServer server;
    TestClient first(server.port());
    for (int i = 0; i < 2; ++i) giveWrongPassword(first, "Pupil");
    TestClient second(server.port());
    for (int i = 0; i < 2; ++i) giveWrongPassword(second, "Pupil");
    second.line("Pupil");
    second.until("password: " + hideTyping);
    second.line("practice");
    second.until("**** Starting FICS session as Pupil ****");
}

TEST(ServerWire, TelnetCommandsAreWholeAndStandAroundThePasswordAlone) {
    TestServer server;
    const std::string all = pupilsSession(server.port(), "who");
    std::string commands;
    for (std::size_t at = all.find('\xFF'); at != std::string::npos; at = all.find('\xFF', at + 3))
        commands += all.substr(at, 3);
    EXPECT_EQ(commands, hideTyping + showTyping + hideTyping + showTyping);
    for (const char c : shownOf(all)) EXPECT_LT(static_cast<unsigned char>(c), 0x7FU);
    EXPECT_EQ(shownOf(all).find('\x01'), std::string::npos);
}

TEST(ServerWire, AGuestGetsNoTelnetByte) {
    TestServer server;
    TestClient client(server.port());
    client.enterAsGuest("Ada");
    for (const std::string& packet : client.takePackets()) EXPECT_EQ(packet.find('\xFF'), std::string::npos);
}

TEST(ServerWire, TheCommandByteTravelsAsText) {
    TestServer server;
    const std::string all = pupilsSession(server.port(), "tell pupil \xFF\xFF\xFB\x01 and \xFFso on");
    EXPECT_NE(shownOf(all).find("Pupil tells you: \xFF\xFB and \xFFso on\n\r"), std::string::npos) << all;
}

TEST(ServerWire, EachAnswerLeavesInOnePieceWithItsPrompt) {
    TestServer server;
    TestClient client(server.port());
    client.enterAsGuest("Ada");
    client.takePackets();
    // What "ask" waits for stands within the answer to "variables", so nothing comes behind it.
    const std::vector<std::string> commands{"who",         "sought",         "help commands", "help match",
                                            "finger",      "uptime",         "games",         "foo",
                                            "observe 1",   "moves 1",        "unobserve",     "seek 5 0",
                                            "unseek",      "tell ada hello", "set time 5",    "set 1 a note",
                                            "finger ada",  "set 1",          "help manual",   "next",
                                            "help nosuch", "set height 240", "help manual",   "",
                                            "variables"};
    for (const std::string& command : commands) {
        client.ask(command);
        expectWholeMessages(client, command);
    }
}

TEST(ServerWire, TheSessionBeginsInOnePieceWithItsPrompt) {
    TestServer server;
    TestClient client(server.port());
    client.until("login: ");
    client.line("guest");
    client.until("Press return");
    client.until(":\n\r");
    client.takePackets();
    client.line("");
    client.until("fics% ");
    expectWholeMessages(client, "welcome");
}

// Takes, a mate and the words for an observer are several messages at once.
TEST(ServerWire, WhatAMoveBringsLeavesInOnePieceWithItsPrompt) {
    TestServer server;
    TestClient ada(server.port());
    TestClient bert(server.port());
    TestClient cora(server.port());
    ada.enterAsGuest("Ada");
    bert.enterAsGuest("Bert");
    cora.enterAsGuest("Cora");
    ada.ask("match bert 5 0 crazyhouse white");
    bert.until("propose different parameters.\n\rfics% ");
    bert.line("accept");
    for (TestClient* player : {&ada, &bert}) player->until("considered a forfeit.\n\r\n\rfics% ");
    cora.ask("observe ada");
    for (TestClient* each : {&ada, &bert, &cora}) each->takePackets();
    bool white = true;
    for (const char* move : {"e4", "f5", "exf5", "g5", "Qh5"}) {
        (white ? ada : bert).line(move);
        for (TestClient* each : {&ada, &bert, &cora}) {
            each->until("\n\r<12> ");
            each->until("fics% ");
            expectWholeMessages(*each, move);
        }
        white = !white;
    }
    for (TestClient* each : {&ada, &bert}) each->until("Bert checkmated} 1-0\n\rfics% ");
    cora.until("Removing game 2 from observation list.\n\rfics% ");
}

TEST(ServerWire, ANewPromptStandsBehindTheAnswerThatSetsIt) {
    TestServer server;
    TestClient client(server.port());
    client.enterAsGuest("Ada");
    client.line("Set Prompt box$");
    EXPECT_EQ(client.until("box$ \".\n\rbox$ "), "prompt set to \"box$ \".\n\rbox$ ");
    client.line("vars");
    const std::string table = client.until("\n\rbox$ ");
    EXPECT_NE(table.find("\n\rPrompt: box$ \n\r"), std::string::npos) << table;
    client.line("Set Prompt");
    client.until("fics% \".\n\rfics% ");
}

// The first prompt behind the last invitation ends the page for a client.
TEST(ServerWire, EachPieceOfAHelpPageHasOnePromptAndAllButTheLastAnInvitation) {
    TestServer server;
    TestClient client(server.port());
    client.enterAsGuest("Ada");
    std::string piece = client.ask("Help manual");
    int pieces = 1;
    for (; piece.find("\n\rType [next] to see next page.\n\rfics% ") != std::string::npos; ++pieces) {
        EXPECT_EQ(std::count(piece.begin(), piece.end(), '\r'), 24);
        piece = client.ask("Next");
    }
    EXPECT_EQ(pieces, 15);
    EXPECT_EQ(piece.find("[next]"), std::string::npos);
    EXPECT_EQ(client.ask("next"), "There is no more.\n\rfics% ");
}

} // namespace
