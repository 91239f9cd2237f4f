// A board window's life: load, place, cascade, titles and panels, closing.
#include "board/BoardWindowRig.h"

#include "platform/EndedProgram.h"

#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QScreen>
#include <QTemporaryDir>
#include <QWindow>

namespace {

class BoardLife : public BoardWindowRig {
protected:
    // Runs the rest of the test in a folder of its own with an older settings file.
    bool olderFile(const char* text) {
        QDir::setCurrent(folder.path());
        QFile file(folder.filePath(QStringLiteral("peistenam.def")));
        return file.open(QIODevice::WriteOnly) && file.write(text) > 0;
    }
    ~BoardLife() override { QDir::setCurrent(startFolder); }

    QString startFolder = QDir::currentPath();
    QTemporaryDir folder;
};

} // namespace

// Load

TEST_F(BoardLife, AfterLoadTheBoardIsIdleShownAndNamed) {
    frmChessBoard& board = open();
    EXPECT_TRUE(board.isVisible());
    EXPECT_EQ(board.game.xMyRel(), "-100");
    EXPECT_EQ(board.game.gameIndex, 0);
    EXPECT_EQ(board.game.Turn, 1);
    EXPECT_FALSE(board.game.GameLoaded);
    EXPECT_EQ(title(board), "Brightrank - Board");
    EXPECT_EQ(openWindows.count("frmChessBoard"), 1);
}

TEST_F(BoardLife, Panel1ShowsTheHandleAndTheTellButtonsTheConsolesCommands) {
    modChess.MyHandle = "anders";
    tell = "shout caf\xE9";
    frmChessBoard& board = open();
    EXPECT_EQ(label(board, "stbGame(1)"), "anders");
    EXPECT_EQ(part(board, "cmdTell(0)").toolTip().toLatin1().toStdString(), tell);
    EXPECT_TRUE(part(board, "cmdTell(0)").isEnabled());
    EXPECT_FALSE(part(board, "cmdTell(1)").isEnabled());
}

TEST_F(BoardLife, SelfCheckIsHiddenWithoutItsCommandLine) { EXPECT_FALSE(entry(open(), "mnuSelfCheck").isVisible()); }

TEST_F(BoardLife, ACommandLineThatHoldsEstShowsSelfCheck) {
    if (QApplication::arguments().size() > 1) {
        EXPECT_TRUE(entry(open(), "mnuSelfCheck").isVisible());
        return;
    }
    // This test once more, in a process with such a command line.
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    const QString filter = QStringLiteral("--gtest_filter=BoardLife.%1").arg(QString::fromLatin1(test->name()));
    const EndedProgram ended = runToEnd(QApplication::applicationFilePath(), {filter, QStringLiteral("contest")});
    EXPECT_EQ(ended.status, 0) << ended.out;
    EXPECT_NE(ended.out.find("1 test "), std::string::npos);
}

TEST_F(BoardLife, EachBoardHasANumberOfItsOwn) { EXPECT_NE(open().game.id, open().game.id); }

// Place

TEST_F(BoardLife, AFirstStartOpensAtTheTopLeftCornerInTheDesignedSize) {
    frmChessBoard& board = open();
    EXPECT_EQ(board.pos(), QPoint(0, 0));
    EXPECT_EQ(inner(board).width(), 8 * 54 + 186);
}

TEST_F(BoardLife, AFirstStartOpensBesideTheConsoleWhereBothFit) {
    QRect console(0, 0, 60, 80);
    roads.consoleFrame = [&console] { return console; };
    frmChessBoard& board = open();
    EXPECT_FALSE(board.frameGeometry().intersects(console));
    EXPECT_EQ(board.pos().y(), 0);
    EXPECT_GE(board.pos().x(), 60);
    delete &board;
    console.setWidth(QApplication::primaryScreen()->size().width() - 100);
    EXPECT_EQ(open().pos(), QPoint(0, 0)) << "no room beside it";
}

TEST_F(BoardLife, WithoutAPlaceItOpensBesideTheConsoleOnTheScreenOfThat) {
    const QRect other = QGuiApplication::screens().last()->geometry();
    ASSERT_GT(other.left(), 0);
    QRect console(other.left() + 60, 30, 60, 80);
    roads.consoleFrame = [&console] { return console; };
    for (const int left : {console.left(), other.left() - 20}) {
        console.moveLeft(left); // most of it is on that screen
        frmChessBoard& board = open();
        EXPECT_TRUE(other.contains(board.frameGeometry())) << left;
        EXPECT_FALSE(board.frameGeometry().intersects(console)) << left;
        EXPECT_EQ(board.pos().y(), 30) << left;
        delete &board;
    }
}

TEST_F(BoardLife, WithoutAPlaceAndRoomBesideTheConsoleItOpensAtTheCornerInTheDesignedSize) {
    QRect console = QGuiApplication::screens().last()->geometry();
    roads.consoleFrame = [&console] { return console; };
    frmChessBoard& board = open();
    EXPECT_EQ(board.pos(), QPoint(0, 0));
    EXPECT_EQ(inner(board).width(), 8 * 54 + 186);
    delete &board;
    const QRect first = QGuiApplication::primaryScreen()->geometry();
    console = QRect(first.center().x(), -80, 60, 40);
    ASSERT_FALSE(QGuiApplication::screenAt(console.center())) << "it is on no screen";
    EXPECT_EQ(open().pos(), QPoint(0, 0));
}

