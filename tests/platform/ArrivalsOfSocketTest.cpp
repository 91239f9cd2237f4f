// What one arrival is, through the real socket: packets as a server sends them, the time by hand.
#include "WaitUntil.h"
#include "platform/Clock.h"
#include "platform/tcpClient.h"

#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

using namespace std::string_literals;

namespace {

using Arrivals = std::vector<std::string>;

// The time stands still between packets, however slowly this machine runs the test.
class ArrivalsOfSocket : public testing::Test {
protected:
    ArrivalsOfSocket() {
        wallClock.steadyMs = [this] {
            ++askedTime;
            return now;
        };
        client.prompt = [this] { return prompt; };
        client.onDataArrival = [this](std::int32_t) { arrivals.push_back(client.GetData()); };
    }
    ~ArrivalsOfSocket() override { wallClock = Clock(); }

    void SetUp() override {
        server.listen(QHostAddress::LocalHost);
        client.RemoteHost = "127.0.0.1";
        client.RemotePort = server.serverPort();
        client.Connect();
        ASSERT_TRUE(waitUntil([&] { return client.State() == 7 && server.hasPendingConnections(); }));
        peer.reset(server.nextPendingConnection());
        peer->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    }

    // One packet, and the client has read it on return: it asks for the time when it does, and once more when it looks
    // for an arrival in it.
    void packet(const std::string& bytes) {
        const int before = askedTime;
        peer->write(bytes.data(), static_cast<qint64>(bytes.size()));
        peer->flush();
        EXPECT_TRUE(waitUntil([&] { return askedTime >= before + 2; }));
        QCoreApplication::processEvents();
    }
    void packets(const std::vector<std::string>& all) {
        for (const std::string& each : all) packet(each);
    }
    // Lets `ms` go by, with the client free to do what is due.
    void pass(std::int64_t ms) {
        now += ms;
        runFor(2 * static_cast<int>(ArrivalCutter::PatienceMs));
    }

    QTcpServer server;
    std::unique_ptr<QTcpSocket> peer;
    tcpClient client;
    std::string prompt = "fics% ";
    Arrivals arrivals;
    std::int64_t now = 1000;
    int askedTime = 0;
};

} // namespace

TEST_F(ArrivalsOfSocket, WhatRestsArrivesAtOnceAndWhole) {
    packet("\n\rone\n\rfics% \n\rtwo\n\rfics% three\n\rfics% ");
    packet("\n\rlogin: ");
    packet("password: ");
    EXPECT_EQ(arrivals, (Arrivals{"\n\rone\n\rfics% \n\rtwo\n\rfics% three\n\rfics% ", "\n\rlogin: ", "password: "}));
}

TEST_F(ArrivalsOfSocket, AMessageInManyPacketsIsOneArrival) {
    const std::string message = "\n\rBob tells you: hi\n\rfics% ";
    for (const char c : message) packet({c});
    EXPECT_EQ(arrivals, Arrivals{message});
}

TEST_F(ArrivalsOfSocket, APacketThatDoesNotRestArrivesWholeAfter30Ms) {
    for (const std::string text : {"one\n\rtwo\n\r", "one\n\rfics% two", "\n"}) {
        arrivals.clear();
        packet(text);
        pass(29);
        EXPECT_EQ(arrivals, Arrivals{});
        pass(1);
        EXPECT_EQ(arrivals, Arrivals{text});
    }
}

TEST_F(ArrivalsOfSocket, WithoutALearntPromptAPacketIsOneArrivalToo) {
    prompt.clear();
    packet("\n\r<12> rnbq\n\rfics% ");
    EXPECT_EQ(arrivals, Arrivals{});
    pass(30);
    EXPECT_EQ(arrivals, Arrivals{"\n\r<12> rnbq\n\rfics% "});
}

TEST_F(ArrivalsOfSocket, APromptThatIsLearntMeanwhileMakesWhatWaitsRest) {
    prompt.clear();
    packet("text\n\rfics% ");
    prompt = "fics% ";
    pass(1);
    EXPECT_EQ(arrivals, Arrivals{"text\n\rfics% "});
}

TEST_F(ArrivalsOfSocket, TheRealClockGivesWhatDoesNotRestByItself) {
    wallClock = Clock();
    peer->write("one\n\rtwo");
    EXPECT_TRUE(waitUntil([&] { return arrivals == Arrivals{"one\n\rtwo"}; }));
}

