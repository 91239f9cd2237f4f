// The socket against a server on the loopback interface.
#include "platform/TcpClientRig.h"

#include "platform/Clock.h"
#include "platform/MessageLoop.h"

#include <QElapsedTimer>
#include <QHostInfo>

namespace {

using TcpClientTest = TcpClientRig;

} // namespace

TEST_F(TcpClientTest, BeginsClosed) {
    EXPECT_EQ(client->State(), 0);
    EXPECT_EQ(client->GetData(), "");
    client->SendData("nowhere");
    client->Close();
    EXPECT_EQ(client->State(), 0);
}

TEST_F(TcpClientTest, ConnectReturnsBeforeItsEventAndGoesThroughConnectingToConnected) {
    client->Connect();
    EXPECT_TRUE(client->State() == 4 || client->State() == 6) << client->State();
    EXPECT_TRUE(events.empty());
    ASSERT_TRUE(waitUntil([&] { return !events.empty(); }));
    EXPECT_EQ(events, (std::vector<std::string>{"Connect"}));
    EXPECT_EQ(client->State(), 7);
}

TEST_F(TcpClientTest, ANameIsResolvedFirst) {
    client->RemoteHost = "localhost";
    client->Connect();
    EXPECT_EQ(client->State(), 4);
    EXPECT_TRUE(waitUntil([&] { return client->State() == 7; }));
}

TEST_F(TcpClientTest, ARefusedConnectionIsAnErrorThatSaysSo) {
    server.close();
    client->Connect();
    EXPECT_TRUE(events.empty());
    ASSERT_TRUE(waitUntil([&] { return !events.empty(); }));
    EXPECT_EQ(events, (std::vector<std::string>{"Error Connection is forcefully rejected"}));
    EXPECT_EQ(client->State(), 9);
    client->Close();
    EXPECT_EQ(client->State(), 0);
}

TEST_F(TcpClientTest, AnUnknownHostIsAnErrorThatSaysSo) {
    client->RemoteHost = "no-such-host.invalid";
    client->Connect();
    ASSERT_TRUE(waitUntil([&] { return !events.empty(); }, 20000));
    EXPECT_EQ(events, (std::vector<std::string>{"Error Host not found"}));
}

TEST_F(TcpClientTest, AnEmptyHostIsNotFound) {
    client->RemoteHost.clear();
    client->Connect();
    ASSERT_TRUE(waitUntil([&] { return !events.empty(); }));
    EXPECT_EQ(events.front().substr(0, 5), "Error");
    EXPECT_EQ(client->State(), 9);
}

TEST_F(TcpClientTest, APortOutsideItsRangeIsAnError) {
    for (const std::int32_t port : {-1, 65536}) {
        events.clear();
        client->RemotePort = port;
        client->Connect();
        EXPECT_EQ(client->State(), 9);
        ASSERT_TRUE(waitUntil([&] { return !events.empty(); }));
        EXPECT_EQ(events, (std::vector<std::string>{"Error Port " + std::to_string(port) + " is outside 0 to 65535"}));
    }
}

TEST_F(TcpClientTest, SentBytesArriveAsTheyAre) {
    connectClient();
    const std::string bytes("Set Style 12\n\0\xFF", 15);
    client->SendData(bytes);
    EXPECT_EQ(heardByPeer(bytes.size()), bytes);
}

TEST_F(TcpClientTest, CloseLetsSentTextGoOut) {
    connectClient();
    say("text that nobody reads\n\r");
    client->SendData("unob 5\n");
    client->Close();
    EXPECT_EQ(client->State(), 0);
    EXPECT_EQ(heardByPeer(7), "unob 5\n");
    EXPECT_TRUE(waitUntil([&] { return peer->state() == QAbstractSocket::UnconnectedState; }, 1500))
        << "the server sees the end at once, not when the parted connection is given up";
}

TEST_F(TcpClientTest, CloseLetsMuchSentTextGoOutBehindTheScenes) {
    connectClient();
    std::string much;
    while (much.size() < 8'000'000) much += "a line of much text\n";
    client->SendData(much);
    client->Close();
    EXPECT_TRUE(heardByPeer(much.size()) == much);
}

TEST_F(TcpClientTest, TheEndOfTheSocketLetsSentTextGoOut) {
    connectClient();
    client->SendData("quit\n");
    client.reset();
    EXPECT_EQ(heardByPeer(5), "quit\n");
}