TEST_F(BoardLife, ASavedPlaceThatFitsIsTaken) {
    savedPlace("150", "300", "8190", "7035");
    frmChessBoard& board = open();
    EXPECT_EQ(board.pos(), QPoint(10, 20));
}

TEST_F(BoardLife, ASavedLeftOf0LeavesTheBoardAtItsDesignedPlace) {
    const frmChessBoard& designed = open();
    const QPoint place = designed.pos();
    delete &designed;
    savedPlace("0", "300", "4500", "4500");
    EXPECT_EQ(open().pos(), place);
}

TEST_F(BoardLife, ASavedPlaceOnAnotherScreenPutsTheBoardThere) {
    const QRect other = QGuiApplication::screens().last()->geometry();
    ASSERT_GT(other.left(), 0);
    savedPlace(std::to_string((other.left() + 40) * 15).c_str(), "300", "9000", "7500");
    EXPECT_EQ(open().pos(), QPoint(other.left() + 40, 20));
}

TEST_F(BoardLife, ASavedPlaceThatReachesBeyondTheScreenLeavesTheBoardAtItsDesignedPlace) {
    const frmChessBoard& designed = open();
    const QPoint place = designed.pos();
    const QSize size = designed.size();
    delete &designed;
    const int right = QGuiApplication::primaryScreen()->virtualGeometry().width() * 15;
    savedPlace(std::to_string(right - 9000 + 15).c_str(), "300", "9000", "4500");
    frmChessBoard& board = open();
    EXPECT_EQ(board.pos(), place);
    EXPECT_EQ(board.size(), size);
}

TEST_F(BoardLife, BeforeTheFirstExitTheOlderFileIsRead) {
    ASSERT_TRUE(olderFile("150,300,8190,7035\n\"games\"\n\"boards\"\n"));
    EXPECT_EQ(open().pos(), QPoint(10, 20));
    EXPECT_EQ(modChess.PGNPath, "games");
    EXPECT_EQ(modChess.GamePath, "boards");
}

TEST_F(BoardLife, AfterTheFirstExitTheOlderFileIsIgnored) {
    ASSERT_TRUE(olderFile("150,300,8190,7035\n\"games\"\n\"boards\"\n"));
    savedPlace("300", "300", "8190", "7035");
    EXPECT_EQ(open().pos(), QPoint(20, 20));
    EXPECT_EQ(modChess.PGNPath, "");
}

TEST_F(BoardLife, ASecondBoardCascadesTo300AndAThirdTo600) {
    savedPlace("3000", "1500", "5000", "4000");
    EXPECT_EQ(open().pos(), QPoint(200, 100));
    EXPECT_EQ(open().pos(), QPoint(20, 20));
    EXPECT_EQ(open().pos(), QPoint(40, 40));
}

// Titles and panels

TEST_F(BoardLife, AGameNamesTheWindowAndThePanels) {
    frmChessBoard& board = open();
    position(board.game, 1);
    EXPECT_EQ(title(board), "Anders - Berta    [5 2]");
    EXPECT_EQ(label(board, "stbGame(2)"), "Anders - Berta    [5 2]");
    EXPECT_EQ(label(board, "stbGame(3)"), "Game 12");
}

TEST_F(BoardLife, AfterTheGameThePanelBeginsWithWas) {
    frmChessBoard& board = open();
    position(board.game, 1);
    board.game.zEndParms();
    EXPECT_EQ(label(board, "stbGame(2)"), "Was Anders - Berta    [5 2]");
    EXPECT_EQ(label(board, "stbGame(3)"), "");
    EXPECT_EQ(title(board), "Brightrank - Board");
}

TEST_F(BoardLife, NewGameNamesTheWindowAndEmptiesTheGrid) {
    frmChessBoard& board = open();
    position(board.game, 1);
    board.game.zEndParms();
    entry(board, "mnuNew").trigger();
    EXPECT_EQ(title(board), "New Board");
    const auto& grid = part<MoveGrid>(board, "grdMoves");
    EXPECT_EQ(grid.model()->index(0, 1).data().toString(), QString());
    EXPECT_EQ(board.game.Board[12], 6);
    EXPECT_FALSE(entry(board, "mnuSavePGN").isEnabled());
}

TEST_F(BoardLife, LongNamesDoNotWidenTheWindow) {
    frmChessBoard& board = open();
    const QSize before = board.size();
    board.game.surface.setPanel(2, std::string(400, 'w'));
    board.game.surface.setPanel(1, std::string(60, 'w'));
    runFor(20);
    EXPECT_EQ(board.size(), before);
    EXPECT_LE(board.minimumSizeHint().width(), before.width());
}

// Closing

