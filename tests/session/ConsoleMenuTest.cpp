// The menus of the console window: Block Mode, Verbose Mode, Clear Screen, profiles and ticks.
#include "session/ClientRig.h"

#include "board/BoardRig.h"

namespace {

class ConsoleMenuWindow : public ClientRig {
protected:
    // A game to watch.
    void sendPosition() {
        const auto line = LineOf{.game = 7, .relation = 0};
        loopback.send("\r\n" + line.text() + "fics% ");
    }
    void logOn() {
        connected();
        loopback.send("\r\n**** Starting FICS session as anders ****\r\n\r\nfics% ");
        ASSERT_TRUE(serverGot("Set Style 12"));
    }
};

} // namespace

TEST_F(ConsoleMenuWindow, BlockModePilesTextUpAndLetsItGoInOrder) {
    logOn();
    const std::string caption = title();
    entry("mnuBlocked").trigger();
    EXPECT_EQ(title(), caption + " - Incomming Text Blocked");
    EXPECT_TRUE(entry("mnuBlocked").isChecked());
    loopback.send("\r\nThis is a rather long line of the server\r\nfics% ");
    ASSERT_TRUE(waitUntil([] { return modChess.BlockedText.find("rather long line") != std::string::npos; }));
    EXPECT_EQ(console().find("rather long line"), std::string::npos);
    entry("mnuBlocked").trigger();
    EXPECT_NE(console().find("rather long line"), std::string::npos);
    EXPECT_EQ(title(), caption);
    EXPECT_FALSE(entry("mnuBlocked").isChecked());
    EXPECT_EQ(modChess.BlockedText, "");
}

TEST_F(ConsoleMenuWindow, BlockModeHasTheShortcutCtrlB) {
    start();
    EXPECT_EQ(entry("mnuBlocked").shortcut(), QKeySequence(QStringLiteral("Ctrl+B")));
    EXPECT_EQ(entry("mnuBlocked").text(), QStringLiteral("Block Mode"));
}

TEST_F(ConsoleMenuWindow, APositionIsTakenOffTheConsole) {
    logOn();
    sendPosition();
    ASSERT_TRUE(waitUntil([] { return firstGame().gameIndex == 7; }));
    EXPECT_EQ(console().find("<12>"), std::string::npos);
}

TEST_F(ConsoleMenuWindow, VerboseModeShowsTheRawStreamAndBoardsGoOnReadingIt) {
    logOn();
    entry("mnuStupid").trigger();
    sendPosition();
    EXPECT_TRUE(consoleHas("<12> rnbqkbnr"));
    EXPECT_EQ(firstGame().gameIndex, 7);
}

TEST_F(ConsoleMenuWindow, ClearScreenEmptiesTheConsole) {
    logOn();
    type("something");
    ASSERT_TRUE(consoleHas("something"));
    entry("mnuClear").trigger();
    EXPECT_EQ(console(), "");
}

TEST_F(ConsoleMenuWindow, TheProfilesStandAsPrescribed) {
    start();
    const auto& profiles = client->menus.mnuConnect;
    const char* captions[] = {"&BCC", "&FICS", "Other", "TimeSeal", "ICC"};
    for (std::size_t index = 0; index < profiles.size(); ++index) {
        EXPECT_EQ(profiles[index]->text(), QString::fromLatin1(captions[index]));
        EXPECT_EQ(profiles[index]->isVisible(), index != 0);
        EXPECT_EQ(profiles[index]->isEnabled(), index == 1 || index == 2) << index;
    }
}

TEST_F(ConsoleMenuWindow, OtherAsksForTheServerAndLabelsTheConnectionWithIt) {
    start();
    answer = "127.0.0.1," + std::to_string(loopback.port());
    client->menus.mnuConnect[2]->trigger();
    EXPECT_EQ(messages, (std::vector<std::string>{"Alternate Server: Enter IP, Port"}));
    ASSERT_TRUE(waitUntil([this] { return socketState() == 7; }));
    client->session.connection.tmrTCPTimer();
    EXPECT_EQ(title(), "Brightrank - Client     Connected to 127.0.0.1 Port " + std::to_string(loopback.port()));
    EXPECT_EQ(client->session.connection.LastServer, 0);
}

