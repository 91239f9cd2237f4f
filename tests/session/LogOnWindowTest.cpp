// The log-on as the user meets it: prompts, the mask, the one-key answer and the automatic one.
#include "session/ClientRig.h"

namespace {

class LogOnWindow : public ClientRig {
protected:
    void SetUp() override {
        set("Handle", "anders");
        set("Password", "secret");
    }
    void serverAsks(const char* prompt) {
        connected();
        loopback.send(prompt);
    }
    // Both questions are answered without a key press.
    void autoLogOn() {
        set("Auto_Logon", "True");
        serverAsks("\r\nlogin: ");
        ASSERT_TRUE(serverGot("anders\n"));
        loopback.send("\r\npassword: ");
        ASSERT_TRUE(serverGot("anders\nsecret\n"));
    }
    bool loginIs(int login) {
        return waitUntil([&] { return client->session.pipeline.login == login; });
    }
};

} // namespace

TEST_F(LogOnWindow, TheLoginPromptIsShownAtOnceAndSetsLogin1) {
    serverAsks("\r\nlogin: ");
    EXPECT_TRUE(loginIs(1));
    EXPECT_EQ(txtSend().echoMode(), QLineEdit::Normal);
    EXPECT_EQ(loopback.received, "");
}

TEST_F(LogOnWindow, UpAtTheLoginPromptSendsTheHandle) {
    serverAsks("\r\nlogin: ");
    ASSERT_TRUE(loginIs(1));
    QTest::keyClick(&txtSend(), Qt::Key_Up);
    EXPECT_TRUE(serverGot("anders\n"));
    EXPECT_EQ(client->session.pipeline.login, 0);
    EXPECT_EQ(txtSend().line(), "");
}

TEST_F(LogOnWindow, UpOnTheConsoleAtTheLoginPromptSendsTheHandleToo) {
    serverAsks("\r\nlogin: ");
    ASSERT_TRUE(loginIs(1));
    QTest::keyClick(&txtOutput(), Qt::Key_Up);
    EXPECT_TRUE(serverGot("anders\n"));
}

TEST_F(LogOnWindow, ThePasswordPromptMasksTheLineAndUpSendsThePasswordUnechoed) {
    serverAsks("\r\npassword: ");
    ASSERT_TRUE(loginIs(2));
    EXPECT_EQ(txtSend().echoMode(), QLineEdit::Password);
    QTest::keyClick(&txtSend(), Qt::Key_Up);
    EXPECT_TRUE(serverGot("secret\n"));
    EXPECT_EQ(modChess.gLastCmd, "secret");
    EXPECT_EQ(console().find("secret"), std::string::npos);
}

TEST_F(LogOnWindow, APasswordTypedAtThePromptIsStarsOnScreenAndNeitherEchoedNorKept) {
    serverAsks("\r\npassword: ");
    ASSERT_TRUE(loginIs(2));
    type("hidden", false);
    EXPECT_EQ(txtSend().displayText().indexOf(QStringLiteral("hidden")), -1);
    QTest::keyClick(&txtSend(), Qt::Key_Return);
    EXPECT_TRUE(serverGot("hidden\n"));
    EXPECT_EQ(console().find("hidden"), std::string::npos);
    loopback.send("fics% ");
    ASSERT_TRUE(loginIs(0));
    QTest::keyClick(&txtSend(), Qt::Key_Up);
    EXPECT_EQ(txtSend().line(), "");
}

TEST_F(LogOnWindow, TheMaskVanishesWithTheNextTextOfTheServer) {
    serverAsks("\r\npassword: ");
    ASSERT_TRUE(loginIs(2));
    loopback.send("\r\nwelcome\r\n");
    EXPECT_TRUE(waitUntil([&] { return txtSend().echoMode() == QLineEdit::Normal; }));
    EXPECT_EQ(client->session.pipeline.login, 0);
}

TEST_F(LogOnWindow, WithAutoLogonASessionNeedsNoKeyPress) {
    autoLogOn();
    loopback.send("\r\n**** Starting FICS session as anders ****\r\n\r\nfics% ");
    EXPECT_TRUE(serverGot("anders\nsecret\nSet Style 12\n"));
    EXPECT_EQ(modChess.MyHandle, "anders");
}

TEST_F(LogOnWindow, TheAutomaticHandleIsEchoedBehindItsPrompt) {
    set("Auto_Logon", "True");
    serverAsks("\r\nWelcome to this server.\r\nlogin: ");
    ASSERT_TRUE(serverGot("anders\n"));
    EXPECT_TRUE(console().ends_with("login: anders\n")) << console();
}

TEST_F(LogOnWindow, TwoPromptsInOneArrivalAreAnsweredOnce) {
    set("Auto_Logon", "True");
    serverAsks("\r\nType your handle behind login: now.\r\nlogin: ");
    ASSERT_TRUE(serverGot("anders\n"));
    runFor(50);
    EXPECT_EQ(loopback.received, "anders\n");
    EXPECT_EQ(txtSend().line(), "");
}

// The first answer leaves the handle in the history, where Up would find it.
TEST_F(LogOnWindow, AKeyWhosePromptHasGoneDoesNotWalkTheHistory) {
    autoLogOn();
    client->session.timerFired(SessionTimer::AutoLogon);
    EXPECT_EQ(txtSend().line(), "");
    EXPECT_EQ(loopback.received, "anders\nsecret\n");
    QTest::keyClick(&txtSend(), Qt::Key_Up);
    EXPECT_EQ(txtSend().line(), "anders");
}

TEST_F(LogOnWindow, TheHandleReachesPanel1OfEveryBoard) {
    autoLogOn();
    ASSERT_EQ(boards().size(), 1U);
    EXPECT_EQ(boards()[0]->findChild<QLabel*>(QStringLiteral("stbGame(1)"))->text(), QStringLiteral("anders"));
}

TEST_F(LogOnWindow, AutoLogonPutsTheFocusOnTheTypingLine) {
    set("Auto_Logon", "True");
    connected();
    client->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(client.get()));
    txtOutput().setFocus();
    loopback.send("\r\nlogin: ");
    ASSERT_TRUE(serverGot("anders\n"));
    EXPECT_TRUE(txtSend().hasFocus());
}

TEST_F(LogOnWindow, EachPromptWithAutoLogonSendsTheStoredAnswerAgain) {
    set("Auto_Logon", "True");
    serverAsks("\r\nlogin: ");
    ASSERT_TRUE(serverGot("anders\n"));
    loopback.send("\r\nlogin: ");
    EXPECT_TRUE(serverGot("anders\nanders\n"));
}
