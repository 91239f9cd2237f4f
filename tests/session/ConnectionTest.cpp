// Server profiles, the caption's states, the tick, the close question and the socket's events.
#include "session/Connection.h"

#include "common/modChess.h"
#include "session/QuietSurface.h"
#include "session/Session.h"
#include "settings/ClientKeys.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

using namespace std::string_view_literals;

namespace {

// A connection whose surroundings write down what reaches them.
class ConnectionTest : public testing::Test {
protected:
    ConnectionTest() {
        modChess = {};
        modChess.ServerIP = DefaultServerIP;
        modChess.ServerPort = FicsPort;
        auto& hooks = connection.hooks;
        hooks.connectTo = [this](const std::string& host, std::int32_t port) {
            log.push_back("connect " + host + ":" + std::to_string(port));
        };
        hooks.closeSocket = [this] {
            log.push_back("close");
            state = 0;
        };
        hooks.socketState = [this] { return state; };
        hooks.setCaption = [this](const std::string& text) { caption = text; };
        hooks.checksChanged = [this] {
            log.push_back("checks");
            ticksShown = {connection.mnuAutoCon, connection.mnuAutoLogon, connection.mnuUseTS};
        };
        hooks.setTickInterval = [this](int ms) { log.push_back("interval " + std::to_string(ms)); };
        hooks.enableCloseTimer = [this](bool on) { log.push_back(on ? "tmrClose on" : "tmrClose off"); };
        hooks.beep = [this] { log.push_back("beep"); };
        hooks.message = [this](const std::string& text) { log.push_back("message " + text); };
        hooks.yesNo = [this](const std::string& text) {
            log.push_back("ask " + text);
            return yes;
        };
        hooks.input = [this](const std::string& prompt, const std::string& title) {
            log.push_back("input " + prompt + "/" + title);
            return answer;
        };
        hooks.endAllGames = [this] { log.push_back("end games"); };
        hooks.unloadSeek = [this] { log.push_back("unload seek"); };
        hooks.clearBoards = [this] { log.push_back("clear boards"); };
        connection.mnuUseTS = false;
    }
    ~ConnectionTest() override { modChess = {}; }

    void fillBridge() {
        connection.bridge.hooks.pump = [this] { log.push_back("pump"); };
        connection.bridge.hooks.wait = [this](double seconds) {
            log.push_back("wait " + std::to_string(seconds).substr(0, 4));
        };
        connection.bridge.hooks.startProgram = [this](const std::vector<std::string>& arguments) {
            log.push_back("start");
            for (const std::string& argument : arguments) log.back() += " " + argument;
        };
    }

    void tickIn(int newState) {
        state = newState;
        connection.tmrTCPTimer();
    }

    using Log = std::vector<std::string>;
    // The entries that begin with `word`.
    Log logged(const char* word) const {
        Log found;
        std::ranges::copy_if(log, std::back_inserter(found),
                             [word](const auto& entry) { return entry.starts_with(word); });
        return found;
    }

    Session session{quietSurface()};
    Connection& connection = session.connection;
    Log log;
    std::vector<bool> ticksShown; // of automatic connection and log-on, and of TimeSeal, as the menu was told last
    std::string caption;
    std::string answer;
    int state = 0;
    bool yes = false;
};

} // namespace

TEST_F(ConnectionTest, UntilATickSeesANewConnectionItsStateIsNoneOfTheSockets) {
    tickIn(7);
    connection.mnuConnectClick(0);
    EXPECT_EQ(connection.SocketState, -1);
}

// Profiles

TEST_F(ConnectionTest, Profiles0And1GoDirectlyToIpAndPortWithoutTimeSeal) {
    modChess.ServerIP = "10.0.0.1";
    modChess.ServerPort = 5001;
    connection.mnuConnectClick(0);
    connection.mnuConnectClick(1);
    EXPECT_EQ(log, (Log{"connect 10.0.0.1:5001", "connect 10.0.0.1:5001"}));
    EXPECT_EQ(connection.ConnectionLabel, "FICS");
}

TEST_F(ConnectionTest, Profile4GoesToTheIccHost) {
    connection.mnuConnectClick(4);
    EXPECT_EQ(log, (Log{"connect chessclub.com:6000"}));
    EXPECT_EQ(connection.ConnectionLabel, "ICC");
}

