// What goes out to the server, and what stays behind of it.
#include "common/ServerRoad.h"

#include "common/Fault.h"
#include "common/modChess.h"
#include "session/QuietSurface.h"
#include "session/Session.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

struct ServerRoadTest : testing::Test {
    Session session{quietSurface()};
    ServerRoad& road = session.road;
    std::string sent;
    std::string echoed;
    std::int16_t state = 7;
    std::int16_t login = 0;
    int helps = 0;
    std::string topicShown; // that was there as the panel was shown
    int histories = 0;

    ServerRoadTest() {
        modChess = ModChess{};
        road.hooks.sendData = [this](const std::string& bytes) {
            if (state != 7) throw Fault(FaultKind::File, "closed");
            sent += bytes;
        };
        road.hooks.socketState = [this] { return state; };
        road.hooks.login = [this] { return login; };
        road.hooks.handle = [] { return std::string("Own"); };
        road.hooks.echo = [this](const std::string& text) { echoed += text; };
        road.hooks.showHelp = [this] {
            ++helps;
            topicShown = modChess.gHelpTopic;
        };
        road.hooks.showHistory = [this] {
            ++histories;
            topicShown = modChess.gHelpTopic;
        };
    }
};

} // namespace

TEST_F(ServerRoadTest, RawWritesOneLfAndCountsTheLine) {
    road.zSendRaw("e4");
    EXPECT_EQ(sent, "e4\n");
    EXPECT_EQ(modChess.LinesSent, 1);
    EXPECT_EQ(modChess.gLastCmd, "");
}

TEST_F(ServerRoadTest, RawDoesNotTestTheSocket) {
    state = 0;
    EXPECT_THROW(road.zSendRaw("e4"), Fault);
    EXPECT_EQ(modChess.LinesSent, 0);
}

TEST_F(ServerRoadTest, MadeUpCommandsAreSilent) {
    road.idleSeconds = 12;
    road.zSendMsg("Set Style 12");
    EXPECT_EQ(sent, "Set Style 12\n");
    EXPECT_EQ(modChess.gLastCmd, "Set Style 12");
    EXPECT_EQ(modChess.gLastTyped, "");
    EXPECT_EQ(road.txtOld, "Set Style 12");
    EXPECT_EQ(road.idleSeconds, 0);
    EXPECT_EQ(echoed, "");
    EXPECT_EQ(road.history.entries[1], "");
}

TEST_F(ServerRoadTest, MadeUpCommandsAreDroppedWhileNotConnected) {
    state = 6;
    road.zSendMsg("Set Style 12");
    EXPECT_EQ(modChess.gLastCmd, "");
    EXPECT_EQ(road.txtOld, "");
    EXPECT_EQ(road.idleSeconds, -1);
}

TEST_F(ServerRoadTest, MadeUpCommandsPassOverAFaultOfTheSocket) {
    road.hooks.sendData = [](const std::string&) { throw Fault(FaultKind::File, "gone"); };
    EXPECT_NO_THROW(road.zSendMsg("moves 5"));
    EXPECT_EQ(modChess.gLastCmd, "moves 5");
}

TEST_F(ServerRoadTest, TypedCommandsAreEchoedAndKept) {
    road.zSend("finger bob");
    EXPECT_EQ(sent, "finger bob\n");
    EXPECT_EQ(echoed, "finger bob\r\n");
    EXPECT_EQ(road.history.entries[1], "finger bob");
    EXPECT_EQ(modChess.gLastCmd, "finger bob");
    EXPECT_EQ(modChess.gLastTyped, "finger bob");
    EXPECT_EQ(road.txtOld, "finger bob");
    EXPECT_EQ(road.idleSeconds, 0);
}

TEST_F(ServerRoadTest, AtALogOnPromptNothingIsEchoedOrKept) {
    for (std::int16_t prompt : {std::int16_t{1}, std::int16_t{2}}) {
        login = prompt;
        road.zSend("secret");
        EXPECT_EQ(echoed, "");
        EXPECT_EQ(road.history.entries[1], "");
        EXPECT_EQ(road.txtOld, "");
        EXPECT_EQ(modChess.gLastCmd, "secret");
        EXPECT_EQ(modChess.gLastTyped, "secret");
    }
    EXPECT_EQ(sent, "secret\nsecret\n");
}

