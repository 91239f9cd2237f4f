// Start-up, the loss of the connection, and close-down of the whole program.
#include "session/ClientRig.h"

#include "board/BoardRig.h"

#include <QDir>

namespace {

class ClientLife : public ClientRig {
protected:
    void startAt(const char* left, const char* top) {
        set("Registry_OK", "Yes");
        set("Left", left);
        set("Top", top);
        set("Width", "9000");
        set("Height", "7500");
        start();
    }
    void game(int number, int relation) {
        connected();
        loopback.send("\r\n**** Starting FICS session as anders ****\r\n\r\nfics% ");
        ASSERT_TRUE(serverGot("Set Style 12"));
        const auto line = LineOf{.game = number, .relation = relation};
        loopback.send("\r\n" + line.text() + "fics% ");
        ASSERT_TRUE(waitUntil([number] { return firstGame().gameIndex == number; }));
    }
    static constexpr QSize Designed{760, 560};
};

} // namespace

// Start-up

TEST_F(ClientLife, AFirstStartEndsAtTheTopLeftCornerInTheDesignedSize) {
    start();
    EXPECT_EQ(client->pos(), QPoint(0, 0));
    EXPECT_EQ(client->size(), Designed);
}

TEST_F(ClientLife, ASavedPlaceIsTakenInTwips) {
    startAt("1500", "750");
    EXPECT_EQ(client->pos(), QPoint(100, 50));
    EXPECT_EQ(client->size(), QSize(600, 500));
}

TEST_F(ClientLife, ASavedLeftOf0KeepsTheSavedSize) {
    startAt("0", "0");
    EXPECT_EQ(client->size(), QSize(600, 500));
}

TEST_F(ClientLife, ASavedPlaceBeyondTheScreenGivesTheCornerAndTheDesignedSize) {
    startAt("30000", "750");
    EXPECT_EQ(client->pos(), QPoint(0, 0));
    EXPECT_EQ(client->size(), Designed);
}

TEST_F(ClientLife, ANegativeSavedPlaceGivesTheCornerAndTheDesignedSize) {
    startAt("150", "-15");
    EXPECT_EQ(client->pos(), QPoint(0, 0));
    EXPECT_EQ(client->size(), Designed);
}

TEST_F(ClientLife, TheProgramStartsWithOneIdleBoardAndUnconnected) {
    start();
    EXPECT_EQ(openWindows.count("frmChessBoard"), 1);
    EXPECT_EQ(firstGame().xMyRel(), "-100");
    EXPECT_EQ(socketState(), 0);
    EXPECT_TRUE(client->session.connection.ClosedByUser);
    EXPECT_EQ(client->session.connection.StartDirectory, QDir::currentPath().toStdString());
}