TEST_F(ConnectionTest, Profile4IsTheSameWithTimeSealChecked) {
    connection.mnuUseTS = true;
    connection.mnuConnectClick(4);
    EXPECT_EQ(log, (Log{"connect chessclub.com:6000"}));
}

TEST_F(ConnectionTest, UnknownProfilesDoNothing) {
    connection.mnuConnectClick(5);
    connection.mnuConnectClick(-1);
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(connection.ConnectionLabel, "");
}

TEST_F(ConnectionTest, ConnectingChangesToTheStartDirectory) {
    const auto before = std::filesystem::current_path();
    connection.StartDirectory = std::filesystem::temp_directory_path().string();
    connection.mnuConnectClick(1);
    EXPECT_EQ(std::filesystem::current_path(), std::filesystem::canonical(connection.StartDirectory));
    std::filesystem::current_path(before);
}

TEST_F(ConnectionTest, AStartDirectoryThatIsGoneDoesNotKeepFromConnecting) {
    connection.StartDirectory = "/no/such/folder";
    connection.mnuConnectClick(1);
    EXPECT_EQ(log.size(), 1U);
}

// The bridge's place

TEST_F(ConnectionTest, AMissingBridgeProgramIsToldAndProfile0GoesDirectlyToIpAndPort) {
    modChess.ServerIP = "10.0.0.1";
    modChess.ServerPort = 5001;
    connection.mnuUseTS = true;
    connection.mnuConnectClick(0);
    EXPECT_EQ(log,
              (Log{"message Timeseal.exe not found. TimeSeal is not activated.", "checks", "connect 10.0.0.1:5001"}));
    EXPECT_FALSE(connection.mnuUseTS);
    EXPECT_FALSE(ticksShown.at(2));
    EXPECT_EQ(connection.ConnectionLabel, "FICS");
}

TEST_F(ConnectionTest, AMissingBridgeProgramSendsProfile1ToTheFicsHost) {
    modChess.ServerIP = "10.0.0.1";
    connection.mnuUseTS = true;
    connection.mnuConnectClick(1);
    EXPECT_EQ(log.back(), "connect freechess.org:5000");
    EXPECT_EQ(connection.ConnectionLabel, "FICS");
    EXPECT_FALSE(connection.mnuUseTS);
}

TEST_F(ConnectionTest, Profile3TakesTheBridgeEvenWithTimeSealUnchecked) {
    connection.mnuConnectClick(3);
    EXPECT_EQ(log, (Log{"message Timeseal.exe not found. TimeSeal is not activated.", "checks",
                        "connect 167.114.65.195:5000"}));
    EXPECT_EQ(connection.ConnectionLabel, "FICS");
}

TEST_F(ConnectionTest, TheOldBridgeIsEndedAndGivenTimeBeforeTheProgramIsLookedFor) {
    fillBridge();
    connection.bridge.hooks.programFound = [this] {
        log.push_back("look");
        return false;
    };
    connection.mnuConnectClick(3);
    EXPECT_EQ((Log{log.begin(), log.begin() + 3}), (Log{"pump", "wait 0.55", "look"}));
    EXPECT_EQ(logged("start"), Log{});
}

TEST_F(ConnectionTest, AFoundBridgeIsStartedAndConnectedToOnThisMachine) {
    fillBridge();
    connection.bridge.hooks.programFound = [] { return true; };
    connection.mnuUseTS = true;
    connection.mnuConnectClick(1);
    EXPECT_EQ(log,
              (Log{"pump", "wait 0.55", "start freechess.org 5000 -p 6000", "wait 1.10", "connect localhost:6000"}));
    EXPECT_EQ(connection.ConnectionLabel, "Timeseal");
    EXPECT_EQ(connection.LabelAfterBridge, "FICS");
    EXPECT_TRUE(connection.mnuUseTS);
}

TEST_F(ConnectionTest, NoConnectionBeginsWhileTheProgramCloses) {
    modChess.AppClosing = true;
    answer = "h,1";
    for (std::int16_t index = 0; index < 5; ++index) connection.mnuConnectClick(index);
    EXPECT_TRUE(log.empty());
}

