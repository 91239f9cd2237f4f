// The command line, the rows of buttons and the console's own keys, with real key presses.
#include "session/ClientRig.h"

#include <QClipboard>

namespace {

class TypingWindow : public ClientRig {};

QString tell(int index) { return QStringLiteral("cmdTell(%1)").arg(index); }

} // namespace

TEST_F(TypingWindow, EnterSendsEchoesAndEmptiesTheLine) {
    connected();
    type("who");
    EXPECT_TRUE(serverGot("who\n"));
    EXPECT_EQ(txtSend().line(), "");
    EXPECT_TRUE(consoleHas("who\n"));
}

TEST_F(TypingWindow, PastedLinesGoOutAsOneCommand) {
    connected();
    QApplication::clipboard()->setText(QStringLiteral("finger a\nresign"));
    txtSend().paste();
    QTest::keyClick(&txtSend(), Qt::Key_Return);
    EXPECT_TRUE(serverGot("finger a resign\n"));
    EXPECT_TRUE(consoleHas("finger a resign\n"));
    QTest::keyClick(&txtSend(), Qt::Key_Up);
    EXPECT_EQ(txtSend().line(), "finger a resign");
}

TEST_F(TypingWindow, WhileNotConnectedTheTextStays) {
    start();
    type("who");
    EXPECT_EQ(txtSend().line(), "who");
    EXPECT_EQ(console().find("who"), std::string::npos);
}

TEST_F(TypingWindow, TheEchoIsInTheCopyColourAndTheNextTextInTheMainColour) {
    connected();
    type("who");
    ASSERT_TRUE(consoleHas("who"));
    QTextCursor cursor(txtOutput().document());
    cursor.setPosition(static_cast<int>(console().find("who")) + 1);
    EXPECT_EQ(cursor.charFormat().foreground().color(), QColor(0xA9, 0xC9, 0xE2));
}

TEST_F(TypingWindow, UpAndDownWalkTheHistoryAndTheEditedTextSurvives) {
    connected();
    type("first");
    type("second");
    type("half", false);
    QTest::keyClick(&txtSend(), Qt::Key_Up);
    EXPECT_EQ(txtSend().line(), "second");
    QTest::keyClick(&txtSend(), Qt::Key_Up);
    EXPECT_EQ(txtSend().line(), "first");
    EXPECT_EQ(txtSend().cursorPosition(), 5);
    QTest::keyClick(&txtSend(), Qt::Key_Down);
    QTest::keyClick(&txtSend(), Qt::Key_Down);
    EXPECT_EQ(txtSend().line(), "half");
}

TEST_F(TypingWindow, FunctionKeysReplaceTheTextByTheirWord) {
    start();
    modChess.TellTarget = "Bob";
    const std::pair<Qt::Key, const char*> keys[] = {
        {Qt::Key_F5, "Say "}, {Qt::Key_F7, "Kibitz "}, {Qt::Key_F8, "Whisper "}, {Qt::Key_F9, "Tell Bob "}};
    for (const auto& [key, word] : keys) {
        txtSend().setLine("old text");
        QTest::keyClick(&txtSend(), key);
        EXPECT_EQ(txtSend().line(), word);
        EXPECT_EQ(txtSend().cursorPosition(), static_cast<int>(txtSend().line().size()));
    }
}

TEST_F(TypingWindow, HelpOpensThePanelWithItsTopicAndTheServerGetsNothing) {
    std::vector<std::string> topics;
    roads.doors.startHelp = [&topics] { topics.push_back(modChess.gHelpTopic); };
    connected();
    type("he tactics");
    type("h");
    EXPECT_TRUE(serverGot("h\n"));
    EXPECT_EQ(topics, std::vector<std::string>{"tactics"});
    EXPECT_TRUE(consoleHas("he tactics"));
}

TEST_F(TypingWindow, ATellButtonSendsItsToolTipByTheTypedRoute) {
    set("Tell_0", "finger");
    set("Tell_9", "who a");
    connected();
    QTest::mouseClick(&button(tell(0)), Qt::LeftButton);
    QTest::mouseClick(&button(tell(9)), Qt::LeftButton);
    EXPECT_TRUE(serverGot("finger\nwho a\n"));
    EXPECT_TRUE(consoleHas("finger"));
    QTest::keyClick(&txtSend(), Qt::Key_Up);
    EXPECT_EQ(txtSend().line(), "who a");
}

