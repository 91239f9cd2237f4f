// The colour dialog and real boards: its entry in the menu, its part in a board's load, and the boards' new colours.
#include "board/BoardWindowRig.h"

#include "platform/LoadedWindow.h"
#include "view/frmBoardColors.h"

namespace {

class BoardColoring : public BoardWindowRig {
protected:
    ~BoardColoring() override {
        delete loadedWindow<frmBoardColors>();
        for (const int list : {0, 1}) imlPieces.removeAdded(list);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    static QColor cornerOf(frmChessBoard& board) {
        const QImage& picture = part<BoardView>(board, "picChess").picture();
        return picture.pixelColor(2, picture.height() - 2); // a1, or h8
    }
    void choose(std::int32_t color) {
        boxes.colour = [color](QWidget*, std::int32_t) { return std::optional(color); };
        loadedWindow<frmBoardColors>()->findChild<QPushButton*>(QStringLiteral("cmdColor(1)"))->click();
    }
    void press(const char* name) {
        loadedWindow<frmBoardColors>()->findChild<QPushButton*>(QString::fromLatin1(name))->click();
    }
};

} // namespace

TEST_F(BoardColoring, ColorsOpensTheDialogAtTheBoardsPosition) {
    savedPlace("3000", "1500", "9000", "7500");
    frmChessBoard& board = open();
    chooseEntry(entry(board, "mnuColors"));
    const auto* dialog = loadedWindow<frmBoardColors>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(dialog->pos(), board.pos());
    EXPECT_EQ(board.pos(), QPoint(200, 100));
}

TEST_F(BoardColoring, OkRepaintsEveryBoardInTheNewColours) {
    frmChessBoard& one = open();
    frmChessBoard& other = open();
    chooseEntry(entry(one, "mnuColors"));
    choose(0x332211);
    EXPECT_EQ(cornerOf(one), QColor(188, 131, 46));
    press("cmdOK");
    EXPECT_EQ(cornerOf(one), QColor(0x11, 0x22, 0x33));
    EXPECT_EQ(cornerOf(other), QColor(0x11, 0x22, 0x33));
}

TEST_F(BoardColoring, TheRepaintIsAFullOneWithoutHighlights) {
    frmChessBoard& board = open();
    position(board.game, 1);
    const QImage marked = part<BoardView>(board, "picChess").picture();
    chooseEntry(entry(board, "mnuColors"));
    press("cmdOK");
    EXPECT_NE(part<BoardView>(board, "picChess").picture(), marked);
}

TEST_F(BoardColoring, ALoadingBoardBuildsTheImagesAndTheDialogIsGoneAtItsEnd) {
    open();
    EXPECT_EQ(imlPieces.count(0), 19);
    EXPECT_EQ(imlPieces.count(1), 19);
    EXPECT_EQ(openWindows.count("frmBoardColors"), 0);
}

TEST_F(BoardColoring, ALoadingBoardAppliesTheDialogThatIsOpenAndClosesIt) {
    frmChessBoard& board = open();
    chooseEntry(entry(board, "mnuColors"));
    choose(0x332211);
    open();
    EXPECT_EQ(modChess.ColorBlack, 0x332211);
    EXPECT_EQ(cornerOf(board), QColor(0x11, 0x22, 0x33));
    EXPECT_EQ(openWindows.count("frmBoardColors"), 0);
}

TEST_F(BoardColoring, ABoardThatClosesTakesTheDialogAlong) {
    frmChessBoard& board = open();
    open();
    chooseEntry(entry(board, "mnuColors"));
    board.close();
    EXPECT_EQ(openWindows.count("frmBoardColors"), 0);
    EXPECT_EQ(openWindows.count("frmChessBoard"), 1);
}

TEST_F(BoardColoring, ABoardThatClosesTakesTheOtherPanelsAlongBeforeItAsks) {
    frmChessBoard& board = open();
    position(board.game, 1);
    std::vector<std::string> unloaded;
    const char ids[3]{};
    int number = 0;
    for (const char* name : {"frmExamine", "frmMatch", "frmNotes"}) {
        openWindows.add({name, &ids[number++], [&unloaded, name] { unloaded.emplace_back(name); }});
    }
    boxes.okCancel = [&](QWidget*, const std::string&, const std::string&) {
        unloaded.emplace_back("box");
        return false;
    };
    board.close();
    EXPECT_EQ(unloaded, (std::vector<std::string>{"frmMatch", "frmExamine", "box"}));
    openWindows.windows.resize(1);
}