// The waits of a bridge let the user go on asking.

TEST_F(ConnectionTest, TheLatestWishOfTheUserIsTheOneThatCountsWhicheverWaitItComesIn) {
    const std::map<std::string, std::pair<std::function<void()>, Log>> wishes{
        {"bridge", {[this] { connection.mnuConnectClick(1); }, {"connect localhost:6000"}}},
        {"direct", {[this] { connection.mnuConnectClick(4); }, {"connect chessclub.com:6000"}}},
        {"none", {[this] { connection.mnuCloseClick(); }, {}}},
        {"none and then direct",
         {[this] {
              connection.mnuCloseClick();
              connection.mnuConnectClick(4);
          },
          {"connect chessclub.com:6000"}}},
        {"end of the program", {[] { modChess.AppClosing = true; }, {}}},
    };
    connection.mnuUseTS = true;
    connection.bridge.hooks.programFound = [] { return true; };
    for (const auto& [name, wish] : wishes) {
        for (const char* during : {"pump", "wait 0.55", "wait 1.10"}) {
            modChess.AppClosing = false;
            log.clear();
            bool wished = false;
            fillBridge();
            const auto interrupt = [&] {
                if (log.back() == during && !std::exchange(wished, true)) wish.first();
            };
            connection.bridge.hooks.pump = [&, pump = connection.bridge.hooks.pump] {
                pump();
                interrupt();
            };
            connection.bridge.hooks.wait = [&, wait = connection.bridge.hooks.wait](double seconds) {
                wait(seconds);
                interrupt();
            };
            connection.mnuConnectClick(3);
            EXPECT_EQ(logged("connect"), wish.second) << name << " in " << during;
            Log starts; // what had been started before the wish stays
            if (during == "wait 1.10"sv) starts.emplace_back("start 167.114.65.195 5000 -p 6000");
            if (name == "bridge") starts.emplace_back("start freechess.org 5000 -p 6000");
            EXPECT_EQ(logged("start"), starts) << name << " in " << during;
        }
    }
}

TEST_F(ConnectionTest, WhatIsAskedForWhileAMissingBridgeIsToldStands) {
    connection.mnuUseTS = true;
    connection.hooks.message = [this](const std::string&) {
        EXPECT_TRUE(connection.mnuUseTS) << "it is unchecked behind the message";
        connection.mnuConnectClick(4);
    };
    connection.mnuConnectClick(3);
    EXPECT_EQ(logged("connect"), Log{"connect chessclub.com:6000"});
    EXPECT_FALSE(connection.mnuUseTS);
    connection.hooks.message = [](const std::string&) { modChess.AppClosing = true; };
    connection.mnuConnectClick(3);
    EXPECT_EQ(logged("connect").size(), 1U);
}

TEST_F(ConnectionTest, AnAlternateServerThatIsNotNamedDuringTheWaitChangesNothing) {
    fillBridge();
    connection.bridge.hooks.programFound = [] { return true; };
    connection.bridge.hooks.wait = [this](double seconds) {
        if (seconds > 1) connection.mnuConnectClick(2);
    };
    connection.mnuConnectClick(3);
    EXPECT_EQ(log.back(), "connect localhost:6000");
}

TEST_F(ConnectionTest, TheFirstTextThroughTheBridgeNamesTheConnection) {
    connection.ConnectionLabel = "Timeseal";
    connection.LabelAfterBridge = "FICS";
    connection.textArrived();
    EXPECT_EQ(connection.ConnectionLabel, "FICS");
    EXPECT_EQ(caption, "Connected to FICS");
    caption.clear();
    connection.textArrived();
    EXPECT_EQ(caption, "");
}

// "Other"

TEST_F(ConnectionTest, OtherAsksForHostAndPort) {
    answer = "host,5001";
    connection.mnuConnectClick(2);
    EXPECT_EQ(log, (Log{"input Enter IP, Port/Alternate Server", "connect host:5001"}));
    EXPECT_EQ(connection.ConnectionLabel, "host Port 5001");
}

