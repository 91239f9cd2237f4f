// The console window with its real socket, timers and widgets: what the parts say must reach the screen.
#include "session/frmChessClient.h"

#include "platform/WaitUntil.h"

#include "common/modChess.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

#include <gmock/gmock.h>

#include <memory>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct ClientWiringTest : testing::Test {
    ClientRoads roads;
    std::unique_ptr<frmChessClient> client;
    std::vector<std::string> batches;
    QTcpServer server;
    std::unique_ptr<QTcpSocket> peer;

    ClientWiringTest() {
        modChess = ModChess{};
        client = std::make_unique<frmChessClient>(roads);
        client->pipeline.hooks.dataParse = [this](const std::string& batch) {
            batches.push_back(batch);
            client->classifier.zDataParse(batch);
        };
    }
    ~ClientWiringTest() override { client->stopEverything(); }

    void connectToPeer() {
        ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
        client->connection.hooks.connectTo("127.0.0.1", server.serverPort());
        ASSERT_TRUE(waitUntil([this] { return server.hasPendingConnections(); }));
        peer.reset(server.nextPendingConnection());
        ASSERT_TRUE(waitUntil([this] { return client->connection.hooks.socketState() == 7; }));
    }

    void sendFromPeer(const std::string& text) {
        peer->write(text.data(), static_cast<qint64>(text.size()));
        peer->flush();
    }

    Console& console() { return *client->findChild<Console*>(QStringLiteral("txtOutput")); }
    TypingLine& typing() { return *client->findChild<TypingLine*>(QStringLiteral("txtSend")); }
    QString promptLabel() { return client->findChild<QLabel*>(QStringLiteral("lblPrompt"))->text(); }
};

std::string answer(int lines) {
    std::string text;
    for (int i = 0; i < lines; ++i) text += "a line of a long answer, number " + std::to_string(i) + "\n\r";
    return text;
}

} // namespace

TEST_F(ClientWiringTest, AnAnswerLongerThanTheSocketGivesComesWholeAndWithoutAWaitForSilence) {
    connectToPeer();
    modChess.gPrompt = "fics% ";
    const std::string text = answer(3000) + "fics% "; // 115,000 bytes, too many lines for one batch
    sendFromPeer(text);
    const auto read = [this] {
        std::string all;
        for (const std::string& batch : batches) all += batch;
        return all;
    };
    ASSERT_TRUE(waitUntil([&] { return read().size() == text.size(); }, 2500)) << "waits for silence";
    EXPECT_TRUE(read() == text);
    for (const std::string& batch : batches) EXPECT_LE(batch.size(), 2U * 8192U);
    EXPECT_TRUE(batches.front().ends_with("\n\r")) << "cut between lines";
}

TEST_F(ClientWiringTest, TextWithoutThePromptIsReleasedByThreeSecondsOfSilence) {
    connectToPeer();
    modChess.gPrompt = "fics% ";
    QElapsedTimer since;
    since.start();
    sendFromPeer("no prompt\n\r");
    ASSERT_TRUE(waitUntil([this] { return !client->pipeline.PendingText.empty(); }));
    EXPECT_THAT(batches, IsEmpty());
    ASSERT_TRUE(waitUntil([this] { return !batches.empty(); }, 20000));
    EXPECT_GE(since.elapsed(), 3000);
    EXPECT_THAT(batches, ElementsAre("no prompt\n\r"));
    EXPECT_EQ(console().text(), "no prompt\n");
}

TEST_F(ClientWiringTest, ATailThatStandsForASecondIsLearntAndShown) {
    connectToPeer();
    sendFromPeer("\n\rfics% ");
    EXPECT_TRUE(waitUntil([this] { return promptLabel() == QStringLiteral("fics% "); }, 20000));
    EXPECT_EQ(modChess.gPrompt, "fics% ");
}

TEST_F(ClientWiringTest, ThePasswordIsMaskedUntilTheNextArrival) {
    client->pipeline.hooks.getData = [] { return std::string("password: "); };
    client->pipeline.zDataArrival();
    EXPECT_EQ(client->pipeline.login, 2);
    typing().setLine("secret");
    EXPECT_EQ(typing().displayText(), QStringLiteral("******"));
    client->pipeline.hooks.getData = [] { return std::string("\n\r"); };
    client->pipeline.zDataArrival();
    EXPECT_EQ(client->pipeline.login, 0);
    EXPECT_EQ(typing().displayText(), QStringLiteral("secret"));
}

TEST_F(ClientWiringTest, TheCommandLineHasItsColours) {
    typing().setColors(0x00FF00, 0);
    typing().resize(200, 30);
    EXPECT_EQ(typing().grab().toImage().pixelColor(150, 15), QColor(0, 255, 0));
    EXPECT_EQ(typing().palette().color(QPalette::Text), QColor(0, 0, 0));
}

TEST_F(ClientWiringTest, WhatIsTypedInTheConsoleLandsInTheCommandLineAndCtrlCDoesNot) {
    typing().setLine("te");
    QTest::keyClick(&console(), Qt::Key_L);
    QTest::keyClick(&console(), Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(&console(), Qt::Key_L);
    EXPECT_EQ(typing().line(), "tell");
    EXPECT_EQ(console().text(), "");
}

TEST_F(ClientWiringTest, BlockModePilesUpUnderItsCaptionAndLetsThePileGo) {
    const QString caption = client->windowTitle();
    client->menus.mnuBlocked->trigger();
    EXPECT_TRUE(client->menus.mnuBlocked->isChecked());
    EXPECT_EQ(client->windowTitle(), caption + QStringLiteral(" - Incomming Text Blocked"));
    client->classifier.zDataParse("held\n\r");
    EXPECT_EQ(console().text(), "");
    client->menus.mnuBlocked->trigger();
    EXPECT_FALSE(client->menus.mnuBlocked->isChecked());
    EXPECT_EQ(client->windowTitle(), caption);
    EXPECT_EQ(console().text(), "held\n");
}

TEST_F(ClientWiringTest, VerboseModeAndClearScreenAnswerTheirMenu) {
    client->menus.mnuStupid->trigger();
    client->classifier.SuppressCount = 9;
    client->classifier.zDataParse("shown\n\r");
    EXPECT_EQ(console().text(), "shown\n");
    client->menus.mnuStupid->trigger();
    client->classifier.SuppressCount = 1;
    client->classifier.zDataParse("eaten\n\r");
    EXPECT_EQ(console().text(), "shown\n");
    client->menus.mnuClear->trigger();
    EXPECT_EQ(console().text(), "");
}