TEST_F(ServerRoadTest, HeWithATopicOpensHelpAndSendsNothing) {
    road.zSend("he tactics");
    EXPECT_EQ(helps, 1);
    EXPECT_EQ(modChess.gHelpTopic, "tactics");
    EXPECT_EQ(topicShown, "tactics");
    EXPECT_EQ(sent, "");
    EXPECT_EQ(road.idleSeconds, -1);
    EXPECT_EQ(modChess.gLastCmd, "he tactics");
    EXPECT_EQ(road.history.entries[1], "he tactics");
    EXPECT_EQ(echoed, "he tactics\r\n");
}

TEST_F(ServerRoadTest, HiOpensTheHistoryOfTheOwnHandleOrTheNamedOne) {
    road.zSend("hi");
    EXPECT_EQ(modChess.gHelpTopic, "Own");
    EXPECT_EQ(topicShown, "Own");
    road.zSend("HISTORY bob");
    EXPECT_EQ(modChess.gHelpTopic, "bob");
    EXPECT_EQ(histories, 2);
    EXPECT_EQ(sent, "");
}

TEST_F(ServerRoadTest, WordsThatAreNoAbbreviationGoOutAsTheyStand) {
    for (const char* word : {"h", "histor1", "helpme", "help~", "history~"}) road.zSend(word);
    EXPECT_EQ(sent, "h\nhistor1\nhelpme\nhelp~\nhistory~\n");
    EXPECT_EQ(helps + histories, 0);
}

TEST_F(ServerRoadTest, ASendThatFaultsDoesNotEndTheIdleTime) {
    road.hooks.sendData = [](const std::string&) { throw Fault(FaultKind::File, "gone"); };
    road.idleSeconds = 12;
    EXPECT_THROW(road.zSend("who"), Fault);
    EXPECT_THROW(road.sendPassword("secret"), Fault);
    EXPECT_EQ(road.idleSeconds, 12);
}

TEST_F(ServerRoadTest, AnAnsweredPasswordIsForgotten) {
    road.sendPassword("secret");
    EXPECT_EQ(modChess.gLastCmd, "secret") << "it is what was answered to the prompt";
    road.forgetPassword();
    EXPECT_EQ(modChess.gLastCmd, "");
    login = 2;
    road.zSend("secret");
    road.forgetPassword();
    EXPECT_EQ(modChess.gLastCmd + modChess.gLastTyped, "");
}

TEST_F(ServerRoadTest, WhatWasSentSinceThePasswordIsNotForgotten) {
    road.sendPassword("secret");
    road.zSendMsg("Set Style 12");
    road.forgetPassword();
    EXPECT_EQ(modChess.gLastCmd, "Set Style 12");
    road.sendPassword("secret");
    road.forgetPassword();
    modChess.gLastCmd = "Tell bob hi";
    road.forgetPassword();
    EXPECT_EQ(modChess.gLastCmd, "Tell bob hi");
}

TEST_F(ServerRoadTest, HelpOpensWhileNotConnectedButATypedLineFaults) {
    state = 0;
    road.zSend("help");
    EXPECT_EQ(helps, 1);
    EXPECT_THROW(road.zSend("who"), Fault);
}

TEST(ServerRoadUnset, HooksAreHarmlessAndTheSocketCountsAsClosed) {
    modChess = ModChess{};
    Session session{quietSurface()};
    ServerRoad& road = session.road;
    road.zSendMsg("x");
    EXPECT_EQ(modChess.gLastCmd, "");
    road.zSend("help me");
    EXPECT_EQ(modChess.gHelpTopic, "me");
}

TEST_F(ServerRoadTest, IdleSecondsCountTo20AndStartAgainWhileConnectedAndEverySendSetsThemToZero) {
    EXPECT_EQ(road.idleSeconds, -1);
    road.countIdle(true);
    EXPECT_EQ(road.idleSeconds, 0);
    for (int i = 1; i <= 20; ++i) road.countIdle(true);
    EXPECT_EQ(road.idleSeconds, 20);
    road.countIdle(true);
    EXPECT_EQ(road.idleSeconds, 0);
    for (int i = 0; i < 5; ++i) road.countIdle(true);
    road.zSend("who");
    EXPECT_EQ(road.idleSeconds, 0);
    road.countIdle(false);
    EXPECT_EQ(road.idleSeconds, -1);
}
