// The relay as a process: how it is found, started and ended, and a connection through it.
#include "session/BridgeRig.h"
#include "session/RunningProgram.h"

#include "platform/Clock.h"
#include "platform/MessageLoop.h"
#include "session/TimesealBridge.h"

#include <QElapsedTimer>

#include <gmock/gmock.h>

#include <csignal>
#include <sys/stat.h>

using testing::ElementsAre;

namespace {

constexpr const char* NotFound = "Timeseal.exe not found. TimeSeal is not activated.";
constexpr const char* NotReached = "Server not found\nCheck Internet connection";

class Bridge : public BridgeRig {
protected:
    ~Bridge() override { wallClock = Clock{}; }

    // From now on a turn of the message loop takes a second.
    void hurry() {
        wallClock.secondsOfDay = [this] { return clock; };
        client->session.connection.bridge.hooks.pump = [this] {
            clock += 1;
            zWait(0.01);
        };
    }
    bool relayRuns() const { return client->session.connection.bridge.hooks.zTimeSealHandle() != 0; }
    static bool ends(std::int32_t process) {
        return waitUntil([process] { return ::kill(process, 0) != 0; });
    }

    double clock = 1000;
};

} // namespace

// Finding and starting

TEST_F(Bridge, AMissingProgramIsToldAndTheConnectionIsDirect) {
    startWithBridge();
    client->session.connection.mnuConnectClick(0);
    EXPECT_THAT(messages, ElementsAre(NotFound));
    EXPECT_FALSE(client->menus.mnuUseTS->isChecked());
    EXPECT_EQ(client->session.connection.ConnectionLabel, "FICS");
    EXPECT_TRUE(waitUntil([this] { return socketState() == 7; }));
}

