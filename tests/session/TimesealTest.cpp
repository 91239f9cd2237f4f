// How a running relay is given time and then asked to end: the caption, the seven seconds, the one request.
#include "session/Connection.h"

#include "common/modChess.h"
#include "platform/Clock.h"
#include "session/QuietSurface.h"
#include "session/Session.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using testing::ElementsAre;

namespace {

constexpr const char* Closing = "caption Brightrank - Client  Closing Timeseal";
constexpr const char* Closed = "caption Brightrank - Client";

// Each turn of the message loop takes half a second.
struct TimesealTest : testing::Test {
    Session session{quietSurface()};
    Connection& connection = session.connection;
    std::vector<std::string> log;
    double clock = 1000;
    int turns = 0;
    std::int32_t handle = 0;
    int endsAtTurn = 1000;

    TimesealTest() {
        modChess = {};
        wallClock.secondsOfDay = [this] { return clock; };
        auto& hooks = connection.bridge.hooks;
        hooks.setCaption = [this](const std::string& caption) { log.push_back("caption " + caption); };
        hooks.zTimeSealHandle = [this] { return turns < endsAtTurn ? handle : 0; };
        hooks.pump = [this] {
            ++turns;
            clock += 0.5;
            if (clock >= 86400) clock -= 86400;
        };
        hooks.requestEnd = [this](std::int32_t asked) { log.push_back("close " + std::to_string(asked)); };
        connection.hooks.closeSocket = [this] { log.emplace_back("close socket"); };
    }
    ~TimesealTest() override { wallClock = Clock{}; }
};

} // namespace

TEST_F(TimesealTest, WithoutABridgeTheFirstPassLeaves) {
    connection.bridge.zTerminateTimeSeal();
    EXPECT_EQ(turns, 1);
    EXPECT_THAT(log, ElementsAre(Closing, Closed));
}

TEST_F(TimesealTest, ABridgeThatEndsByItselfIsNotAsked) {
    handle = 4711;
    endsAtTurn = 5;
    connection.bridge.zTerminateTimeSeal();
    EXPECT_EQ(turns, 6);
    EXPECT_THAT(log, ElementsAre(Closing, Closed));
}

TEST_F(TimesealTest, ABridgeThatStaysIsAskedOnceAfterSevenSeconds) {
    handle = 4711;
    connection.bridge.zTerminateTimeSeal();
    EXPECT_EQ(clock, 1007);
    EXPECT_THAT(log, ElementsAre(Closing, Closed, "close 4711"));
}

TEST_F(TimesealTest, AClockThatStandsStillIsNoMidnight) {
    handle = 4711;
    endsAtTurn = 3;
    connection.bridge.hooks.pump = [this] { ++turns; };
    connection.bridge.zTerminateTimeSeal();
    EXPECT_THAT(log, ElementsAre(Closing, Closed)) << "it has ended by itself";
}

TEST_F(TimesealTest, MidnightEndsTheWait) {
    handle = 4711;
    clock = 86399;
    connection.bridge.zTerminateTimeSeal();
    EXPECT_EQ(turns, 2);
    EXPECT_THAT(log, ElementsAre(Closing, Closed, "close 4711"));
}

TEST_F(TimesealTest, TheLatestHandleIsTheOneThatIsAsked) {
    handle = 4711;
    connection.bridge.hooks.zTimeSealHandle = [this] { return turns < 3 ? 4711 : 4712; };
    connection.bridge.zTerminateTimeSeal();
    EXPECT_EQ(log.back(), "close 4712");
}

// The user closes the connection and asks for the next one while the old bridge still ends.
TEST_F(TimesealTest, ABridgeThatIsStartedDuringTheWaitIsNotAsked) {
    handle = 4711;
    auto& hooks = connection.bridge.hooks;
    hooks.programFound = [] { return true; };
    hooks.startProgram = [this](const std::vector<std::string>&) {
        log.emplace_back("start");
        handle = 4712;
    };
    connection.hooks.connectTo = [this](const std::string&, std::int32_t) { log.emplace_back("connect"); };
    hooks.pump = [this, turn = hooks.pump] {
        turn();
        if (turns != 2) return;
        handle = 0; // it has ended by itself
        connection.mnuConnectClick(3);
    };
    connection.mnuCloseClick();
    EXPECT_THAT(log, ElementsAre("close socket", Closing, Closing, Closed, "start", "connect"));
}

TEST_F(TimesealTest, ADirectConnectionDuringTheWaitDoesNotSpareTheOldBridge) {
    handle = 4711;
    connection.bridge.hooks.pump = [this, turn = connection.bridge.hooks.pump] {
        turn();
        if (turns == 2) connection.mnuConnectClick(4);
    };
    connection.mnuCloseClick();
    EXPECT_EQ(log.back(), "close 4711");
}

TEST_F(TimesealTest, ClosingTheConnectionClosesTheSocketFirst) {
    handle = 4711;
    endsAtTurn = 1;
    connection.mnuCloseClick();
    EXPECT_THAT(log, ElementsAre("close socket", Closing, Closed));
}

TEST_F(TimesealTest, AnOldBridgeIsAskedBeforeTheProgramIsLookedFor) {
    handle = 4711;
    connection.bridge.hooks.programFound = [this] {
        log.emplace_back("look");
        return false;
    };
    connection.mnuConnectClick(3);
    EXPECT_THAT(log, ElementsAre(Closing, Closed, "close 4711", "look"));
}

TEST_F(TimesealTest, AHostOfAnyTextIsOneArgument) {
    std::vector<std::string> given;
    connection.bridge.hooks.programFound = [] { return true; };
    connection.bridge.hooks.startProgram = [&](const std::vector<std::string>& arguments) { given = arguments; };
    modChess.ServerPort = 70000;
    for (const std::string host : {"10.0.0.1", "a b; c\"d' $(e) \\", ""}) {
        modChess.ServerIP = host;
        connection.mnuConnectClick(3);
        EXPECT_THAT(given, ElementsAre(host, "70000", "-p", "6000"));
    }
}
