// A board window's own typing line and buttons, its piece sets, and its answer to a resize.
#include "board/frmChessBoard.h"
#include "common/modChess.h"
#include "platform/OpenWindows.h"
#include "platform/WaitUntil.h"
#include "settings/MemoryStore.h"

#include <QAction>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

class BoardTyping : public testing::Test {
protected:
    BoardTyping() {
        modChess = {};
        openWindows.windows.clear();
        roads.store = memoryStore(std::make_shared<MemoryValues>());
        roads.history = &history;
        roads.zSend = [this](const std::string& text) {
            if (connected) sent += text + "|";
            return connected;
        };
        roads.tellText = [](int index) { return std::string(index == 0 ? "tell J\xFCrgen hi" : ""); };
        board = std::make_unique<frmChessBoard>(roads);
        board->load();
    }
    ~BoardTyping() override {
        board.reset();
        modChess = {};
    }

    TypingLine& txtSend() const { return *board->findChild<TypingLine*>(QStringLiteral("txtSend")); }
    BoardView& picChess() const { return *board->findChild<BoardView*>(QStringLiteral("picChess")); }
    QToolButton& cmdTell(int index) const {
        return *board->findChild<QToolButton*>(QStringLiteral("cmdTell(%1)").arg(index));
    }
    void trigger(const char* name) const { board->findChild<QAction*>(QString::fromLatin1(name))->trigger(); }

    BoardRoads roads;
    CommandHistory history;
    std::unique_ptr<frmChessBoard> board;
    std::string sent;
    bool connected = true;
};

} // namespace

TEST_F(BoardTyping, FunctionKeysReplaceTheLine) {
    modChess.TellTarget = "Bob";
    board->game.gameIndex = 42;
    const std::vector<std::pair<Qt::Key, std::string>> table{
        {Qt::Key_F5, "Say "}, {Qt::Key_F7, "xKibitz 42 "}, {Qt::Key_F8, "xWhisper 42 "}, {Qt::Key_F9, "Tell Bob "}};
    for (const auto& [key, text] : table) {
        txtSend().setLine("before");
        QTest::keyClick(&txtSend(), key);
        EXPECT_EQ(txtSend().line(), text);
        EXPECT_EQ(txtSend().cursorPosition(), static_cast<int>(text.size()));
    }
}

TEST_F(BoardTyping, ShiftF9LeavesTheLine) {
    txtSend().setLine("before");
    QTest::keyClick(&txtSend(), Qt::Key_F9, Qt::ShiftModifier);
    EXPECT_EQ(txtSend().line(), "before");
}

TEST_F(BoardTyping, UpPutsTheInsertionPointAtTheEndEvenOnAnEmptyHistory) {
    txtSend().setLine("before");
    txtSend().setCursorPosition(0);
    QTest::keyClick(&txtSend(), Qt::Key_Up);
    EXPECT_EQ(txtSend().line(), "before");
    EXPECT_EQ(txtSend().cursorPosition(), 6);
}

TEST_F(BoardTyping, ATellButtonSendsItsTextWithItsLatin1Letters) {
    cmdTell(0).click();
    EXPECT_EQ(sent, "tell J\xFCrgen hi|");
    EXPECT_EQ(txtSend().line(), "");
}

TEST_F(BoardTyping, ATellButtonWhileNotConnectedLeavesItsTextInTheLine) {
    connected = false;
    cmdTell(0).click();
    EXPECT_EQ(sent, "");
    EXPECT_EQ(txtSend().line(), "tell J\xFCrgen hi");
}

TEST_F(BoardTyping, AnotherPieceSetIsShownAndAloneIsChecked) {
    trigger("mnuGNU");
    EXPECT_EQ(modChess.ChessSet, 2);
    EXPECT_GE(picChess().geometry().PieceList, 16);
    EXPECT_TRUE(board->findChild<QAction*>(QStringLiteral("mnuGNU"))->isChecked());
    EXPECT_FALSE(board->findChild<QAction*>(QStringLiteral("mnuBookup"))->isChecked());
}

TEST_F(BoardTyping, TheFirstResizeByHandFitsTheBoardASecondLater) {
    runFor(1200); // the first firing of tmrResize, which fits nothing
    const auto before = picChess().geometry().SquarePixels;
    board->resize(board->width(), board->height() - 8 * 10);
    runFor(500);
    EXPECT_EQ(picChess().geometry().SquarePixels, before) << "not with every step of a drag";
    EXPECT_TRUE(waitUntil([&] { return picChess().geometry().SquarePixels == before - 10; }, 3000));
}