TEST_F(Bridge, AFileThatMayNotBeExecutedOrAFolderIsNoProgram) {
    EXPECT_FALSE(TimesealBridge::programFound());
    QFile file(QStringLiteral("timeseal.exe"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    EXPECT_FALSE(TimesealBridge::programFound());
    file.remove();
    QDir().mkdir(QStringLiteral("timeseal.exe"));
    EXPECT_FALSE(TimesealBridge::programFound());
    QDir().rmdir(QStringLiteral("timeseal.exe"));
    relay.put();
    EXPECT_TRUE(TimesealBridge::programFound());
}

TEST_F(Bridge, OneThatAnotherUserCouldHavePutThereIsNotStartedAndStandardErrorSaysWhy) {
    relay.put();
    startWithBridge();
    ASSERT_EQ(::chmod(".", 0777), 0);
    testing::internal::CaptureStderr();
    client->session.connection.mnuConnectClick(0);
    const std::string told = testing::internal::GetCapturedStderr();
    EXPECT_EQ(told, "brightrank: timeseal.exe is not started: " + QDir::currentPath().toStdString() +
                        " can be written by everybody\n");
    EXPECT_THAT(messages, ElementsAre(NotFound));
    EXPECT_EQ(client->session.connection.ConnectionLabel, "FICS");
    EXPECT_TRUE(waitUntil([this] { return socketState() == 7; }));
    EXPECT_TRUE(relay.log().isEmpty()) << "it did not run";
}

TEST_F(Bridge, EachArgumentReachesTheProgramAsOne) {
    relay.put();
    relay.mode("dies");
    TimesealBridge bridge;
    bridge.start({"a b; touch x \"c' $(d) `e` \\ *", "5000", "-p", "6000"});
    EXPECT_TRUE(waitUntil([&] { return bridge.zTimeSealHandle() == 0; }));
    EXPECT_EQ(relay.log().mid(0, 4).join(u'|'), QStringLiteral("a b; touch x \"c' $(d) `e` \\ *|5000|-p|6000"));
}

TEST_F(Bridge, AProgramThatCannotBeStartedIsNoFault) {
    TimesealBridge bridge;
    bridge.start({"host", "5000", "-p", "6000"});
    EXPECT_TRUE(waitUntil([&] { return bridge.zTimeSealHandle() == 0; }));
}

// The connection

TEST_F(Bridge, TheConnectionGoesThroughTheRelayAndTheFirstTextNamesIt) {
    ASSERT_TRUE(connectedThroughRelay());
    client->session.connection.tmrTCPTimer();
    EXPECT_EQ(title(), "Brightrank - Client     Connected to Timeseal");
    loopback.send("\n\rWelcome\n\rfics% ");
    EXPECT_TRUE(consoleHas("Welcome"));
    EXPECT_EQ(title(), "Connected to FICS");
    type("hello");
    EXPECT_TRUE(serverGot("hello\n"));
    EXPECT_EQ(relay.log().mid(0, 4).join(u' ').toStdString(),
              "127.0.0.1 " + std::to_string(loopback.port()) + " -p 6000");
}

TEST_F(Bridge, TheRealWaitsLetTheRelayOpenItsPort) {
    relay.put();
    startWithBridge();
    client->session.connection.bridge.hooks.wait = [](double seconds) { zWait(seconds); };
    QElapsedTimer since;
    since.start();
    client->session.connection.mnuConnectClick(0);
    EXPECT_GE(since.elapsed(), 1650);
    EXPECT_TRUE(waitUntil([this] { return loopback.hasClient() && socketState() == 7; }));
    EXPECT_TRUE(messages.empty());
}

TEST_F(Bridge, ARelayThatDiesAtOnceFailsTheConnection) {
    relay.put();
    relay.mode("dies");
    startWithBridge();
    client->session.connection.mnuConnectClick(0);
    ASSERT_TRUE(waitUntil([this] { return !messages.empty(); }));
    EXPECT_THAT(messages, ElementsAre(NotReached));
    EXPECT_EQ(socketState(), 0);
    EXPECT_FALSE(relayRuns());
    EXPECT_TRUE(client->menus.mnuUseTS->isChecked());
}

TEST_F(Bridge, ARelayThatNeverOpensItsPortFailsTheConnectionAndIsAskedToEndAtTheNext) {
    relay.put();
    relay.mode("deaf");
    startWithBridge();
    client->session.connection.mnuConnectClick(0);
    ASSERT_TRUE(waitUntil([this] { return !messages.empty(); }));
    EXPECT_THAT(messages, ElementsAre(NotReached));
    EXPECT_TRUE(relayRuns());
    hurry();
    relay.mode("relay");
    client->session.connection.mnuConnectClick(0);
    EXPECT_TRUE(relay.notes("asked to end"));
    EXPECT_TRUE(waitUntil([this] { return loopback.hasClient() && socketState() == 7; }));
}

// The end

TEST_F(Bridge, ARelayThatEndsWithItsConnectionIsNotAsked) {
    ASSERT_TRUE(connectedThroughRelay());
    client->menus.mnuClose->trigger();
    EXPECT_FALSE(relayRuns());
    EXPECT_FALSE(relay.hasNoted("asked to end"));
    EXPECT_EQ(title(), "Brightrank - Client");
}

TEST_F(Bridge, ARelayThatStaysIsGivenSevenSecondsAndThenAskedOnce) {
    relay.mode("stays");
    ASSERT_TRUE(connectedThroughRelay());
    std::string during;
    QTimer::singleShot(3000, client.get(), [&] { during = title() + (relayRuns() ? " runs" : " ended"); });
    QElapsedTimer since;
    since.start();
    client->session.connection.mnuCloseClick();
    EXPECT_GE(since.elapsed(), 6990);
    EXPECT_EQ(during.substr(during.size() - 4), "runs") << "the message loop runs meanwhile";
    EXPECT_TRUE(waitUntil([this] { return !relayRuns(); }));
    EXPECT_EQ(relay.log().count(QStringLiteral("asked to end")), 1);
}

TEST_F(Bridge, CloseDownAsksTheRelayAfterTheSettingsAreSaved) {
    relay.mode("stays");
    ASSERT_TRUE(connectedThroughRelay());
    const std::int32_t process = client->session.connection.bridge.hooks.zTimeSealHandle();
    hurry();
    std::string savedBefore;
    client->session.connection.bridge.hooks.requestEnd =
        [this, &savedBefore, real = client->session.connection.bridge.hooks.requestEnd](std::int32_t handle) {
            savedBefore = stored("Client", "Registry_OK");
            real(handle);
        };
    client->close();
    EXPECT_EQ(savedBefore, "Yes");
    EXPECT_TRUE(ends(process));
}

TEST_F(Bridge, AProgramThatIsClosedWhileItWaitsForThePortAsksTheRelayAndConnectsNoMore) {
    relay.put();
    relay.mode("stays");
    startWithBridge();
    hurry();
    std::int32_t process = 0;
    client->session.connection.bridge.hooks.wait = [&](double seconds) {
        if (seconds < 1) return;
        EXPECT_TRUE(relay.notes("ready"));
        process = client->session.connection.bridge.hooks.zTimeSealHandle();
        client->close();
    };
    client->session.connection.mnuConnectClick(0);
    EXPECT_NE(process, 0);
    EXPECT_TRUE(ends(process));
    EXPECT_EQ(socketState(), 0);
    EXPECT_TRUE(messages.empty());
}

TEST_F(Bridge, OfTwoRelaysTheYoungerIsAskedForTheOlderHasBeenBefore) {
    relay.put();
    relay.mode("stubborn");
    testing::internal::CaptureStderr();
    {
        TimesealBridge bridge;
        bridge.start({"127.0.0.1", "1", "-p", "6000"});
        ASSERT_TRUE(relay.notes("ready"));
        const std::int32_t older = bridge.zTimeSealHandle();
        bridge.requestEnd(older);
        ASSERT_TRUE(relay.notes("asked to end"));
        relay.mode("deaf");
        bridge.start({"127.0.0.1", "1", "-p", "6000"});
        const std::int32_t younger = bridge.zTimeSealHandle();
        EXPECT_NE(younger, older);
        bridge.requestEnd(younger);
        EXPECT_TRUE(waitUntil([&] { return bridge.zTimeSealHandle() == older; }));
        EXPECT_TRUE(ends(younger));
    }
    testing::internal::GetCapturedStderr(); // the older one is stopped
}

TEST_F(Bridge, ARelayThatDoesNotEndWhenAskedDoesNotOutliveTheBridge) {
    relay.put();
    relay.mode("stubborn");
    std::int32_t process = 0;
    testing::internal::CaptureStderr();
    {
        TimesealBridge bridge;
        bridge.start({"127.0.0.1", "1", "-p", "6000"});
        ASSERT_TRUE(relay.notes("ready"));
        process = bridge.zTimeSealHandle();
        bridge.requestEnd(process);
        ASSERT_TRUE(relay.notes("asked to end"));
        EXPECT_EQ(bridge.zTimeSealHandle(), process);
        bridge.requestEnd(process);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "brightrank: timeseal.exe (process " + std::to_string(process) +
                                                          ") did not end when asked and was stopped\n");
    EXPECT_TRUE(ends(process));
    EXPECT_EQ(relay.log().count(QStringLiteral("asked to end")), 1);
}

TEST_F(Bridge, ARequestToAnotherProcessIsIgnored) {
    relay.put();
    TimesealBridge bridge;
    bridge.start({"127.0.0.1", "1", "-p", "6000"});
    ASSERT_TRUE(relay.notes("ready"));
    bridge.requestEnd(bridge.zTimeSealHandle() + 1);
    runFor(100);
    EXPECT_NE(bridge.zTimeSealHandle(), 0);
}

// The program as a process: whatever ends it, its relay ends too.

namespace {

struct BridgeOfAProgram : testing::Test {
    RunningProgram program;
    RelayFolder relay{program.process.workingDirectory()};

    // The relay heeds no request.
    void startThroughRelay() {
        relay.put();
        QProcessEnvironment surroundings = program.process.processEnvironment();
        surroundings.insert(QStringLiteral("RELAY_MODE"), QStringLiteral("stubborn"));
        program.process.setProcessEnvironment(surroundings);
        std::string settings = program.connectingSettings();
        const std::string direct = "Use_Timeseal=False";
        program.writeSettings(settings.replace(settings.find(direct), direct.size(), "Use_Timeseal=True"));
        ASSERT_TRUE(program.start());
        ASSERT_TRUE(relayRuns());
    }
    // A process that has ended may wait for ever for somebody to ask how.
    bool relayRuns() const {
        const QString process = relay.log().filter(QStringLiteral("process ")).value(0).section(u' ', 1);
        QFile status(QStringLiteral("/proc/%1/stat").arg(process));
        if (!status.open(QIODevice::ReadOnly)) return false;
        return !status.readAll().contains(") Z ");
    }
    bool relayEnds() const {
        return waitUntil([this] { return !relayRuns(); });
    }
};

} // namespace

TEST_F(BridgeOfAProgram, EndsWhenTheProgramIsKilledEvenIfItHeedsNoRequest) {
    startThroughRelay();
    program.signal(SIGKILL);
    EXPECT_TRUE(relayEnds());
}

TEST_F(BridgeOfAProgram, EndsWhenTheProgramEndsByAFaultEvenIfItHeedsNoRequest) {
    startThroughRelay();
    std::string tooManyLines;
    for (int i = 0; i < 1002; ++i) tooManyLines += "a\n";
    program.server.sendLater(tooManyLines + "\r");
    ASSERT_TRUE(program.ended());
    EXPECT_EQ(program.process.exitCode(), 1);
    EXPECT_TRUE(relayEnds());
}
