// Chat boxes in the program: how they open, talk with a server on a real socket, and go.
#include "platform/EventCount.h"
#include "session/ChatWindowRig.h"

#include <QClipboard>

#include <gmock/gmock.h>

namespace {

class ChatWiring : public ChatWindowRig {
protected:
    // Connected and logged on as Anders, prompt learnt.
    void loggedOn() {
        connected();
        modChess.gPrompt = "fics% ";
        modChess.MyHandle = "Anders";
        txtOutput().insert(std::string(200, '.') + "\r\n"); // longer than any conversation here
    }
    void tellFrom(const frmChat& chat, const char* text) {
        QTest::keyClicks(&txtTell(chat), QString::fromLatin1(text));
        QTest::keyClick(&txtTell(chat), Qt::Key_Return);
    }
    static bool shows(const frmChat& chat, const std::string& text) {
        return waitUntil([&] { return txtChat(chat).text().find(text) != std::string::npos; });
    }
};

} // namespace

// Ways to open one

TEST_F(ChatWiring, MenuAndButtonFocusTheCommandLineAndOpenABox) {
    start();
    EXPECT_TRUE(entry("mnuChat").isEnabled());
    EXPECT_EQ(entry("mnuChat").text(), QStringLiteral("C&hat"));
    txtOutput().setFocus();
    entry("mnuChat").trigger();
    EXPECT_EQ(client->focusWidget(), &txtSend());
    txtOutput().setFocus();
    button(QStringLiteral("cmdChat")).click();
    EXPECT_EQ(client->focusWidget(), &txtSend());
    EXPECT_EQ(openWindows.count("frmChat"), 2);
}

TEST_F(ChatWiring, ShiftF9InTheCommandLineOpensABoxAndF9AloneDoesNot) {
    start();
    txtSend().setLine("text");
    QTest::keyClick(&txtSend(), Qt::Key_F9, Qt::ShiftModifier);
    EXPECT_EQ(openWindows.count("frmChat"), 1);
    EXPECT_EQ(txtSend().line(), "text");
    QTest::keyClick(&txtSend(), Qt::Key_F9);
    EXPECT_EQ(openWindows.count("frmChat"), 1);
}

TEST_F(ChatWiring, ASecondBoxDoesNotProposeTheSameBuddy) {
    start();
    modChess.TellTarget = "Bob";
    openChat("Bob");
    openChat("Ann");
    EXPECT_EQ(messages, (std::vector<std::string>{"Chat Box: Chat with /Bob", "Chat Box: Chat with /"}));
}

TEST_F(ChatWiring, ShiftF9OnABoardRaisesTheBoxOfTheTellTargetAndOpensOneOnlyWhereThereIsNone) {
    start();
    modChess.TellTarget = "Bob";
    client->session.showChat();
    ASSERT_TRUE(waitUntil([this] { return messages.size() == 1; }));
    EXPECT_EQ(messages.back(), "Chat Box: Chat with /Bob");
    frmChat& bob = *chats().back();
    openChat("Ann");
    bob.showMinimized();
    txtChat(bob).setFocus();
    const EventCount raised(bob, QEvent::ZOrderChange);
    client->session.showChat();
    EXPECT_EQ(raised.count, 1);
    EXPECT_TRUE(waitUntil([&] { return QApplication::activeWindow() == &bob; }));
    EXPECT_EQ(openWindows.count("frmChat"), 2);
    EXPECT_FALSE(bob.isMinimized());
    EXPECT_EQ(bob.focusWidget(), &txtTell(bob));
}

TEST_F(ChatWiring, ShiftF9OnABoardWithoutATellTargetOpensABoxEvenBesideOneThatHasNoNameYet) {
    start();
    client->session.zNewChat();
    client->session.showChat();
    EXPECT_EQ(openWindows.count("frmChat"), 2);
}

// Talking

TEST_F(ChatWiring, ATellReachesItsBoxAndNotTheConsole) {
    loggedOn();
    const frmChat& chat = openChat("bob");
    loopback.send("\n\rBob(TM)(*) tells you: hi there\n\r\\   and more\n\rfics% ");
    EXPECT_TRUE(shows(chat, "hi there\nand more\n"));
    EXPECT_EQ(caption(chat), "Chat with Bob");
    EXPECT_EQ(console().find("hi there"), std::string::npos);
    EXPECT_THAT(sounds, testing::ElementsAre("whistle.wav"));
}