TEST_F(ClientLife, ColoursAndFontOfTheSettingsReachTheConsoleAndTheLine) {
    set("Color_Background", "255");
    set("Color_Bar_Backgnd", "65280");
    set("Color_Type", "16711680");
    set("Main_Font", "DejaVu Serif");
    start();
    EXPECT_EQ(txtOutput().palette().color(QPalette::Base), QColor(255, 0, 0));
    EXPECT_EQ(txtSend().palette().color(QPalette::Base), QColor(0, 255, 0));
    EXPECT_EQ(txtSend().palette().color(QPalette::Text), QColor(0, 0, 255));
    EXPECT_EQ(txtOutput().font().families().front(), QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(txtSend().font().families().front(), QStringLiteral("DejaVu Serif"));
}

TEST_F(ClientLife, WithoutAMainFontTheConsoleHasFixedsysAtSize9) {
    start();
    EXPECT_EQ(txtOutput().font().families().front(), QStringLiteral("fixedsys"));
    EXPECT_EQ(txtOutput().font().pointSize(), 9);
}

TEST_F(ClientLife, TheFirstTickConnectsWithAutoConnect) {
    set("Auto_Connect", "True");
    start();
    EXPECT_EQ(socketState(), 0);
    client->session.connection.tmrTCPTimer();
    EXPECT_TRUE(waitUntil([this] { return socketState() == 7; }));
}

TEST_F(ClientLife, TheTickShowsTheSocketsStateInTheTitle) {
    connected();
    EXPECT_EQ(title(), "Brightrank - Client     Connected to FICS");
}

// The loss of the connection

TEST_F(ClientLife, AServerCloseEndsTheGamesClearsTheHandleAndAsksNothing) {
    game(12, 1);
    modChess.MyHandle = "anders";
    loopback.hangUp();
    ASSERT_TRUE(waitUntil([this] { return socketState() == 0; }));
    client->session.connection.tmrTCPTimer();
    EXPECT_EQ(title(), "Brightrank - Client     Closed");
    EXPECT_EQ(modChess.MyHandle, "");
    EXPECT_FALSE(modChess.GameRunning);
    EXPECT_EQ(firstGame().gameIndex, 0);
    const auto* board = boards()[0];
    EXPECT_EQ(board->windowTitle(), QStringLiteral("Brightrank - Board"));
    EXPECT_TRUE(board->findChild<QLabel*>(QStringLiteral("stbGame(2)"))->text().startsWith(QStringLiteral("Was ")));
    EXPECT_TRUE(messages.empty());
}

TEST_F(ClientLife, ARefusedConnectionSaysThatTheServerWasNotFound) {
    answer = "127.0.0.1," + std::to_string(loopback.port());
    loopback.refuse();
    start();
    client->menus.mnuConnect[2]->trigger();
    ASSERT_TRUE(waitUntil([this] { return messages.size() == 2; }));
    EXPECT_EQ(messages[1], "Server not found\nCheck Internet connection");
    EXPECT_EQ(socketState(), 0);
}

// The flag is up as long as the program runs; the question is there for whoever clears it.
TEST_F(ClientLife, WithClosedByUserClearedTheThirdBeepClearsTheBoardsAndOffersToReconnect) {
    game(12, 1);
    client->session.connection.ClosedByUser = false;
    okay = true;
    loopback.hangUp();
    ASSERT_TRUE(waitUntil([this] { return socketState() == 0; }));
    client->session.connection.tmrTCPTimer();
    ASSERT_TRUE(waitUntil([this] { return !messages.empty(); }));
    EXPECT_EQ(messages, (std::vector<std::string>{"Connection to ICS Closed.  Reconnect?"}));
    const auto* board = boards()[0];
    for (const char* panel : {"stbGame(1)", "stbGame(2)", "stbGame(3)"}) {
        EXPECT_EQ(board->findChild<QLabel*>(QString::fromLatin1(panel))->text(), QString()) << panel;
    }
    EXPECT_EQ(board->windowTitle(), QStringLiteral("Brightrank - Board"));
    EXPECT_EQ(firstGame().currentGame, "");
    EXPECT_TRUE(waitUntil([this] { return loopback.hasClient() && socketState() == 7; }));
    runFor(600);
    EXPECT_EQ(messages.size(), 1U) << "the timer has ended";
}

// Close-down

TEST_F(ClientLife, ClosingUnloadsAllWindowsOldestFirstBeforeTheSettingsAreWritten) {
    start();
    for (int board = 0; board < 4; ++board) client->session.routing.hooks.zNewBoard();
    ASSERT_EQ(openWindows.windows.size(), 6U);
    std::vector<const void*> opened;
    std::vector<const void*> unloaded;
    for (OpenWindow& open : openWindows.windows) {
        if (!gameOf(open)) continue;
        opened.push_back(open.window);
        open.unload = [&unloaded, &values = values, window = open.window, unload = open.unload] {
            EXPECT_TRUE(modChess.AppClosing);
            EXPECT_EQ(values->texts.count({"Client", "Registry_OK"}), 0U);
            unloaded.push_back(window);
            unload();
        };
    }
    client->close();
    EXPECT_EQ(unloaded, opened);
    EXPECT_EQ(stored("Client", "Registry_OK"), "Yes");
    EXPECT_EQ(openWindows.windows.size(), 1U);
}

TEST_F(ClientLife, ABoardsSectionIsWrittenBeforeTheClients) {
    start();
    client->close();
    EXPECT_NE(stored("Board", "Left"), "(absent)");
    const auto& written = values->keysWritten;
    ASSERT_GE(written.size(), 5U);
    EXPECT_EQ(written[0], "Left");
    EXPECT_EQ(written[4], "Registry_OK");
}

TEST_F(ClientLife, AWindowOlderThanTheConsoleIsUnloadedToo) {
    openWindows.add({"frmChat", &loopback, [] { openWindows.remove(openWindows.windows[0].window); }});
    start();
    client->close();
    EXPECT_EQ(openWindows.windows.size(), 1U);
    EXPECT_EQ(openWindows.count("frmChessClient"), 1);
}

TEST_F(ClientLife, AWindowThatRefusesToUnloadDoesNotHangTheCloseDown) {
    start();
    openWindows.add({"frmChat", &loopback, [] {}});
    client->close();
    EXPECT_EQ(stored("Client", "Registry_OK"), "Yes");
}

TEST_F(ClientLife, ClosingDuringAPlayedGameAsksNothing) {
    game(12, 1);
    client->close();
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(stored("Client", "Registry_OK"), "Yes");
}

TEST_F(ClientLife, ClosingDuringAnObservedGameLeavesItWhileTheSocketIsStillOpen) {
    game(12, 0);
    client->close();
    EXPECT_TRUE(serverGot("unob 12\n"));
    EXPECT_EQ(socketState(), 0);
}

TEST_F(ClientLife, TheOrderlyExitWritesPlaceTicksAndLogOn) {
    set("Last_Server", "1");
    start();
    client->move(40, 30);
    client->resize(700, 520);
    client->session.logOn.handle = "berta";
    client->session.logOn.password = "pw";
    entry("mnuAutoLogon").trigger();
    client->close();
    EXPECT_EQ(stored("Client", "Left"), "600");
    EXPECT_EQ(stored("Client", "Top"), "450");
    EXPECT_EQ(stored("Client", "Width"), "10500");
    EXPECT_EQ(stored("Client", "Height"), "7800");
    EXPECT_EQ(stored("Client", "Handle"), "berta");
    EXPECT_EQ(stored("Client", "Password"), "pw");
    EXPECT_EQ(stored("Client", "Auto_Logon"), "True");
    EXPECT_EQ(stored("Client", "Auto_Connect"), "False");
    EXPECT_EQ(stored("Client", "Last_Server"), "1");
}

TEST_F(ClientLife, AMinimisedWindowIsRestoredSoThatItsRealPlaceIsWritten) {
    start();
    client->move(40, 30);
    client->showMinimized();
    client->close();
    EXPECT_EQ(stored("Client", "Left"), "600");
    EXPECT_EQ(stored("Client", "Width"), "11400");
}

TEST_F(ClientLife, OfAMaximisedWindowThePlaceIsWrittenThatItGoesBackTo) {
    start();
    client->move(40, 30);
    client->showMaximized();
    client->close();
    EXPECT_EQ(stored("Client", "Left"), "600");
    EXPECT_EQ(stored("Client", "Top"), "450");
    EXPECT_EQ(stored("Client", "Width"), "11400");
}

TEST_F(ClientLife, NothingIsWrittenWithoutTheCloseDown) {
    start();
    client->stopEverything();
    client.reset();
    EXPECT_TRUE(values->keysWritten.empty());
}

TEST_F(ClientLife, ClosingTwiceWritesOnce) {
    start();
    int ends = 0;
    QObject::connect(client.get(), &frmChessClient::closed, client.get(), [&ends] { ++ends; });
    client->close();
    client->close();
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(std::count(values->keysWritten.begin(), values->keysWritten.end(), "Registry_OK"), 1);
}

TEST_F(ClientLife, ExitRunsTheCloseDown) {
    start();
    entry("mnuExit").trigger();
    EXPECT_TRUE(modChess.AppClosing);
    EXPECT_EQ(stored("Client", "Registry_OK"), "Yes");
}
