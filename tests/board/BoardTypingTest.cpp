// A board window's own typing line and the buttons that type into it.
#include "board/BoardWindowRig.h"

namespace {

class BoardTyping : public BoardWindowRig {
protected:
    frmChessBoard& board = open();
    TypingLine& txtSend = part<TypingLine>(board, "txtSend");
};

} // namespace

TEST_F(BoardTyping, EnterSendsTheLineWhileConnectedAndKeepsItOtherwise) {
    QTest::keyClicks(&txtSend, QStringLiteral("who"));
    QTest::keyClick(&txtSend, Qt::Key_Return);
    EXPECT_EQ(typed, (std::vector<std::string>{"who"}));
    EXPECT_EQ(txtSend.line(), "");
    connected = false;
    QTest::keyClicks(&txtSend, QStringLiteral("who"));
    QTest::keyClick(&txtSend, Qt::Key_Return);
    EXPECT_EQ(txtSend.line(), "who");
    EXPECT_EQ(typed.size(), 1U);
}

TEST_F(BoardTyping, UpAndDownWalkTheConsolesHistory) {
    history.zPushCommand("older");
    history.zPushCommand("newer");
    QTest::keyClick(&txtSend, Qt::Key_Up);
    EXPECT_EQ(txtSend.line(), "newer");
    QTest::keyClick(&txtSend, Qt::Key_Up);
    EXPECT_EQ(txtSend.line(), "older");
    QTest::keyClick(&txtSend, Qt::Key_Down);
    EXPECT_EQ(txtSend.line(), "newer");
}

TEST_F(BoardTyping, UpPutsTheInsertionPointAtTheEndEvenOnAnEmptyHistory) {
    txtSend.setLine("before");
    txtSend.setCursorPosition(0);
    QTest::keyClick(&txtSend, Qt::Key_Up);
    EXPECT_EQ(txtSend.line(), "before");
    EXPECT_EQ(txtSend.cursorPosition(), 6);
}

TEST_F(BoardTyping, FunctionKeysReplaceTheLine) {
    modChess.TellTarget = "Bob";
    board.game.gameIndex = 42;
    const std::vector<std::pair<Qt::Key, std::string>> table{
        {Qt::Key_F5, "Say "}, {Qt::Key_F7, "xKibitz 42 "}, {Qt::Key_F8, "xWhisper 42 "}, {Qt::Key_F9, "Tell Bob "}};
    for (const auto& [key, text] : table) {
        txtSend.setLine("before");
        QTest::keyClick(&txtSend, key);
        EXPECT_EQ(txtSend.line(), text);
        EXPECT_EQ(txtSend.cursorPosition(), static_cast<int>(text.size()));
    }
}

TEST_F(BoardTyping, ShiftF9LeavesTheLine) {
    txtSend.setLine("before");
    QTest::keyClick(&txtSend, Qt::Key_F9, Qt::ShiftModifier);
    EXPECT_EQ(txtSend.line(), "before");
}

TEST_F(BoardTyping, ATellButtonSendsItsTextByteForByteAndGivesTheFocusBack) {
    tell = "tell J\xFCrgen hi";
    frmChessBoard& another = open();
    QTest::mouseClick(&part(another, "cmdTell(0)"), Qt::LeftButton);
    EXPECT_EQ(typed, (std::vector<std::string>{tell}));
    EXPECT_EQ(part<TypingLine>(another, "txtSend").line(), "");
    EXPECT_EQ(another.focusWidget(), &part(another, "txtSend"));
}

TEST_F(BoardTyping, ATellButtonWhileNotConnectedLeavesItsTextInTheLine) {
    connected = false;
    QTest::mouseClick(&part(board, "cmdTell(0)"), Qt::LeftButton);
    EXPECT_EQ(txtSend.line(), "finger");
}
