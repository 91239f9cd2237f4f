// What the socket makes of a line that dies: in silence, by a reset, in the middle of a text.
#include "platform/Clock.h"
#include "platform/DeafSocket.h"
#include "platform/LineWatch.h"
#include "platform/TcpClientRig.h"

#include <linux/sockios.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/ioctl.h>

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

constexpr const char* TimedOut = "Error Connection is aborted due to timeout or other failure";

class DyingLine : public TcpClientRig {
protected:
    void SetUp() override { connectClient(); }

    // The last socket is the present one: one that was replaced may still be parting.
    int line() const { return static_cast<int>(client->findChildren<QTcpSocket*>().back()->socketDescriptor()); }
    int far() const { return static_cast<int>(peer->socketDescriptor()); }

    int option(int level, int name) const {
        int value = -1;
        socklen_t size = sizeof value;
        EXPECT_EQ(::getsockopt(line(), level, name, &value, &size), 0);
        return value;
    }
    void setOption(int name, int value) const {
        EXPECT_EQ(::setsockopt(line(), IPPROTO_TCP, name, &value, sizeof value), 0);
    }
    // The same watch, which takes two seconds for the minute that it has.
    void hurryUp() const {
        setOption(TCP_USER_TIMEOUT, 2000);
        setOption(TCP_KEEPIDLE, 1);
        setOption(TCP_KEEPINTVL, 1);
    }

    // The client's system has all that the server has said.
    bool allArrived() const {
        return waitUntil([this] {
            int left = -1;
            peer->flush();
            return peer->bytesToWrite() == 0 && ::ioctl(far(), SIOCOUTQ, &left) == 0 && left == 0;
        });
    }
    // Without a goodbye.
    void reset() {
        const linger none{1, 0};
        ASSERT_EQ(::setsockopt(far(), SOL_SOCKET, SO_LINGER, &none, sizeof none), 0);
        peer->abort();
    }
    // What comes is left where it is until the result is called.
    std::function<void()> fetchNothing() {
        const auto fetched = std::make_shared<bool>(false);
        client->onDataArrival = [fetched, fetch = client->onDataArrival](std::int32_t bytesTotal) {
            if (*fetched) fetch(bytesTotal);
        };
        return [this, fetched] {
            *fetched = true;
            received += client->GetData();
        };
    }
    bool ended() const {
        return waitUntil([this] { return events.size() == 2; });
    }
};

std::string lines(std::size_t bytes) {
    std::string text;
    for (int number = 0; text.size() < bytes; ++number) text += "line " + std::to_string(number) + "\n\r";
    return text;
}

} // namespace

TEST_F(DyingLine, IsWatchedByTheSystemFromItsFirstMoment) {
    EXPECT_EQ(option(SOL_SOCKET, SO_KEEPALIVE), 1);
    EXPECT_EQ(option(IPPROTO_TCP, TCP_KEEPIDLE), 30);
    EXPECT_EQ(option(IPPROTO_TCP, TCP_KEEPINTVL), 10);
    EXPECT_EQ(option(IPPROTO_TCP, TCP_KEEPCNT), 3);
    EXPECT_EQ(option(IPPROTO_TCP, TCP_USER_TIMEOUT), 60000);
}

TEST_F(DyingLine, IsWatchedAgainAfterEachConnect) {
    events.clear();
    const std::unique_ptr<QTcpSocket> old = std::move(peer);
    connectClient();
    EXPECT_EQ(option(SOL_SOCKET, SO_KEEPALIVE), 1);
    EXPECT_EQ(option(IPPROTO_TCP, TCP_USER_TIMEOUT), 60000);
}

TEST_F(DyingLine, ThatFallsSilentIsAnErrorBehindAllThatCame) {
    say("whole\n\rhal");
    ASSERT_TRUE(allArrived());
    hurryUp();
    ASSERT_TRUE(deafen(far()));
    ASSERT_TRUE(ended());
    EXPECT_THAT(events, ElementsAre("Connect", TimedOut));
    EXPECT_EQ(received, "whole\n\rhal");
    EXPECT_EQ(client->State(), 9);
}

