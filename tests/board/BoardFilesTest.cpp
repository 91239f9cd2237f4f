// A board window and game files: the entry, the dialog, the chooser, and what can go meanwhile.
#include "board/BoardWindowRig.h"
#include "platform/LoadedWindow.h"
#include "records/PgnRig.h"
#include "records/frmPGN.h"

#include <QTreeWidget>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class BoardFiles : public BoardWindowRig {
protected:
    BoardFiles() {
        boxes.fileOpen = [this](QWidget*, const std::string&, const std::string&, const std::string&) {
            ++dialogs;
            if (whileAsking) whileAsking();
            return chosenFile;
        };
    }

    // A board that tells whether it lets games be saved.
    frmChessBoard& openBoard() {
        frmChessBoard& board = open();
        board.game.surface.enableSavePGN = [this](bool enabled) { saving.push_back(enabled); };
        return board;
    }
    void read(frmChessBoard& board, const std::string& bytes) {
        files.file(bytes);
        chosenFile = files.path();
        chooseEntry(entry(board, "mnuPGN"));
    }
    static frmPGN* chooser() { return loadedWindow<frmPGN>(); }
    // By its row, from 1; what follows from it is done on return.
    static void choose(int row) {
        auto* grid = chooser()->findChild<QTreeWidget*>(QStringLiteral("fxgPGN"));
        grid->setCurrentItem(grid->topLevelItem(row - 1));
        QTest::keyClick(grid, Qt::Key_Return);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    }
    static void dismiss() {
        chooser()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    }
    static std::string move(const frmChessBoard& board, int row, int col) { return board.game.grdMoves.text(row, col); }

    PgnRig files;
    std::optional<std::string> chosenFile;
    std::function<void()> whileAsking;
    std::vector<bool> saving;
    int dialogs = 0;
};

} // namespace

TEST_F(BoardFiles, TheChosenGameGoesToTheBoard) {
    frmChessBoard& board = openBoard();
    read(board, pgnText("Anders", "1. e4 e5") + pgnText("Carla", "1. d4 d5 2. c4", "0-1"));
    ASSERT_NE(chooser(), nullptr);
    EXPECT_EQ(chooser()->frmCBid, board.game.id);
    EXPECT_EQ(move(board, 1, 1), "") << "nothing changes before the choice";
    choose(2);
    EXPECT_EQ(move(board, 1, 1), "d4");
    EXPECT_EQ(move(board, 2, 1), "c4");
    EXPECT_EQ(title(board), "Carla - Berta  0-1");
    EXPECT_EQ(modChess.PgnChoice, 2);
    EXPECT_EQ(modChess.FileOneHolder, nullptr) << "the file is closed";
    EXPECT_THAT(saving, ElementsAre(false));
}

TEST_F(BoardFiles, TheKeysAreTheCommandLinesThen) {
    frmChessBoard& board = openBoard();
    part(board, "grdMoves").setFocus();
    read(board, pgnTexts(1));
    choose(1);
    EXPECT_EQ(board.focusWidget(), &part(board, "txtSend"));
}

TEST_F(BoardFiles, WithoutAChoiceNothingChangesButTheEntryToSave) {
    frmChessBoard& board = openBoard();
    read(board, pgnTexts(2));
    const std::string before = title(board);
    dismiss();
    EXPECT_EQ(title(board), before);
    EXPECT_EQ(move(board, 1, 1), "");
    EXPECT_FALSE(board.game.GameLoaded);
    EXPECT_THAT(saving, ElementsAre(false));
}

TEST_F(BoardFiles, ADialogThatIsCancelledReadsNothingAndDisablesSavingToo) {
    frmChessBoard& board = openBoard();
    chooseEntry(entry(board, "mnuPGN"));
    EXPECT_EQ(dialogs, 1);
    EXPECT_EQ(chooser(), nullptr);
    EXPECT_THAT(saving, ElementsAre(false));
}

TEST_F(BoardFiles, AFileWithoutGamesGivesAnEmptyChooser) {
    frmChessBoard& board = openBoard();
    for (const char* bytes : {"", "1. e4 e5 1-0\n\n", "\n\n"}) {
        read(board, bytes);
        ASSERT_NE(chooser(), nullptr);
        EXPECT_EQ(chooser()->findChild<QTreeWidget*>()->topLevelItemCount(), 0);
        dismiss();
    }
}

