// What a board window sends and asks: draw, resign, the keys of its line, its menus, and its prescribed procedures.
#include "board/BoardWindowRig.h"

#include "common/ServerRoad.h"
#include "common/TypingKey.h"

#include <QMenu>
#include <QMenuBar>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class BoardCommands : public BoardWindowRig {
protected:
    BoardCommands() {
        boxes.yesNo = [this](QWidget*, const std::string&, const std::string& text) {
            asked.push_back(text);
            if (whileAsking) whileAsking();
            return yes;
        };
    }

    TypingLine& line(frmChessBoard& board) { return part<TypingLine>(board, "txtSend"); }
    void press(frmChessBoard& board, const char* button) { QTest::mouseClick(&part(board, button), Qt::LeftButton); }

    bool yes = true;
    std::function<void()> whileAsking;
};

} // namespace

// Draw and resign

TEST_F(BoardCommands, WithConfirmResignOffDrawAndResignGoOutWithoutABox) {
    modChess.ConfirmResign = 0;
    frmChessBoard& board = open();
    press(board, "cmdDraw");
    press(board, "cmdRes");
    EXPECT_THAT(typed, ElementsAre("Draw", "Resign"));
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_EQ(line(board).line(), "");
}

TEST_F(BoardCommands, WithConfirmResignOnABoxAsksForBothAndYesSends) {
    frmChessBoard& board = open();
    press(board, "cmdDraw");
    press(board, "cmdRes");
    EXPECT_THAT(asked, ElementsAre("Draw", "Resign"));
    EXPECT_THAT(typed, ElementsAre("Draw", "Resign"));
}

TEST_F(BoardCommands, OnNoNothingIsSentAndTheLineIsUnchanged) {
    yes = false;
    frmChessBoard& board = open();
    line(board).setLine("say wait");
    press(board, "cmdDraw");
    press(board, "cmdRes");
    EXPECT_THAT(typed, IsEmpty());
    EXPECT_EQ(line(board).line(), "say wait");
}

TEST_F(BoardCommands, TheMenuEntriesActAsTheButtons) {
    frmChessBoard& board = open();
    entry(board, "mnuDraw").trigger();
    entry(board, "mnuRes").trigger();
    EXPECT_THAT(asked, ElementsAre("Draw", "Resign"));
    EXPECT_THAT(typed, ElementsAre("Draw", "Resign"));
}

TEST_F(BoardCommands, InEveryCaseTheFocusEndsInTheCommandLine) {
    frmChessBoard& board = open();
    for (const bool answer : {true, false}) {
        yes = answer;
        part(board, "grdMoves").setFocus();
        ASSERT_NE(board.focusWidget(), &line(board));
        press(board, "cmdRes");
        EXPECT_EQ(board.focusWidget(), &line(board));
    }
}

TEST_F(BoardCommands, WhileNotConnectedTheWordStaysInTheLineUnsent) {
    connected = false;
    frmChessBoard& board = open();
    press(board, "cmdDraw");
    EXPECT_THAT(typed, IsEmpty());
    EXPECT_EQ(line(board).line(), "Draw");
}

TEST_F(BoardCommands, ABoardThatGoesWhileItsBoxIsUpSendsNothing) {
    open();
    QPointer<frmChessBoard> board(made.back());
    whileAsking = [&] { delete board.data(); };
    press(*board, "cmdRes");
    EXPECT_THAT(typed, IsEmpty());
}

TEST_F(BoardCommands, ABoardThatIsClosedWhileItsBoxIsUpSendsNothing) {
    frmChessBoard& board = open();
    whileAsking = [&] { openWindows.windows.front().unload(); };
    press(board, "cmdRes");
    EXPECT_THAT(typed, IsEmpty());
}

// Tell buttons

TEST_F(BoardCommands, AnEmptyTellButtonSendsNothingAndLeavesTheLine) {
    frmChessBoard& board = open();
    line(board).setLine("before");
    auto& button = part<QToolButton>(board, "cmdTell(4)");
    button.setEnabled(true);
    button.click();
    EXPECT_THAT(typed, IsEmpty());
    EXPECT_EQ(line(board).line(), "before");
    EXPECT_EQ(board.focusWidget(), &line(board));
}

// zTxtSend and the keys

TEST_F(BoardCommands, EnterGoesThroughWhileNotConnectedAndIsConsumedOtherwise) {
    frmChessBoard& board = open();
    line(board).setLine("who");
    connected = false;
    EXPECT_FALSE(board.zTxtSend(13));
    EXPECT_EQ(line(board).line(), "who");
    connected = true;
    EXPECT_TRUE(board.zTxtSend(13));
    EXPECT_EQ(line(board).line(), "");
    EXPECT_THAT(typed, ElementsAre("who"));
}