// Bytes come every 3 ms, in packets that end in no prompt; `now` moves on with each.
TEST_F(ArrivalsOfSocket, UnderAnEndlessStreamNoMessageWaitsLongerThan30Ms) {
    std::string sent;
    std::string text;
    std::vector<std::pair<std::size_t, std::int64_t>> ends; // where messages end, and when their last byte came
    std::int64_t longest = 0;
    std::size_t messages = 0;
    bool streaming = true;
    client.onDataArrival = [&](std::int32_t) {
        text += client.GetData();
        for (; messages < ends.size() && ends[messages].first <= text.size(); ++messages) {
            if (streaming) longest = std::max(longest, now - ends[messages].second);
        }
    };
    for (int number = 0; number < 150; ++number) {
        const std::string message = "\n\rmessage " + std::to_string(number) + "\n\rfics% ";
        const std::string front = message.substr(0, 9);
        ends.emplace_back(sent.size() + message.size(), now);
        sent += message + front;
        packet(message + front);
        now += 3;
    }
    streaming = false;
    pass(30);
    EXPECT_TRUE(text == sent);
    EXPECT_EQ(messages, ends.size());
    EXPECT_LE(longest, 30);
    EXPECT_GE(longest, 27) << "they did wait for each other";
}

// The rule holds as well while a handler lets the loop run.
TEST_F(ArrivalsOfSocket, WhileAHandlerRunsTheLoopAnUnfinishedLineWaitsForItsRestAsEver) {
    client.onDataArrival = [&](std::int32_t) {
        arrivals.push_back(client.GetData());
        if (arrivals.size() > 1) return;
        packet("\n\r");
        pass(20);
        packet("<12> position\n\rfi");
        pass(9);
        packet("cs% ");
    };
    packet("hello\n\rfics% ");
    EXPECT_EQ(arrivals, (Arrivals{"hello\n\rfics% ", "\n\r<12> position\n\rfics% "}));
}

// Telnet

TEST_F(ArrivalsOfSocket, TelnetCommandsAreNoText) {
    packet("password: \xFF\xFB\x01");
    packet("\xFF\xFC\x01\n\rwelcome\n\r\xFF\xFA\x18\x01\xFF\xF0 y\xFF\xFF \xFF\x80\n\rfics% "s);
    EXPECT_EQ(arrivals, (Arrivals{"password: ", "\n\rwelcome\n\r y\xFF \xFF\x80\n\rfics% "}));
}

TEST_F(ArrivalsOfSocket, TelnetCommandsAloneAreNoArrival) {
    peer->write("\xFF\xFB\x01\xFF\xFC\x01\xFF\xFA\x18\xFF\xF0", 11);
    runFor(60);
    pass(30);
    EXPECT_EQ(arrivals, Arrivals{});
    packet("fics% ");
    EXPECT_EQ(arrivals, Arrivals{"fics% "});
}

TEST_F(ArrivalsOfSocket, TelnetCommandsMayBeCutByPackets) {
    for (const char c : "pass\xFF\xFB\x01word: \xFF\xFA\x18\xFF\xF0"s) {
        peer->write(&c, 1);
        peer->flush();
        runFor(3);
    }
    EXPECT_EQ(arrivals, Arrivals{"password:"});
    pass(30);
    EXPECT_EQ(arrivals, (Arrivals{"password:", " "}));
}

TEST_F(ArrivalsOfSocket, TelnetCommandsDoNotMakeTextWaitLonger) {
    packet("half a line");
    now += 20;
    peer->write("\xFF\xFB\x01", 3);
    runFor(20);
    pass(10);
    EXPECT_EQ(arrivals, Arrivals{"half a line"});
}

TEST_F(ArrivalsOfSocket, TheFrontOfACommandAtTheEndOfAConnectionIsText) {
    std::string closing;
    client.onClose = [&] { closing = "closed"; };
    peer->write("bye\xFF\xFB", 5);
    peer->disconnectFromHost();
    ASSERT_TRUE(waitUntil([&] { return !closing.empty(); }));
    EXPECT_EQ(arrivals, Arrivals{"bye\xFF\xFB"});
}

TEST_F(ArrivalsOfSocket, TheNextConnectionBeginsWithoutTheFrontOfACommand) {
    peer->write("x\xFF\xFA\x18", 4);
    runFor(20);
    client.Connect();
    ASSERT_TRUE(waitUntil([&] { return client.State() == 7 && server.hasPendingConnections(); }));
    peer.reset(server.nextPendingConnection());
    packet("text\xFF\xF0\nfics% ");
    EXPECT_EQ(arrivals, Arrivals{"text\xFF\xF0\nfics% "});
}
