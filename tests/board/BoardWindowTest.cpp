// How a board window carries out what its game says: texts, first layout, coming to the front, closing in a pump.
#include "board/BoardRig.h"
#include "board/frmChessBoard.h"
#include "platform/OpenWindows.h"
#include "settings/MemoryStore.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

// A loaded board that sends into `sent`.
struct BoardWindowTest : testing::Test {
    std::vector<std::string> sent;
    BoardRoads roads;
    QPointer<frmChessBoard> board;

    BoardWindowTest() {
        modChess = {};
        roads.store = memoryStore(std::make_shared<MemoryValues>());
        roads.zSendMsg = [this](const std::string& text) { sent.push_back(text); };
        roads.zSend = [this](const std::string& text) {
            sent.push_back(text);
            return true;
        };
    }
    ~BoardWindowTest() override {
        modChess = {};
        modChess.AppClosing = true; // no question
        if (board) board->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        modChess = {};
    }

    void open() {
        board = new frmChessBoard(roads);
        board->load();
    }
    void receive(const LineOf& line) {
        modChess.Record = recordOf(line);
        board->game.zGS();
        board->game.zSetPosition(false);
    }
    template <typename Widget>
    Widget* part(const char* name) {
        return board->findChild<Widget*>(QString::fromLatin1(name));
    }
};

} // namespace

TEST_F(BoardWindowTest, ATellButtonSendsItsTextByteForByte) {
    roads.tellText = [](int index) { return index == 3 ? std::string("say d\xE9j\xE0 vu") : std::string(); };
    open();
    part<QToolButton>("cmdTell(3)")->click();
    EXPECT_EQ(sent, std::vector<std::string>{"say d\xE9j\xE0 vu"});
}

TEST_F(BoardWindowTest, TheUsersHandleAndTheLastMoveAreShownCharacterByCharacter) {
    modChess.MyHandle = "Ren\xE9";
    open();
    EXPECT_EQ(part<QLabel>("stbGame(1)")->text(), QStringLiteral("Ren\u00E9"));
    receive({.turn = "B", .moveNumber = 1, .verbose = "P/e2-e4", .pretty = "e4\xA7"});
    EXPECT_EQ(part<QLabel>("lblMove")->text(), QStringLiteral("1. e4\u00A7"));
}

TEST_F(BoardWindowTest, TheCommandLineTakesTheConsolesColoursAndFont) {
    modChess.ColorBar = 0x112233;
    modChess.ColorType = 0x445566;
    roads.typingFont = [] { return QFont(QStringLiteral("monospace"), 17); };
    open();
    const QLineEdit* txtSend = part<QLineEdit>("txtSend");
    EXPECT_EQ(txtSend->palette().color(QPalette::Base), QColor(0x33, 0x22, 0x11));
    EXPECT_EQ(txtSend->palette().color(QPalette::Text), QColor(0x66, 0x55, 0x44));
    EXPECT_EQ(txtSend->font().pointSize(), 17);
    EXPECT_EQ(txtSend->font().family(), QStringLiteral("monospace"));
}

TEST_F(BoardWindowTest, TheRowsOfTheGridAreCountedByTheEndOfTheLoad) {
    open();
    const int counted = board->game.grdMoves.VisibleRows;
    board->game.zBoardSetup(false);
    EXPECT_EQ(counted, board->game.grdMoves.VisibleRows);
    EXPECT_GT(counted, 5);
}

TEST_F(BoardWindowTest, AMinimisedBoardPopsUpForItsNewGame) {
    open();
    board->showMinimized();
    ASSERT_TRUE(board->isMinimized());
    board->game.surface.bringToFront();
    EXPECT_FALSE(board->isMinimized());
    EXPECT_TRUE(board->isVisible());
}

TEST_F(BoardWindowTest, ABoardThatClosesWhileItsPositionArrivesEndsTheUpdate) {
    open();
    QTimer::singleShot(0, board, [this] {
        modChess.AppClosing = true;
        board->close();
    });
    modChess.NewGameFlag = true;
    modChess.Record = recordOf({});
    board->game.zGS();
    EXPECT_FALSE(board->game.zSetPosition(false));
    EXPECT_EQ(openWindows.count("frmChessBoard"), 0);
    EXPECT_FALSE(modChess.GameRunning) << "the steps behind the pump are left out";
}