TEST_F(BoardCommands, OtherKeysSendNothingAndPass) {
    frmChessBoard& board = open();
    line(board).setLine("who");
    for (const int key : {0, 10, 27, 65}) EXPECT_FALSE(board.zTxtSend(key)) << key;
    EXPECT_THAT(typed, IsEmpty());
    QTest::keyClick(&line(board), Qt::Key_F6);
    QTest::keyClick(&line(board), Qt::Key_X);
    EXPECT_EQ(line(board).line(), "whox");
}

TEST_F(BoardCommands, F7OnAnIdleBoardPutsTheGameNumber0In) {
    frmChessBoard& board = open();
    QTest::keyClick(&line(board), Qt::Key_F7);
    EXPECT_EQ(line(board).line(), "xKibitz 0 ");
}

TEST_F(BoardCommands, ShiftF9AsksForAChatBoxAndSwallowsTheKey) {
    frmChessBoard& board = open();
    int wanted = 0;
    QObject::connect(&board, &frmChessBoard::chatWanted, &board, [&] { ++wanted; });
    line(board).setLine("before");
    line(board).setCursorPosition(0);
    QTest::keyClick(&line(board), Qt::Key_F9, Qt::ShiftModifier);
    EXPECT_EQ(wanted, 1);
    EXPECT_EQ(line(board).line(), "before");
    EXPECT_EQ(line(board).cursorPosition(), 6);
    QTest::keyClick(&line(board), Qt::Key_F9);
    EXPECT_EQ(wanted, 1);
}

TEST_F(BoardCommands, DownFromTheNewestLineGivesTheSavedTextBack) {
    history.zPushCommand("who");
    frmChessBoard& board = open();
    line(board).setLine("unfinished");
    QTest::keyClick(&line(board), Qt::Key_Up);
    EXPECT_EQ(line(board).line(), "who");
    QTest::keyClick(&line(board), Qt::Key_Down);
    EXPECT_EQ(line(board).line(), "unfinished");
}

TEST_F(BoardCommands, KeysOfTheFormItselfDoNothing) {
    frmChessBoard& board = open();
    for (const Qt::Key key : {Qt::Key_F5, Qt::Key_F7, Qt::Key_Return, Qt::Key_Up}) QTest::keyClick(&board, key);
    EXPECT_EQ(line(board).line(), "");
    EXPECT_THAT(typed, IsEmpty());
}

// The history

TEST_F(BoardCommands, ZShiftRegPushesIntoTheSharedHistoryAndEndsTheWalk) {
    frmChessBoard& one = open();
    frmChessBoard& other = open();
    one.zShiftReg("older");
    one.zShiftReg("newer");
    QTest::keyClick(&line(other), Qt::Key_Up);
    EXPECT_EQ(history.CommandCursor, 1);
    other.zShiftReg("newest");
    EXPECT_EQ(history.CommandCursor, 0);
    EXPECT_EQ(history.entries[1], "newest");
    EXPECT_EQ(history.entries[3], "older");
}

TEST_F(BoardCommands, Of21LinesTheOldestIsGone) {
    frmChessBoard& board = open();
    for (int number = 1; number <= 21; ++number) board.zShiftReg("line " + std::to_string(number));
    EXPECT_EQ(history.entries[1], "line 21");
    EXPECT_EQ(history.entries[20], "line 2");
}

// Commands of the program's own

TEST_F(BoardCommands, ZSendMsgTakesTheConsolesSilentRoad) {
    open().zSendMsg("moves 12");
    EXPECT_THAT(sent, ElementsAre("moves 12"));
    EXPECT_THAT(typed, IsEmpty());
}

// zSolveConflict

TEST_F(BoardCommands, AControlIsShownOnlyFourPixelsClearOfTheCommandLine) {
    frmChessBoard& board = open();
    QLabel control(&inner(board));
    control.setGeometry(0, 0, line(board).x() - 4, 10);
    board.zSolveConflict(&control);
    EXPECT_FALSE(control.isVisible());
    control.resize(control.width() - 1, 10);
    board.zSolveConflict(&control);
    EXPECT_TRUE(control.isVisible());
    control.resize(line(board).x() + 1, 10);
    board.zSolveConflict(&control);
    EXPECT_FALSE(control.isVisible());
}

// Piece sets

TEST_F(BoardCommands, ZUnCheckPiecesLeavesNoSetChecked) {
    frmChessBoard& board = open();
    board.zUnCheckPieces();
    for (const char* name : {"mnuBookup", "mnuQuorl", "mnuGNU"}) EXPECT_FALSE(entry(board, name).isChecked()) << name;
}