TEST_F(ConnectionTest, OtherWithAnEmptyAnswerOrOneThatDoesNotFitDoesNothing) {
    for (const char* text : {"", "host,", ",5001", "host", ",", ",host,5001"}) {
        answer = text;
        connection.mnuConnectClick(2);
        EXPECT_EQ(log.back(), "input Enter IP, Port/Alternate Server") << text;
    }
    EXPECT_EQ(connection.ConnectionLabel, "");
}

TEST_F(ConnectionTest, OtherDoesNotTrimTheHostAndCutsAtTheFirstComma) {
    answer = " a ,b,5";
    connection.mnuConnectClick(2);
    EXPECT_EQ(log.back(), "connect  a :0");
    answer = "h, 23 ";
    connection.mnuConnectClick(2);
    EXPECT_EQ(log.back(), "connect h:23");
}

TEST_F(ConnectionTest, OtherWithANumberPastEveryFieldIsHandedOnAsNoPort) {
    answer = "h,1e300";
    connection.mnuConnectClick(2);
    EXPECT_EQ(log.back(), "connect h:-1");
    for (const auto& [port, handedOn] : std::map<std::string, std::string>{
             {"70000", "70000"}, {"2147483647", "2147483647"}, {"2147483648", "-1"}, {"-2147483647", "-2147483647"}}) {
        answer = "h," + port;
        connection.mnuConnectClick(2);
        EXPECT_EQ(log.back(), "connect h:" + handedOn);
    }
}

TEST_F(ConnectionTest, LastServerStaysAsLoadedHoweverTheUserConnects) {
    connection.LastServer = 3;
    answer = "h,1";
    for (std::int16_t index = 0; index < 5; ++index) connection.mnuConnectClick(index);
    EXPECT_EQ(connection.LastServer, 3);
}

// The tick

TEST_F(ConnectionTest, TheFirstTickConnectsToLastServerIfAutoConnectIsChecked) {
    connection.mnuAutoCon = true;
    connection.tmrTCPTimer();
    EXPECT_EQ(log, (Log{"connect 167.114.65.195:5000"}));
    EXPECT_TRUE(connection.FirstTickDone);
    connection.tmrTCPTimer();
    EXPECT_EQ(log.size(), 1U) << "only the first tick connects";
}

TEST_F(ConnectionTest, TheFirstTickTakesTheBridgeIfTimeSealIsChecked) {
    fillBridge();
    connection.bridge.hooks.programFound = [] { return true; };
    connection.mnuAutoCon = connection.mnuUseTS = true;
    connection.tmrTCPTimer();
    EXPECT_EQ(log.back(), "connect localhost:6000");
}

TEST_F(ConnectionTest, WithoutAutoConnectTheFirstTickDoesNotConnect) {
    connection.tmrTCPTimer();
    EXPECT_TRUE(log.empty());
    EXPECT_TRUE(connection.FirstTickDone);
}

TEST_F(ConnectionTest, ATickWithinTheFirstTicksWaitDoesNotConnectTwice) {
    fillBridge();
    connection.mnuAutoCon = connection.mnuUseTS = true;
    connection.bridge.hooks.wait = [this](double) { connection.tmrTCPTimer(); };
    connection.tmrTCPTimer();
    EXPECT_EQ(std::count(log.begin(), log.end(), "connect 167.114.65.195:5000"), 1);
}

TEST_F(ConnectionTest, TheCaptionTellsEveryState) {
    connection.ConnectionLabel = "FICS";
    const std::vector<std::string> texts{"   Closed",
                                         "   Open",
                                         "Listening",
                                         "   Connection pending",
                                         "   Resolving host",
                                         "   Host resolved",
                                         "   Connecting",
                                         "   Connected to FICS",
                                         "   Peer is closing the connection",
                                         "   Error"};
    for (int number = 9; number >= 0; --number) {
        tickIn(number);
        EXPECT_EQ(caption, "Brightrank - Client  " + texts[static_cast<std::size_t>(number)]);
        EXPECT_EQ(connection.SocketState, number);
    }
    EXPECT_EQ(stateText(10, ""), "   Error");
    EXPECT_EQ(stateText(-1, ""), "   Error");
}

TEST_F(ConnectionTest, AStateThatDidNotChangeLeavesTheCaption) {
    tickIn(7);
    caption = "untouched";
    tickIn(7);
    EXPECT_EQ(caption, "untouched");
}