// As the toolkit does where the system has ended the line just before it writes.
TEST_F(DyingLine, WhoseWriteFailsGivesUpWhatItsSocketHas) {
    const auto fetch = fetchNothing();
    const std::string text = lines(60'000);
    say(text);
    ASSERT_TRUE(allArrived());
    runFor(50);
    auto* socket = client->findChild<QTcpSocket*>();
    EXPECT_GT(socket->bytesAvailable(), 0);
    Q_EMIT socket->errorOccurred(QAbstractSocket::NetworkError);
    socket->abort();
    fetch();
    ASSERT_TRUE(ended());
    EXPECT_TRUE(received == text) << received.size();
    EXPECT_THAT(events, ElementsAre("Connect", TimedOut));
}

TEST_F(DyingLine, ThatSwallowsACommandIsAnErrorToo) {
    hurryUp();
    setOption(TCP_KEEPIDLE, 30);
    ASSERT_TRUE(deafen(far()));
    client->SendData("e2-e4\n");
    ASSERT_TRUE(ended());
    EXPECT_THAT(events, ElementsAre("Connect", TimedOut));
}

// No road to the other end, no network: the system's words for it differ, and what has happened does not.
TEST_F(DyingLine, IsTheSameErrorWhateverTheSystemSaysOfIt) {
    auto* socket = client->findChild<QTcpSocket*>();
    Q_EMIT socket->errorOccurred(QAbstractSocket::NetworkError);
    ASSERT_TRUE(ended());
    EXPECT_THAT(events, ElementsAre("Connect", TimedOut));
}

TEST_F(DyingLine, CanBeClosedAndReplacedWhileItSwallowsEverything) {
    ASSERT_TRUE(deafen(far()));
    client->SendData("e2-e4\n");
    client->Close();
    EXPECT_EQ(client->State(), 0);
    events.clear();
    const std::unique_ptr<QTcpSocket> old = std::move(peer);
    connectClient();
    say("new\n\r");
    EXPECT_TRUE(waitUntil([&] { return received == "new\n\r"; }));
    EXPECT_THAT(events, ElementsAre("Connect"));
}

// Half a telnet command and half a line of the old one wait in the socket, for time stands still.
TEST_F(DyingLine, ThatIsReplacedLeavesNothingToTheNextOne) {
    std::int64_t now = 0;
    wallClock.steadyMs = [&now] { return now; };
    say("half a line\xFF");
    ASSERT_TRUE(waitUntil([this] { return client->findChild<QTcpSocket*>()->bytesAvailable() == 0 && allArrived(); }));
    runFor(20);
    EXPECT_EQ(received, "");
    events.clear();
    const std::unique_ptr<QTcpSocket> old = std::move(peer);
    connectClient();
    now += 1000;
    say("\xFB\x01new\n\r");
    EXPECT_TRUE(waitUntil([&] {
        now += 50;
        return !received.empty();
    }));
    EXPECT_EQ(received, "\xFB\x01new\n\r");
    wallClock = Clock{};
}

TEST_F(DyingLine, ThatIsResetIsAClose) {
    reset();
    ASSERT_TRUE(ended());
    EXPECT_EQ(events.back(), "Close");
}

TEST_F(DyingLine, ThatIsResetGivesUpItsTextFirst) {
    const auto fetch = fetchNothing();
    const std::string text = lines(100'000);
    peer->write(text.data(), static_cast<qint64>(text.size()));
    ASSERT_TRUE(allArrived());
    reset();
    runFor(20);
    EXPECT_EQ(events.size(), 1U);
    fetch();
    ASSERT_TRUE(ended());
    EXPECT_TRUE(received == text) << received.size();
    EXPECT_EQ(events.back(), "Close");
}

// The message loop does not run between: nobody has told the socket of the reset yet.
TEST_F(DyingLine, TakesNoCommandAndKeepsItsText) {
    const std::string text = lines(40'000);
    say(text);
    for (int left = 1; left > 0;) ASSERT_EQ(::ioctl(far(), SIOCOUTQ, &left), 0);
    EXPECT_FALSE(lineIsDead(line()));
    reset();
    EXPECT_TRUE(lineIsDead(line()));
    client->SendData("e2-e4\n");
    EXPECT_EQ(client->State(), 7) << "what came is still to be read";
    ASSERT_TRUE(ended());
    EXPECT_TRUE(received == text) << received.size();
    EXPECT_EQ(events.back(), "Close");
}

TEST_F(DyingLine, IsNotDeadWhenTheServerHasOnlyStoppedTalking) {
    ::shutdown(far(), SHUT_WR);
    EXPECT_FALSE(lineIsDead(line()));
}
