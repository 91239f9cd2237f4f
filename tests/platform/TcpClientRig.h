// The socket and a server of the test's own on the loopback interface.
#pragma once

#include "WaitUntil.h"
#include "platform/tcpClient.h"

#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

class TcpClientRig : public testing::Test {
protected:
    TcpClientRig() {
        server.listen(QHostAddress::LocalHost);
        client->RemoteHost = "127.0.0.1";
        client->RemotePort = server.serverPort();
        client->onConnect = [this] { events.push_back("Connect"); };
        client->onClose = [this] { events.push_back("Close"); };
        client->onError = [this](const std::string& text) { events.push_back("Error " + text); };
        client->onDataArrival = [this](std::int32_t bytesTotal) {
            const std::string text = client->GetData();
            EXPECT_EQ(static_cast<std::int32_t>(text.size()), bytesTotal);
            arrivals.push_back(text);
            received += text;
        };
        client->prompt = [] { return std::string("fics% "); };
    }

    void connectClient() {
        client->Connect();
        ASSERT_TRUE(waitUntil([&] { return !events.empty() && server.hasPendingConnections(); }));
        peer.reset(server.nextPendingConnection());
        ASSERT_EQ(events, (std::vector<std::string>{"Connect"}));
        ASSERT_EQ(client->State(), 7);
    }

    void say(const std::string& text) {
        peer->write(text.data(), static_cast<qint64>(text.size()));
        peer->flush();
    }

    std::string heardByPeer(std::size_t atLeast) {
        QByteArray heard;
        waitUntil([&] { return (heard += peer->readAll()).size() >= static_cast<qsizetype>(atLeast); });
        return heard.toStdString();
    }

    QTcpServer server;
    std::unique_ptr<QTcpSocket> peer;
    std::unique_ptr<tcpClient> client = std::make_unique<tcpClient>();
    std::vector<std::string> events;
    std::vector<std::string> arrivals;
    std::string received;
};