TEST_F(ChatWiring, AnAnswerGoesOutAndItsEchoStaysInTheBox) {
    loggedOn();
    const frmChat& chat = openChat("Bob");
    tellFrom(chat, "hello");
    EXPECT_TRUE(serverGot("Tell Bob hello\n"));
    EXPECT_EQ(txtChat(chat).text(), "hello\n");
    EXPECT_EQ(txtTell(chat).line(), "");
    loopback.send("(told Bob, who is playing)\n\rfics% \n\rafterwards\n\rfics% ");
    EXPECT_TRUE(consoleHas("afterwards"));
    EXPECT_EQ(caption(chat), "Chatting with Bob (who is playing)");
    EXPECT_EQ(console().find("told"), std::string::npos);
}

TEST_F(ChatWiring, PastedLinesGoOutAsOneTell) {
    loggedOn();
    const frmChat& chat = openChat("Bob");
    QApplication::clipboard()->setText(QStringLiteral("one\nquit"));
    txtTell(chat).paste();
    QTest::keyClick(&txtTell(chat), Qt::Key_Return);
    EXPECT_TRUE(serverGot("Tell Bob one quit\n"));
    EXPECT_EQ(txtChat(chat).text(), "one quit\n");
}

TEST_F(ChatWiring, AChannelBoxShowsOthersAndTheOwnWordsOnce) {
    loggedOn();
    const frmChat& chat = openChat("50");
    tellFrom(chat, "mine");
    EXPECT_TRUE(serverGot("Tell 50 mine\n"));
    loopback.send("\n\rAnders(50): mine\n\rfics% \n\r\n\rBob(50): yours\n\rfics% ");
    EXPECT_TRUE(shows(chat, "yours"));
    EXPECT_EQ(txtChat(chat).text(), "mine\nBob(50): yours\n");
    EXPECT_EQ(console().find("mine"), std::string::npos);
}

TEST_F(ChatWiring, AHostileTellStaysTextAndBreaksNothing) {
    loggedOn();
    const frmChat& chat = openChat("Bob");
    loopback.send("\n\rBob tells you: <b>x</b> \x1b[31m %s%n \xff " + std::string(5000, 'a') + "\n\rfics% ");
    EXPECT_TRUE(shows(chat, "<b>x</b> \x1b[31m %s%n \xff "));
    EXPECT_TRUE(waitUntil([&] { return std::ranges::count(txtChat(chat).text(), 'a') == 5000; }));
}

TEST_F(ChatWiring, AClosedBoxGetsNothingMore) {
    loggedOn();
    openChat("Bob").close();
    loopback.send("\n\rBob tells you: hi\n\rfics% ");
    EXPECT_TRUE(consoleHas("Bob tells you: hi"));
}

// Life

TEST_F(ChatWiring, TheEndOfTheConnectionClosesNoBox) {
    loggedOn();
    openChat("Bob");
    loopback.hangUp();
    ASSERT_TRUE(waitUntil([this] { return socketState() == 0; }));
    client->session.connection.tmrTCPTimer();
    EXPECT_EQ(openWindows.count("frmChat"), 1);
}

TEST_F(ChatWiring, TheEndOfTheProgramClosesAndSavesEveryBox) {
    start();
    put(openChat("Bob"), {100, 50, 500, 400});
    const QPointer<frmChat> other(&openChat("Ann"));
    put(*other, {60, 40, 300, 200});
    client->close();
    EXPECT_EQ(openWindows.count("frmChat"), 0);
    EXPECT_EQ(stored("Chat", "Left"), "900") << "the younger one last";
    EXPECT_TRUE(waitUntil([&] { return other.isNull(); }));
}

TEST_F(ChatWiring, NoBoxOpensWhileTheProgramEnds) {
    start();
    modChess.AppClosing = true;
    client->session.zNewChat();
    EXPECT_EQ(openWindows.count("frmChat"), 0);
}