TEST_F(TcpClientTest, AfterCloseNoEventFires) {
    connectClient();
    say("late text\n\r");
    runFor(5);
    const auto before = arrivals.size();
    client->Close();
    say("later text\n\r");
    peer->close();
    runFor(100);
    EXPECT_EQ(arrivals.size(), before);
    EXPECT_EQ(events, (std::vector<std::string>{"Connect"}));
}

TEST_F(TcpClientTest, CloseWhileConnectingFiresNothing) {
    client->Connect();
    client->Close();
    EXPECT_EQ(client->State(), 0);
    runFor(100);
    EXPECT_TRUE(events.empty());
}

TEST_F(TcpClientTest, CloseWithinADataArrivalIsSafe) {
    connectClient();
    client->onDataArrival = [&](std::int32_t) { client->Close(); };
    say("text\n\r");
    ASSERT_TRUE(waitUntil([&] { return client->State() == 0; }));
    runFor(50);
    EXPECT_EQ(client->GetData(), "");
    EXPECT_EQ(events.size(), 1U);
}

TEST_F(TcpClientTest, TheSocketMayBeDestroyedWithinADataArrival) {
    connectClient();
    bool gone = false;
    client->onDataArrival = [&](std::int32_t) {
        client.reset();
        gone = true;
    };
    say("text\n\r");
    EXPECT_TRUE(waitUntil([&] { return gone; }));
}

TEST_F(TcpClientTest, ConnectClosesTheOldConnectionFirst) {
    connectClient();
    const std::unique_ptr<QTcpSocket> old = std::move(peer);
    events.clear();
    connectClient();
    EXPECT_TRUE(waitUntil([&] { return old->state() == QAbstractSocket::UnconnectedState; }));
    say("new\n\r");
    EXPECT_TRUE(waitUntil([&] { return received == "new\n\r"; }));
}

TEST_F(TcpClientTest, AfterAFailureTheNextConnectionsEndIsACloseAgain) {
    client->RemotePort = 65536;
    client->Connect();
    ASSERT_TRUE(waitUntil([&] { return !events.empty(); }));
    client->RemotePort = server.serverPort();
    events.clear();
    connectClient();
    peer->close();
    ASSERT_TRUE(waitUntil([&] { return events.size() == 2; }));
    EXPECT_EQ(events.back(), "Close");
}

TEST_F(TcpClientTest, AConnectThatWasStillToBeToldIsNotTheNextConnections) {
    client->Connect();
    QObject::connect(client->findChild<QTcpSocket*>(), &QTcpSocket::connected, client.get(),
                     [this] { client->Close(); });
    ASSERT_TRUE(waitUntil([&] { return client->State() == 0; }));
    server.close();
    client->Connect();
    ASSERT_TRUE(waitUntil([&] { return !events.empty(); }));
    EXPECT_EQ(events, std::vector<std::string>{"Error Connection is forcefully rejected"});
}

TEST_F(TcpClientTest, AnEndThatWasStillToBeToldIsNotTheNextConnections) {
    connectClient();
    client->onDataArrival = {}; // what is not fetched holds the end back
    say("bye\n\r");
    peer->close();
    ASSERT_TRUE(waitUntil([&] { return client->State() == 8; }));
    runFor(20);
    events.clear();
    connectClient();
    runFor(50);
    EXPECT_EQ(events, (std::vector<std::string>{"Connect"}));
    EXPECT_EQ(client->State(), 7);
}

TEST_F(TcpClientTest, ConnectWhileConnectingKeepsOnlyTheLatest) {
    client->Connect();
    client->Connect();
    ASSERT_TRUE(waitUntil([&] { return client->State() == 7; }));
    runFor(50);
    EXPECT_EQ(events, (std::vector<std::string>{"Connect"}));
}

TEST_F(TcpClientTest, AServerThatClosesInTheMiddleOfALineLosesNothingAndTheRestComesBeforeClose) {
    connectClient();
    client->onClose = [&] { events.push_back("Close after " + received); };
    say("whole\n\rhal");
    peer->close();
    ASSERT_TRUE(waitUntil([&] { return events.size() == 2; }));
    EXPECT_EQ(events.back(), "Close after whole\n\rhal");
    EXPECT_EQ(client->State(), 8);
    client->Close();
    EXPECT_EQ(client->State(), 0);
    runFor(50);
    EXPECT_EQ(events.size(), 2U) << "Close fires once";
}

TEST_F(TcpClientTest, AServerThatBreaksOffAfterItsTextIsAClose) {
    connectClient();
    client->SendData("text that the server does not read\n");
    say("bye\n\r");
    ASSERT_TRUE(waitUntil([&] { return received == "bye\n\r"; }));
    peer->abort();
    ASSERT_TRUE(waitUntil([&] { return events.size() == 2; }));
    EXPECT_EQ(events.back(), "Close");
}