TEST_F(BoardCommands, ZSetBookupTakesTheNextListUpToTheLimitAndTheListItselfAboveIt) {
    frmChessBoard& board = open();
    const BoardGeometry& geometry = part<BoardView>(board, "picChess").geometry();
    ASSERT_EQ(geometry.SquarePixels, 54);
    modChess.ChessSet = 2;
    board.zSetBookup(0, 53);
    EXPECT_EQ(geometry.PieceList, 0);
    EXPECT_EQ(modChess.ChessSet, 0);
    board.zSetBookup(0, 54);
    EXPECT_EQ(geometry.PieceList, 1);
    board.zSetBookup(8, 48);
    EXPECT_EQ(geometry.PieceList, 8);
    EXPECT_EQ(modChess.ChessSet, 8);
}

TEST_F(BoardCommands, AfterBookupTheListFitsTheSquaresAgain) {
    frmChessBoard& board = open();
    entry(board, "mnuGNU").trigger();
    entry(board, "mnuBookup").trigger();
    EXPECT_EQ(part<BoardView>(board, "picChess").geometry().PieceList, 2) << "the list of 54 pixels";
}

TEST_F(BoardCommands, CleanLetsPiecesBeLiftedAgain) {
    frmChessBoard& board = open();
    board.game.noPlay = true;
    entry(board, "mnuClean").trigger();
    EXPECT_FALSE(board.game.noPlay);
}

// Menus

TEST_F(BoardCommands, TheMenusHaveTheirEntriesInOrder) {
    const std::vector<std::pair<const char*, std::vector<std::string>>> menus{
        {"mnuFile", {"mnuNew &New Game", "mnuPGN &Read PGN", "mnuSavePGN Store &PGN", "mnuExit &Exit"}},
        {"mnuBoard",
         {"mnuInvert &Flip", "mnuClean C&lean", "mnuColors &Colors", "mnuBookup Bookup", "mnuQuorl Quorl",
          "mnuGNU GNU"}},
        {"mnuActions",
         {"mnuSeek &Seek", "mnuMatch &Match", "mnuDraw &Draw", "mnuRes &Resign", "mnuExamine &Eval Player",
          "mnuSelfCheck Self &Check"}},
        {"mnuIfc", {"mnuSeekGrf &Seek Graph", "mnuVars &Variables", "mnuNotes &Notes", "mnuOptions &Options"}},
        {"mnuMHelp", {"mnuBRHelp &Brightrank Help", "mnuHelp &FICS Help Panel", "mnuAbout &About", "mnuExit1 &Exit"}}};
    frmChessBoard& board = open();
    for (const auto& [name, entries] : menus) {
        std::vector<std::string> found;
        for (const QAction* action : part<QMenu>(board, name).actions()) {
            if (!action->isSeparator()) found.push_back((action->objectName() + u' ' + action->text()).toStdString());
        }
        EXPECT_EQ(found, entries) << name;
    }
}

TEST_F(BoardCommands, TheMenuBarReadsAsDesktopsHaveIt) {
    std::vector<std::string> captions;
    for (const QAction* action : open().menuBar()->actions()) captions.push_back(action->text().toStdString());
    EXPECT_THAT(captions, ElementsAre("&File", "&Board", "&Actions", "&Interface", "&Help"));
}

TEST_F(BoardCommands, EveryEntryOfOneMenuHasALetterOfItsOwn) {
    frmChessBoard& board = open();
    for (const QMenu* menu : board.findChildren<QMenu*>()) {
        std::string letters;
        for (const QAction* action : menu->actions()) {
            const auto place = action->text().indexOf(u'&');
            if (place < 0) continue;
            const char letter = action->text().at(place + 1).toLower().toLatin1();
            EXPECT_EQ(letters.find(letter), letters.npos) << menu->objectName().toStdString() << " " << letter;
            letters += letter;
        }
    }
}

TEST_F(BoardCommands, BothExitsUnloadTheBoard) {
    for (const char* name : {"mnuExit", "mnuExit1"}) {
        entry(open(), name).trigger();
        EXPECT_EQ(openWindows.count("frmChessBoard"), 0) << name;
    }
}

TEST_F(BoardCommands, AboutTellsTheVersion) {
    QApplication::setApplicationVersion(QStringLiteral("4.5.6"));
    entry(open(), "mnuAbout").trigger();
    QApplication::setApplicationVersion(QString());
    EXPECT_THAT(asked, ElementsAre("Brightrank 4.5.6"));
}