TEST_F(TypingWindow, AButtonWithACommandTakesTheFocusToTheLine) {
    set("Tell_0", "finger");
    start();
    for (const QString& name : {tell(0), QStringLiteral("cmdAcc"), QStringLiteral("cmdDec")}) {
        txtOutput().setFocus();
        QTest::mouseClick(&button(name), Qt::LeftButton);
        EXPECT_EQ(client->focusWidget(), &txtSend()) << name.toStdString();
    }
}

TEST_F(TypingWindow, ATellButtonWithoutATextDoesNothingAndLooksUnavailable) {
    connected();
    txtSend().setLine("keep");
    EXPECT_FALSE(button(tell(3)).isEnabled());
    QTest::mouseClick(&button(tell(3)), Qt::LeftButton);
    EXPECT_EQ(txtSend().line(), "keep");
    runFor(20);
    EXPECT_EQ(loopback.received, "");
}

TEST_F(TypingWindow, ATellButtonWhileNotConnectedLeavesItsTextInTheLine) {
    set("Tell_1", "sought");
    start();
    QTest::mouseClick(&button(tell(1)), Qt::LeftButton);
    EXPECT_EQ(txtSend().line(), "sought");
}

TEST_F(TypingWindow, AButtonCommandKeepsItsLatin1Letters) {
    set("Tell_2", "shout caf\xE9");
    connected();
    QTest::mouseClick(&button(tell(2)), Qt::LeftButton);
    EXPECT_TRUE(serverGot("shout caf\xE9\n"));
}

TEST_F(TypingWindow, AcceptAndDeclineSendTheirWords) {
    connected();
    QTest::mouseClick(&button(QStringLiteral("cmdAcc")), Qt::LeftButton);
    QTest::mouseClick(&button(QStringLiteral("cmdDec")), Qt::LeftButton);
    EXPECT_TRUE(serverGot("Accept\nDecline\n"));
}

TEST_F(TypingWindow, AKeyTypedOnTheConsoleLandsAtTheEndOfTheLineWithTheFocus) {
    start();
    client->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(client.get()));
    txtSend().setLine("tel");
    txtSend().setCursorPosition(0);
    txtOutput().setFocus();
    QTest::keyClick(&txtOutput(), Qt::Key_L);
    EXPECT_EQ(txtSend().line(), "tell");
    EXPECT_EQ(txtSend().cursorPosition(), 4);
    EXPECT_TRUE(txtSend().hasFocus());
}

TEST_F(TypingWindow, CopyPasteAndCutKeysStayWithTheConsole) {
    start();
    for (const Qt::Key key : {Qt::Key_C, Qt::Key_V, Qt::Key_X}) {
        QTest::keyClick(&txtOutput(), key, Qt::ControlModifier);
    }
    EXPECT_EQ(txtSend().line(), "");
}

TEST_F(TypingWindow, UpOnTheConsoleLeavesTheLineAloneWhenNoPromptWaits) {
    start();
    txtSend().setLine("keep");
    QTest::keyClick(&txtOutput(), Qt::Key_Up);
    EXPECT_EQ(txtSend().line(), "keep");
    EXPECT_EQ(console(), "");
}

TEST_F(TypingWindow, AfterARightPressTheNextTextGoesInAtTheEnd) {
    connected();
    loopback.send("fics% ");
    type("one");
    ASSERT_TRUE(consoleHas("one"));
    txtOutput().moveCursor(QTextCursor::Start);
    QTest::mousePress(txtOutput().viewport(), Qt::RightButton, Qt::NoModifier, QPoint(5, 5));
    EXPECT_TRUE(txtOutput().textCursor().atEnd());
    const std::string before = console();
    loopback.send("\r\nA line long enough to be no prompt\r\nfics% ");
    ASSERT_TRUE(consoleHas("no prompt"));
    EXPECT_EQ(console().substr(0, before.size()), before);
    QTest::mouseRelease(txtOutput().viewport(), Qt::RightButton, Qt::NoModifier, QPoint(5, 5));
}