TEST_F(ConnectionTest, State0BeepsClearsMyHandleEndsGamesAndRemovesTheSeekGraph) {
    tickIn(7);
    modChess.MyHandle = "Anders";
    tickIn(0);
    EXPECT_EQ(log, (Log{"beep", "end games", "unload seek"})) << "no question, no tmrClose";
    EXPECT_EQ(modChess.MyHandle, "");
    tickIn(0);
    EXPECT_EQ(log.size(), 3U) << "once only";
}

TEST_F(ConnectionTest, State0ClearsMyHandleBeforeTheGamesEnd) {
    std::string seen = "not called";
    connection.hooks.endAllGames = [&seen] { seen = modChess.MyHandle; };
    tickIn(7);
    modChess.MyHandle = "Anders";
    tickIn(0);
    EXPECT_EQ(seen, "");
}

TEST_F(ConnectionTest, AServerChosenWhileAnotherIsConnectedRunsWhatState0RunsFirst) {
    tickIn(7);
    modChess.MyHandle = "Anders";
    log.clear();
    connection.mnuConnectClick(4);
    EXPECT_EQ(log, (Log{"beep", "end games", "unload seek", "connect chessclub.com:6000"}));
    EXPECT_EQ(modChess.MyHandle, "");
    tickIn(7);
    EXPECT_EQ(caption, "Brightrank - Client     Connected to ICC");
}

TEST_F(ConnectionTest, AServerChosenWhileAnotherIsConnectedShowsAsClosedIfItFailsWithinTheTick) {
    connection.ConnectionLabel = "FICS";
    tickIn(7);
    connection.mnuConnectClick(4);
    tickIn(0);
    EXPECT_EQ(caption, "Brightrank - Client     Closed");
}

TEST_F(ConnectionTest, TheSameForAConnectionThatNoTickHasSeenYet) {
    state = 7;
    connection.mnuConnectClick(4);
    EXPECT_EQ(log, (Log{"beep", "end games", "unload seek", "connect chessclub.com:6000"}));
}

TEST_F(ConnectionTest, TheSameForALossThatNoTickHasSeenYet) {
    tickIn(7);
    state = 0;
    log.clear();
    connection.mnuConnectClick(4);
    EXPECT_EQ(log, (Log{"beep", "end games", "unload seek", "connect chessclub.com:6000"}));
}

TEST_F(ConnectionTest, AServerChosenWhileClosedIsOnlyConnectedTo) {
    connection.mnuConnectClick(4);
    EXPECT_EQ(log, Log{"connect chessclub.com:6000"});
}

TEST_F(ConnectionTest, State0AtTheStartCleansNothing) {
    tickIn(0);
    EXPECT_TRUE(log.empty());
}

TEST_F(ConnectionTest, State0StartsTmrCloseOnlyWithClosedByUserFalse) {
    connection.ClosedByUser = false;
    tickIn(7);
    tickIn(0);
    EXPECT_EQ(log.back(), "tmrClose on");
}

TEST_F(ConnectionTest, ATickWithoutAChangeCountsTheIdleSecondsOfTheRoad) {
    connection.hooks.countIdle = [this](bool connected) { log.push_back(connected ? "idle" : "not connected"); };
    tickIn(0);
    tickIn(7);
    tickIn(7);
    EXPECT_EQ(log, (Log{"not connected", "idle"}));
}

TEST_F(ConnectionTest, TheTicksComeFiveTimesASecondWhileTheDiagnosticsPanelIsUp) {
    modChess.gTestOpen = true;
    tickIn(0);
    EXPECT_EQ(log, (Log{"interval 200"}));
    modChess.gTestOpen = false;
    tickIn(0);
    EXPECT_EQ(log.back(), "interval 1000");
}

// tmrClose

TEST_F(ConnectionTest, TmrCloseBeepsThreeTimesThenClearsTheBoardsAndAsks) {
    connection.tmrCloseTimer();
    connection.tmrCloseTimer();
    EXPECT_EQ(log, (Log{"beep", "beep"}));
    EXPECT_EQ(connection.CloseTicks, 2);
    connection.tmrCloseTimer();
    EXPECT_EQ(log, (Log{"beep", "beep", "beep", "tmrClose off", "clear boards",
                        "ask Connection to ICS Closed.  Reconnect?"}));
    EXPECT_EQ(connection.CloseTicks, 0);
}