TEST_F(TcpClientTest, TenMegabytesWithoutALineEndFollowedByACloseComeWhole) {
    connectClient();
    std::string text;
    for (int i = 0; text.size() < 10'000'000; ++i) text += std::to_string(i);
    text[5000] = '\0';
    say(text);
    peer->disconnectFromHost();
    ASSERT_TRUE(waitUntil([&] { return events.size() == 2; }, 20000));
    EXPECT_TRUE(received == text);
    for (const std::string& arrival : arrivals) ASSERT_LE(arrival.size(), 8192U);
}

TEST_F(TcpClientTest, AHandlerThatPumpsGetsTheSecondHalfFromTheNestedLoop) {
    connectClient();
    int depth = 0;
    int deepest = 0;
    client->onDataArrival = [&](std::int32_t) {
        deepest = std::max(deepest, ++depth);
        received += client->GetData();
        if (depth == 1 && deepest == 1) {
            say("second half\n\r");
            waitUntil([&] { return deepest == 2; });
        }
        --depth;
    };
    say("first half\n\r");
    ASSERT_TRUE(waitUntil([&] { return received.size() == 25; }));
    EXPECT_EQ(received, "first half\n\rsecond half\n\r");
    EXPECT_EQ(deepest, 2) << "the nested loop brought it";
}

TEST_F(TcpClientTest, BytesThatWereWaitingAlreadyComeFromTheNestedLoopToo) {
    connectClient();
    int deepest = 0;
    int depth = 0;
    client->onDataArrival = [&](std::int32_t) {
        deepest = std::max(deepest, ++depth);
        received += client->GetData();
        if (deepest == 1) waitUntil([&] { return deepest == 2; });
        --depth;
    };
    const std::string text(20000, 'x');
    say(text);
    ASSERT_TRUE(waitUntil([&] { return received.size() == text.size(); }));
    EXPECT_GE(deepest, 2);
}

TEST_F(TcpClientTest, AnArrivalThatIsNotFetchedMakesTheServerWaitAndLosesNothing) {
    connectClient();
    bool full = true;
    const auto fetch = client->onDataArrival;
    client->onDataArrival = [&](std::int32_t bytesTotal) {
        if (!full) fetch(bytesTotal);
    };
    std::string text;
    for (int i = 0; text.size() < 30'000'000; ++i) text += "line " + std::to_string(i) + "\n\r";
    say(text);
    runFor(300);
    EXPECT_GT(peer->bytesToWrite(), 10'000'000) << "the server's text waits on its own side";
    full = false;
    fetch(8190);
    EXPECT_TRUE(waitUntil([&] { return received.size() == text.size(); }, 30000));
    EXPECT_TRUE(received == text);
}

TEST_F(TcpClientTest, ARestThatWasNotFetchedComesBeforeTheCloseEvent) {
    connectClient();
    int raised = 0;
    client->onDataArrival = [&](std::int32_t) { ++raised; };
    say("one\n\rfics% ");
    ASSERT_TRUE(waitUntil([&] { return raised == 1; }));
    say("two");
    peer->close();
    runFor(100);
    EXPECT_EQ(client->State(), 8);
    EXPECT_EQ(events.size(), 1U);
    EXPECT_EQ(client->GetData(), "one\n\rfics% ");
    ASSERT_TRUE(waitUntil([&] { return raised == 2; }));
    EXPECT_EQ(client->GetData(), "two");
    EXPECT_TRUE(waitUntil([&] { return events.size() == 2; }));
}

TEST_F(TcpClientTest, AnArrivalThatIsNotFetchedHoldsBackTheNext) {
    connectClient();
    int raised = 0;
    client->onDataArrival = [&](std::int32_t) { ++raised; };
    say("one\n\r");
    ASSERT_TRUE(waitUntil([&] { return raised == 1; }));
    say("two\n\r");
    runFor(60);
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(client->GetData(), "one\n\r");
    ASSERT_TRUE(waitUntil([&] { return raised == 2; }));
    EXPECT_EQ(client->GetData(), "two\n\r");
}

TEST_F(TcpClientTest, EventsWithoutAHandlerPass) {
    client->onConnect = nullptr;
    client->onDataArrival = nullptr;
    client->onClose = nullptr;
    client->Connect();
    ASSERT_TRUE(waitUntil([&] { return server.hasPendingConnections(); }));
    peer.reset(server.nextPendingConnection());
    say("x\n\r");
    peer->close();
    EXPECT_TRUE(waitUntil([&] { return client->State() == 8; }));
}