TEST_F(BoardFiles, ABoardIsAliveWhileItsChooserIsOpen) {
    frmChessBoard& board = openBoard();
    read(board, pgnTexts(1, "1. c4 c5"));
    position(board.game, 0, "none");
    position(board.game, 0, "e4", false);
    EXPECT_EQ(move(board, 1, 1), "e4");
    choose(1);
    EXPECT_EQ(move(board, 1, 1), "c4");
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(BoardFiles, TheLinesOfTheGameAreFoundWhateverEndsThem) {
    frmChessBoard& board = openBoard();
    for (const char* end : {"\n", "\r"}) {
        std::string bytes = pgnText("Anders", "1. e4") + pgnText("Carla", "1. d4 d5");
        for (std::size_t at = 0; (at = bytes.find("\r\n", at)) != bytes.npos;) bytes.replace(at, 2, end);
        read(board, bytes);
        choose(2);
        EXPECT_EQ(move(board, 1, 2), "d5");
    }
}

TEST_F(BoardFiles, TheFirstLineBehindTheTagsMayHoldMoves) {
    frmChessBoard& board = openBoard();
    read(board, "[White \"Anders\"]\n1. e4 e5\n2. Nf3 1-0\n\n");
    choose(1);
    EXPECT_EQ(move(board, 1, 1), "e4");
    EXPECT_EQ(move(board, 2, 1), "Nf3");
}

TEST_F(BoardFiles, AShorterFileShowsItsOwnGamesOnly) {
    frmChessBoard& board = openBoard();
    read(board, pgnTexts(30));
    dismiss();
    read(board, pgnTexts(2));
    EXPECT_EQ(chooser()->findChild<QTreeWidget*>()->topLevelItemCount(), 2);
    EXPECT_EQ(board.game.PgnGames[30].White, "30") << "the table keeps the rows";
}

TEST_F(BoardFiles, OfATextOfAnyLengthItsStartIsShown) {
    frmChessBoard& board = openBoard();
    const std::string longText(1000000, 'x');
    read(board, pgnText(longText, "1. " + longText + " e5"));
    choose(1);
    EXPECT_EQ(title(board), std::string(500, 'x'));
    EXPECT_EQ(part<MoveGrid>(board, "grdMoves").model()->index(0, 1).data().toString().size(), 500);
    board.game.grdMovesClick(1, 1);
    EXPECT_EQ(label(board, "lblMove"), "1. " + std::string(497, 'x'));
    EXPECT_EQ(move(board, 1, 1), longText) << "the game has all of it";
}

// What goes meanwhile

TEST_F(BoardFiles, TheFirstCloseClosesTheChooserAlone) {
    frmChessBoard& board = openBoard();
    read(board, pgnTexts(2));
    board.close();
    EXPECT_EQ(chooser(), nullptr);
    EXPECT_TRUE(board.isVisible());
    EXPECT_EQ(modChess.PgnChoice, 0);
    board.close();
    EXPECT_FALSE(board.isVisible());
}

TEST_F(BoardFiles, AnotherBoardsFirstCloseClosesItToo) {
    frmChessBoard& board = openBoard();
    frmChessBoard& other = open();
    read(board, pgnTexts(2));
    other.close();
    EXPECT_EQ(chooser(), nullptr);
    EXPECT_TRUE(other.isVisible());
}

TEST_F(BoardFiles, AProgramThatClosesClosesTheChooserAndThenTheBoardToo) {
    frmChessBoard& board = openBoard();
    read(board, pgnTexts(2));
    modChess.AppClosing = true;
    openWindows.unload("frmChessBoard");
    EXPECT_EQ(chooser(), nullptr);
    EXPECT_TRUE(board.isVisible());
    openWindows.remove(&board); // as the console does with one that refused
    board.close();
    EXPECT_FALSE(board.isVisible());
    EXPECT_NE(stored("Left"), "(absent)") << "its place is kept";
}

TEST_F(BoardFiles, ABoardThatGoesTakesItsChooserAndTheChoiceGoesNowhere) {
    const QPointer<frmChessBoard> board = &openBoard();
    read(*board, pgnTexts(2));
    delete board.data();
    EXPECT_EQ(chooser(), nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    EXPECT_THAT(saving, IsEmpty());
}

TEST_F(BoardFiles, ABoardThatGoesBetweenChoiceAndReadingReadsNothing) {
    const QPointer<frmChessBoard> board = &openBoard();
    read(*board, pgnTexts(2));
    QTest::keyClick(chooser()->findChild<QTreeWidget*>(), Qt::Key_Return);
    delete board.data();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    EXPECT_EQ(modChess.PgnChoice, 1);
    EXPECT_THAT(saving, IsEmpty());
}

TEST_F(BoardFiles, ABoardThatClosesBetweenChoiceAndReadingReadsNothing) {
    frmChessBoard& board = openBoard();
    read(board, pgnTexts(2));
    QTest::keyClick(chooser()->findChild<QTreeWidget*>(), Qt::Key_Return);
    board.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    EXPECT_EQ(move(board, 1, 1), "");
    EXPECT_THAT(saving, IsEmpty());
}

TEST_F(BoardFiles, ABoardThatGoesWhileItsDialogIsUpReadsNothing) {
    const QPointer<frmChessBoard> board = &openBoard();
    whileAsking = [board] { delete board.data(); };
    read(*board, pgnTexts(2));
    EXPECT_EQ(chooser(), nullptr);
    EXPECT_THAT(saving, IsEmpty());
}

TEST_F(BoardFiles, ASecondFileTakesThePlaceOfTheFirst) {
    frmChessBoard& board = openBoard();
    frmChessBoard& other = openBoard();
    read(board, pgnTexts(3, "1. e4 e5"));
    read(other, pgnTexts(2, "1. d4 d5"));
    EXPECT_EQ(chooser()->frmCBid, other.game.id);
    choose(1);
    EXPECT_EQ(move(other, 1, 1), "d4");
    EXPECT_EQ(move(board, 1, 1), "") << "the choice was not of its games";
}

// A file with a hundred games stays open

TEST_F(BoardFiles, NinetyNineGamesCanBeChosenFrom) {
    frmChessBoard& board = openBoard();
    read(board, pgnTexts(99));
    EXPECT_EQ(modChess.FileOneHolder, nullptr);
    choose(99);
    EXPECT_EQ(title(board), "99 - Berta  1-0");
    EXPECT_EQ(move(board, 1, 1), "e4");
}

TEST_F(BoardFiles, AHundredGamesAreListedAndTheFileStaysOpenWithoutAChoiceToo) {
    frmChessBoard& board = openBoard();
    for (const int count : {100, 101}) {
        read(board, pgnTexts(count));
        EXPECT_EQ(chooser()->findChild<QTreeWidget*>()->topLevelItemCount(), 100);
        dismiss();
        EXPECT_NE(modChess.FileOneHolder, nullptr);
        EXPECT_EQ(faultOf([&] { board.zLoadPGN(files.path()); }), "file");
        FileOne::close();
    }
}

TEST_F(BoardFiles, TheBoardsClosingClosesIt) {
    frmChessBoard& board = openBoard();
    frmChessBoard& other = open();
    read(board, pgnTexts(100));
    dismiss();
    EXPECT_EQ(faultOf([&] { other.zLoadPGN(files.path()); }), "file");
    board.close();
    EXPECT_EQ(modChess.FileOneHolder, nullptr);
    EXPECT_EQ(faultOf([&] { other.zLoadPGN(files.path()); }), "none");
}

// The panel that evaluates a player

TEST_F(BoardFiles, EvalPlayerOpensThePanelForThisBoard) {
    open();
    frmChessBoard& board = open();
    chooseEntry(entry(board, "mnuExamine"));
    EXPECT_THAT(examined, ElementsAre(board.game.id));
}

TEST_F(BoardFiles, ABoardsWindowIsFoundByItsIdWhileItIsOpen) {
    frmChessBoard& first = open();
    frmChessBoard& second = open();
    EXPECT_EQ(frmChessBoard::windowOf(second.game.id), &second);
    const std::int32_t id = first.game.id;
    EXPECT_EQ(frmChessBoard::windowOf(id), &first);
    first.close();
    EXPECT_EQ(frmChessBoard::windowOf(id), nullptr) << "closed, and not deleted yet";
}

TEST_F(BoardFiles, ABoardThatClosesTakesThePanelAlong) {
    frmChessBoard& board = open();
    open();
    bool unloaded = false;
    openWindows.add({"frmExamine", this, [&] { unloaded = true; }});
    board.close();
    EXPECT_TRUE(unloaded);
}