TEST_F(ConsoleMenuWindow, OtherWithoutAFittingAnswerDoesNothing) {
    start();
    for (const char* text : {"host,", ",5001", "host", ""}) {
        answer = text;
        client->menus.mnuConnect[2]->trigger();
        EXPECT_EQ(socketState(), 0) << text;
    }
    answer.reset();
    client->menus.mnuConnect[2]->trigger();
    EXPECT_EQ(socketState(), 0);
}

TEST_F(ConsoleMenuWindow, CloseConnectionClosesTheSocketAtTheUsersWish) {
    connected();
    entry("mnuClose").trigger();
    EXPECT_EQ(socketState(), 0);
    client->session.connection.tmrTCPTimer();
    EXPECT_EQ(title(), "Brightrank - Client     Closed");
    EXPECT_TRUE(client->session.connection.ClosedByUser);
}

TEST_F(ConsoleMenuWindow, TicksFollowTheirClicks) {
    start();
    for (const char* name : {"mnuUseTS", "mnuAutoLogon", "mnuStupid", "mnuXP"}) {
        const bool before = entry(name).isChecked();
        entry(name).trigger();
        EXPECT_EQ(entry(name).isChecked(), !before) << name;
    }
    EXPECT_TRUE(client->session.serverLines.verbose);
    EXPECT_TRUE(client->session.connection.mnuAutoLogon);
}

TEST_F(ConsoleMenuWindow, AutoConnectCheckedWhileClosedConnectsToTheLastServer) {
    start();
    entry("mnuAutoCon").trigger();
    EXPECT_TRUE(waitUntil([this] { return socketState() == 7; }));
    EXPECT_TRUE(entry("mnuAutoCon").isChecked());
}

TEST_F(ConsoleMenuWindow, TallTitleBarsTakeALittleOfTheConsoleAndLeaveTheWindowsSize) {
    start();
    const QSize before = client->size();
    runFor(20);
    EXPECT_EQ(txtOutput().width(), before.width() - 37);
    EXPECT_EQ(txtOutput().height(), before.height() - 71);
    entry("mnuXP").trigger();
    runFor(20);
    EXPECT_EQ(client->size(), before);
    EXPECT_EQ(txtOutput().height(), before.height() - 71 - 9);
}

TEST_F(ConsoleMenuWindow, AboutNamesTheProgram) {
    start();
    entry("mnuAbout").trigger();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].substr(0, 10), "Brightrank");
}

TEST_F(ConsoleMenuWindow, BoardIsUnavailableAsLongAsABoardIsOpen) {
    start();
    EXPECT_FALSE(entry("mnuBoard").isEnabled());
    ASSERT_EQ(boards().size(), 1U);
    boards()[0]->close();
    EXPECT_TRUE(entry("mnuBoard").isEnabled());
    EXPECT_EQ(openWindows.count("frmChessBoard"), 0);
    entry("mnuBoard").trigger();
    EXPECT_EQ(openWindows.count("frmChessBoard"), 1);
    EXPECT_FALSE(entry("mnuBoard").isEnabled());
}

// The board that stays does not take the entry back.
TEST_F(ConsoleMenuWindow, BoardIsAvailableAlthoughTheLastBoardsClosingIsCancelled) {
    logOn();
    const auto line = LineOf{.game = 7, .relation = 1};
    loopback.send("\r\n" + line.text() + "fics% ");
    ASSERT_TRUE(waitUntil([] { return firstGame().gameIndex == 7; }));
    ASSERT_FALSE(entry("mnuBoard").isEnabled());
    okay = false;
    boards()[0]->close();
    ASSERT_EQ(messages.size(), 1U) << "the closing of a played game is asked about";
    EXPECT_EQ(openWindows.count("frmChessBoard"), 1);
    EXPECT_EQ(firstGame().gameIndex, 7);
    EXPECT_TRUE(entry("mnuBoard").isEnabled());
}

TEST_F(ConsoleMenuWindow, BoardStaysUnavailableWhileTheClosingOfOneOfTwoIsCancelled) {
    logOn();
    const auto line = LineOf{.game = 7, .relation = 1};
    loopback.send("\r\n" + line.text() + "fics% ");
    ASSERT_TRUE(waitUntil([] { return firstGame().gameIndex == 7; }));
    loopback.send("\r\n" + LineOf{.game = 8, .relation = 0}.text() + "fics% ");
    ASSERT_TRUE(waitUntil([] { return openWindows.count("frmChessBoard") == 2; }));
    boards()[0]->close();
    EXPECT_FALSE(entry("mnuBoard").isEnabled());
}