TEST_F(ConnectionTest, TmrCloseReconnectsProfile0OnYes) {
    yes = connection.mnuUseTS = true;
    for (int i = 0; i < 3; ++i) connection.tmrCloseTimer();
    EXPECT_EQ(log.back(), "connect 167.114.65.195:5000");
}

TEST_F(ConnectionTest, TmrCloseDoesNotAskForAnotherLastServer) {
    connection.LastServer = 1;
    for (int i = 0; i < 3; ++i) connection.tmrCloseTimer();
    EXPECT_EQ(log.back(), "clear boards");
}

// Socket events

TEST_F(ConnectionTest, ACloseByTheServerClosesTheSocket) {
    connection.socketClosed();
    EXPECT_EQ(log, (Log{"close"}));
}

TEST_F(ConnectionTest, ErrorsOfReachingTheServerShowTheTwoLineMessage) {
    for (const char* text : {"Authoritative Answer: Host Not Found", "CONNECTION IS forcefully rejected"}) {
        log.clear();
        connection.socketError(text);
        EXPECT_EQ(log, (Log{"message Server not found\nCheck Internet connection", "close"})) << text;
    }
}

TEST_F(ConnectionTest, AnyOtherErrorIsShownAsItIs) {
    connection.socketError("Port 70000 is outside 0 to 65535");
    EXPECT_EQ(log, (Log{"message Port 70000 is outside 0 to 65535", "close"}));
}

// Menu items

TEST_F(ConnectionTest, MnuCloseClosesTheSocketAndTheBridge) {
    fillBridge();
    connection.ClosedByUser = false;
    connection.mnuCloseClick();
    EXPECT_EQ(log, (Log{"close", "pump"}));
    EXPECT_TRUE(connection.ClosedByUser);
}

TEST_F(ConnectionTest, MnuCloseIsTheUsersWishBeforeTheBridgesEndRunsTheTicks) {
    connection.ClosedByUser = false;
    tickIn(7);
    connection.bridge.hooks.pump = [this] { connection.tmrTCPTimer(); };
    connection.mnuCloseClick();
    EXPECT_TRUE(logged("end games") == Log{"end games"});
    EXPECT_TRUE(logged("tmrClose").empty());
}

TEST_F(ConnectionTest, CheckingAutoConnectConnectsOnlyInState0) {
    state = 7;
    connection.mnuAutoConClick();
    EXPECT_EQ(log, (Log{"checks"}));
    EXPECT_TRUE(connection.mnuAutoCon);
    state = 0;
    connection.mnuAutoConClick();
    EXPECT_FALSE(connection.mnuAutoCon);
    EXPECT_EQ(log, (Log{"checks", "checks"})) << "unchecking never connects";
    connection.mnuAutoConClick();
    EXPECT_EQ(log.back(), "connect 167.114.65.195:5000");
}

TEST_F(ConnectionTest, AMarkIsSetBeforeItIsShown) {
    state = 7;
    connection.mnuAutoLogonClick();
    EXPECT_EQ(ticksShown, (std::vector{false, true, false}));
    connection.mnuAutoConClick();
    EXPECT_EQ(ticksShown, (std::vector{true, true, false}));
    connection.mnuUseTSClick();
    EXPECT_EQ(ticksShown, (std::vector{true, true, true}));
}

TEST_F(ConnectionTest, AutoLogonAndUseTimeSealToggleTheirMarks) {
    connection.mnuAutoLogonClick();
    connection.mnuUseTSClick();
    EXPECT_TRUE(connection.mnuAutoLogon);
    EXPECT_TRUE(connection.mnuUseTS);
    connection.mnuAutoLogonClick();
    connection.mnuUseTSClick();
    EXPECT_FALSE(connection.mnuAutoLogon);
    EXPECT_FALSE(connection.mnuUseTS);
    EXPECT_EQ(log, (Log{"checks", "checks", "checks", "checks"}));
}
