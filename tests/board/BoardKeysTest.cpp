// A board by keyboard: what Tab and the mnemonics reach, and what keys do on a button.
#include "board/BoardWindowRig.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class BoardKeys : public BoardWindowRig {
protected:
    BoardKeys() {
        roads.tellText = [](int index) { return "command " + std::to_string(index); };
        boxes.yesNo = [this](QWidget*, const std::string&, const std::string& text) {
            asked.push_back("yes or no: " + text);
            return okay;
        };
        boxes.confirm = [this](QWidget*, const std::string&, const std::string& text) {
            asked.push_back("rather not: " + text);
            return okay;
        };
        board = &open();
        board->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(board));
    }

    std::string focused() const { return board->focusWidget() ? board->focusWidget()->objectName().toStdString() : ""; }
    TypingLine& line() const { return part<TypingLine>(*board, "txtSend"); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::keyClick(board->focusWidget(), key, modifiers);
    }

    frmChessBoard* board = nullptr;
};

} // namespace

TEST_F(BoardKeys, TabGoesFromTheLineOverEveryButtonTheListAndTheBoardAndBackToIt) {
    position(board->game, 0); // an observed game, which can be left
    std::vector<std::string> reached{focused()};
    do {
        press(Qt::Key_Tab);
        reached.push_back(focused());
    } while (focused() != "txtSend" && reached.size() < 40);
    std::vector<std::string> wanted{"txtSend"};
    for (int index = 0; index < 10; ++index) wanted.push_back("cmdTell(" + std::to_string(index) + ")");
    wanted.emplace_back("grdMoves");
    for (int index = 0; index < 5; ++index) wanted.push_back("cmdScroll(" + std::to_string(index) + ")");
    for (const char* name : {"cmdDraw", "cmdRes", "cmdUn", "picChess", "txtSend"}) wanted.emplace_back(name);
    EXPECT_EQ(reached, wanted);
    press(Qt::Key_Backtab);
    EXPECT_EQ(focused(), "picChess");
}

TEST_F(BoardKeys, AClickLeavesTheKeysInTheLine) {
    okay = false;
    QTest::mouseClick(&part(*board, "cmdRes"), Qt::LeftButton);
    QTest::mouseClick(&part(*board, "cmdScroll(0)"), Qt::LeftButton);
    EXPECT_EQ(focused(), "txtSend");
}

TEST_F(BoardKeys, SpaceAndEnterPressTheButtonThatHasTheFocus) {
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        typed.clear();
        part(*board, "cmdTell(3)").setFocus();
        press(key);
        EXPECT_THAT(typed, ElementsAre("command 3"));
        EXPECT_EQ(focused(), "txtSend");
        EXPECT_EQ(line().line(), "");
    }
}

TEST_F(BoardKeys, EnterOnAButtonSendsNoLine) {
    line().setLine("say wait");
    part(*board, "cmdRes").setFocus();
    press(Qt::Key_Return);
    EXPECT_THAT(asked, ElementsAre("rather not: Resign"));
    EXPECT_THAT(typed, IsEmpty());
    EXPECT_EQ(line().line(), "say wait");
}

TEST_F(BoardKeys, ACharacterTypedOnAButtonGoesOnInTheLine) {
    line().setLine("who");
    line().setCursorPosition(0);
    part(*board, "cmdDraw").setFocus();
    QTest::keyClick(board->focusWidget(), 'X');
    EXPECT_EQ(focused(), "txtSend");
    press(Qt::Key_Y);
    EXPECT_EQ(line().line(), "whoXy");
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(BoardKeys, KeysThatAreNoCharactersStayWithTheButton) {
    part(*board, "cmdDraw").setFocus();
    press(Qt::Key_F9);
    press(Qt::Key_Delete);
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(line().line(), "");
    EXPECT_EQ(focused(), "cmdDraw");
}

TEST_F(BoardKeys, EscapeOnAButtonGoesBackToTheLine) {
    part(*board, "cmdDraw").setFocus();
    press(Qt::Key_Escape);
    EXPECT_EQ(focused(), "txtSend");
    EXPECT_TRUE(board->isVisible());
}

TEST_F(BoardKeys, DrawResignAndTheTenCommandsHaveKeysOfTheirOwn) {
    okay = true;
    press(Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(waitUntil([this] { return typed.size() == 1; })); // a button is seen to go down first
    press(Qt::Key_R, Qt::AltModifier);
    EXPECT_TRUE(waitUntil([this] { return typed.size() == 2; }));
    EXPECT_THAT(asked, ElementsAre("yes or no: Draw", "rather not: Resign"));
    EXPECT_THAT(typed, ElementsAre("Draw", "Resign"));
    typed.clear();
    press(Qt::Key_1, Qt::AltModifier);
    EXPECT_TRUE(waitUntil([this] { return typed.size() == 1; }));
    press(Qt::Key_0, Qt::AltModifier);
    EXPECT_TRUE(waitUntil([this] { return typed.size() == 2; }));
    EXPECT_THAT(typed, ElementsAre("command 0", "command 9"));
    EXPECT_EQ(line().line(), "");
}

TEST_F(BoardKeys, UnobserveHasAKeyAndGivesTheLineTheKeysBack) {
    position(board->game, 0);
    part(*board, "cmdUn").setFocus();
    press(Qt::Key_U, Qt::AltModifier);
    EXPECT_TRUE(waitUntil([this] { return !sent.empty(); }));
    EXPECT_EQ(sent, (std::vector<std::string>{"unob"}));
    EXPECT_EQ(focused(), "txtSend");
}

TEST_F(BoardKeys, NoKeyOfAButtonIsThatOfAMenu) {
    std::string letters;
    for (const QAction* menu : board->menuBar()->actions()) {
        letters += menu->text().at(menu->text().indexOf(u'&') + 1).toLower().toLatin1();
    }
    for (const auto* button : board->findChildren<QPushButton*>()) {
        const auto place = button->text().indexOf(u'&');
        ASSERT_GE(place, 0) << button->objectName().toStdString();
        const char letter = button->text().at(place + 1).toLower().toLatin1();
        EXPECT_EQ(letters.find(letter), letters.npos) << letter;
        letters += letter;
    }
}

TEST_F(BoardKeys, TheButtonThatHasTheFocusLooksSo) {
    for (const char* name : {"cmdTell(0)", "cmdScroll(1)", "cmdDraw", "cmdRes"}) {
        QWidget& button = part(*board, name);
        line().setFocus();
        const QImage before = button.grab().toImage();
        while (board->focusWidget() != &button) press(Qt::Key_Tab);
        EXPECT_NE(button.grab().toImage(), before) << name;
    }
}