TEST_F(BoardLife, AnIdleBoardClosesWithoutAWordAndIsGone) {
    frmChessBoard& board = open();
    const QPointer<frmChessBoard> alive(&board);
    EXPECT_TRUE(board.close());
    EXPECT_EQ(openWindows.count("frmChessBoard"), 0);
    EXPECT_TRUE(waitUntil([&] { return alive.isNull(); }));
    EXPECT_TRUE(asked.empty());
    EXPECT_TRUE(sent.empty());
}

TEST_F(BoardLife, ClosingABoardWithAPlayedGameAsksAndCancelKeepsItOpen) {
    frmChessBoard& board = open();
    position(board.game, 1);
    EXPECT_FALSE(board.close());
    EXPECT_EQ(asked, (std::vector<std::string>{"Game in progress/Board will close.  Type 'ref' to re-open"}));
    EXPECT_TRUE(board.isVisible());
    EXPECT_EQ(openWindows.count("frmChessBoard"), 1);
    EXPECT_EQ(board.game.gameIndex, 12);
    okay = true;
    EXPECT_TRUE(board.close());
    EXPECT_TRUE(sent.empty());
}

TEST_F(BoardLife, ClosingABoardWithAnObservedGameLeavesIt) {
    frmChessBoard& board = open();
    position(board.game, 0);
    EXPECT_TRUE(board.close());
    EXPECT_EQ(sent, (std::vector<std::string>{"unob 12"}));
}

TEST_F(BoardLife, ClosingABoardWithAnExaminedGameLeavesIt) {
    frmChessBoard& board = open();
    position(board.game, 2);
    EXPECT_TRUE(board.close());
    EXPECT_EQ(sent, (std::vector<std::string>{"unex"}));
}

TEST_F(BoardLife, ABoardWhoseGameHasEndedClosesWithoutAWord) {
    frmChessBoard& board = open();
    position(board.game, 1);
    board.game.zEndParms();
    EXPECT_TRUE(board.close());
    EXPECT_TRUE(asked.empty());
    EXPECT_TRUE(sent.empty());
}

TEST_F(BoardLife, OnlyTheLastBoardMakesTheBoardMenuAvailable) {
    frmChessBoard& first = open();
    frmChessBoard& second = open();
    first.close();
    EXPECT_EQ(menuEnabled, 0);
    second.close();
    EXPECT_EQ(menuEnabled, 1);
}

// Two presses of the window's close button may arrive together.
TEST_F(BoardLife, ASecondClosingOfABoardThatHasClosedDoesNothing) {
    open();
    frmChessBoard& board = open();
    position(board.game, 0);
    QWindow* window = board.windowHandle();
    for (int press = 0; press < 2; ++press) {
        QCloseEvent event;
        QCoreApplication::sendEvent(window, &event);
    }
    EXPECT_EQ(sent, (std::vector<std::string>{"unob 12"}));
    EXPECT_EQ(menuEnabled, 0);
    EXPECT_EQ(openWindows.count("frmChessBoard"), 1);
}

TEST_F(BoardLife, ClosingWritesThePlace) {
    frmChessBoard& board = open();
    board.move(30, 40);
    const QSize size = board.size();
    board.close();
    EXPECT_EQ(stored("Left"), "450");
    EXPECT_EQ(stored("Top"), "600");
    EXPECT_EQ(stored("Width"), std::to_string(size.width() * 15));
    EXPECT_EQ(stored("Height"), std::to_string(size.height() * 15));
}

TEST_F(BoardLife, AMinimisedBoardIsRestoredFirst) {
    frmChessBoard& board = open();
    position(board.game, 1);
    board.showMinimized();
    board.close();
    EXPECT_FALSE(board.isMinimized());
}

TEST_F(BoardLife, ExitClosesTheBoard) {
    frmChessBoard& board = open();
    chooseEntry(entry(board, "mnuExit"));
    EXPECT_EQ(openWindows.count("frmChessBoard"), 0);
    frmChessBoard& other = open();
    chooseEntry(entry(other, "mnuExit1"));
    EXPECT_EQ(openWindows.count("frmChessBoard"), 0);
}

TEST_F(BoardLife, TheCloseDownMayTakeTheBoardAlongWhileItsBoxIsUp) {
    frmChessBoard& board = open();
    position(board.game, 1);
    const QPointer<frmChessBoard> alive(&board);
    boxes.okCancel = [&](QWidget*, const std::string&, const std::string&) {
        modChess.AppClosing = true;
        const OpenWindow itself = openWindows.windows.front();
        itself.unload();
        return false;
    };
    board.close();
    EXPECT_TRUE(waitUntil([&] { return alive.isNull(); }));
    EXPECT_NE(stored("Left"), "(absent)");
    EXPECT_EQ(openWindows.count("frmChessBoard"), 0);
}

TEST_F(BoardLife, NothingElseRunsWhileABoardLoads) {
    QTimer::singleShot(0, qApp, [] { openWindows.unload("frmChessBoard"); });
    frmChessBoard& board = open();
    EXPECT_TRUE(board.isVisible());
    EXPECT_EQ(openWindows.count("frmChessBoard"), 1);
    EXPECT_TRUE(waitUntil([this] { return made.back().isNull(); })) << "and then the board closes";
    EXPECT_TRUE(openWindows.windows.empty());
}
