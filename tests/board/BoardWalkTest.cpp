// Walking with a board's buttons, the cells of its list, the keys in the list, and its label.
#include "board/BoardWindowRig.h"
#include "common/Squares.h"
#include "platform/Spoken.h"

#include <QAbstractItemView>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string AfterNf3 = "rnbqkbnr pppp-ppp -------- ----p--- ----P--- -----N-- PPPP-PPP RNBQKB-R";

class BoardWalk : public BoardWindowRig {
protected:
    BoardWalk() {
        board.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&board));
    }

    // 1. e4 e5 2. Nf3 of a live game.
    void show(int relation) {
        receive(board.game, {.relation = relation}, true);
        showE4(relation);
        receive(board.game, {.ranks = AfterE4E5, .turn = "W", .relation = relation, .moveNumber = 2, .pretty = "e5"},
                false);
        receive(board.game, {.ranks = AfterNf3, .turn = "B", .relation = relation, .moveNumber = 2, .pretty = "Nf3"},
                false);
    }
    void showE4(int relation) {
        receive(board.game, {.ranks = AfterE4, .turn = "B", .relation = relation, .pretty = "e4"}, false);
    }
    void showEnded() {
        show(0);
        board.game.zEndParms();
    }

    void scroll(int index) {
        QTest::mouseClick(&part(board, ("cmdScroll(" + std::to_string(index) + ")").c_str()), Qt::LeftButton);
    }
    QRect cell(int row, int col) const { return grid.visualRect(grid.model()->index(row - 1, col)); }
    void click(int row, int col) { QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, cell(row, col).center()); }
    void key(Qt::Key which, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&grid, which, modifiers); }
    std::string focused() const { return board.focusWidget()->objectName().toStdString(); }
    std::int16_t at(const char* square) const { return board.game.Board[zSquareNumber(square)]; }
    int ply() const { return board.game.zDevMove(); }
    // The colour of the frame at a cell's corner, or of whatever else is there.
    QColor corner(QRect area) {
        return grid.viewport()->grab().toImage().pixelColor(area.topLeft() * grid.devicePixelRatio());
    }
    QColor focusColor() const { return grid.palette().color(QPalette::Highlight); }

    frmChessBoard& board = open();
    MoveGrid& grid = part<MoveGrid>(board, "grdMoves");
    TypingLine& txtSend = part<TypingLine>(board, "txtSend");
};

} // namespace

TEST_F(BoardWalk, TheButtonsWalkThroughALocalGame) {
    showEnded();
    const std::vector<std::pair<int, int>> table{{0, 0}, {3, 1}, {3, 2}, {2, 2}, {1, 1}, {4, 3}, {1, 2}};
    for (const auto& [button, after] : table) {
        scroll(button);
        EXPECT_EQ(ply(), after) << "button " << button;
    }
    EXPECT_THAT(sent, IsEmpty());
    EXPECT_EQ(label(board, "lblMove"), "1.. e5");
}

TEST_F(BoardWalk, TheButtonsSendInAnExaminedGame) {
    show(2);
    for (int index = 0; index < 5; ++index) scroll(index);
    EXPECT_THAT(sent, ElementsAre("Back 999", "Back", "For", "For 999"));
}

TEST_F(BoardWalk, TheButtonsViewTheStoreOfAWatchedGame) {
    show(0);
    scroll(0);
    EXPECT_EQ(at("e2"), 6);
    scroll(3);
    EXPECT_EQ(at("e4"), 6);
    scroll(4);
    EXPECT_EQ(at("f3"), 5);
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(BoardWalk, AButtonGivesTheKeysToTheLine) {
    for (int index = 0; index < 5; ++index) {
        QWidget& button = part(board, ("cmdScroll(" + std::to_string(index) + ")").c_str());
        EXPECT_TRUE(button.isEnabled());
        button.setFocus();
        QTest::keyClick(&button, Qt::Key_Return);
        EXPECT_EQ(focused(), "txtSend") << index;
    }
}

TEST_F(BoardWalk, AClickedCellShowsItsPositionAndGivesTheKeysToTheLine) {
    showEnded();
    grid.setFocus();
    click(1, 1);
    EXPECT_EQ(ply(), 1);
    EXPECT_EQ(focused(), "txtSend");
    EXPECT_EQ(label(board, "lblMove"), "1. e4");
}

TEST_F(BoardWalk, AClickThreePliesAheadInAnExaminedGameSendsForThree) {
    show(2);
    click(3, 2);
    click(1, 1);
    click(2, 1);
    EXPECT_THAT(sent, ElementsAre("For 3", "Back 2"));
}

TEST_F(BoardWalk, HeadingAndNumbersAreNotWalkedToButGiveTheKeysToTheLine) {
    showEnded();
    grid.setFocus();
    click(1, 0);
    EXPECT_EQ(focused(), "txtSend");
    grid.setFocus();
    QTest::mouseClick(grid.horizontalHeader()->viewport(), Qt::LeftButton, {}, {cell(1, 1).center().x(), 5});
    EXPECT_EQ(focused(), "txtSend");
    EXPECT_EQ(ply(), 3);
}

TEST_F(BoardWalk, OnlyALeftClickThatEndsWhereItBeganCounts) {
    showEnded();
    QTest::mouseClick(grid.viewport(), Qt::RightButton, {}, cell(1, 1).center());
    QTest::mousePress(grid.viewport(), Qt::LeftButton, {}, cell(1, 1).center());
    QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, cell(2, 1).center());
    EXPECT_EQ(ply(), 3);
}

TEST_F(BoardWalk, ADoubleClickInTheListAsksTheServerOnce) {
    show(2);
    const QPoint point = cell(3, 2).center();
    click(3, 2);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, point);
    EXPECT_THAT(sent, testing::Each("For 3"));
    EXPECT_LE(sent.size(), 2U) << "the test's double click presses once on its own";
}

TEST_F(BoardWalk, ADoubleClickOnTheLabelSendsRevert) {
    QTest::mouseDClick(&part(board, "lblMove"), Qt::LeftButton);
    EXPECT_THAT(sent, ElementsAre("Revert"));
    QTest::mouseClick(&part(board, "lblMove"), Qt::LeftButton);
    EXPECT_EQ(sent.size(), 1U);
}

TEST_F(BoardWalk, KeysWalkWhileTheListHasThem) {
    showEnded();
    grid.setFocus();
    const std::vector<std::pair<Qt::Key, int>> table{{Qt::Key_Home, 0}, {Qt::Key_Right, 1}, {Qt::Key_Right, 2},
                                                     {Qt::Key_Left, 1}, {Qt::Key_End, 3},   {Qt::Key_Left, 2}};
    for (const auto& [which, after] : table) {
        key(which);
        EXPECT_EQ(ply(), after);
        EXPECT_EQ(focused(), "grdMoves");
    }
    key(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(ply(), 2);
}

TEST_F(BoardWalk, KeysOfTheListAskTheServerInAnExaminedGame) {
    show(2);
    grid.setFocus();
    for (const Qt::Key which : {Qt::Key_Home, Qt::Key_Left, Qt::Key_Right, Qt::Key_End}) key(which);
    EXPECT_THAT(sent, ElementsAre("Back 999", "Back", "For", "For 999"));
}

TEST_F(BoardWalk, TheLinesOwnKeysDoNotWalk) {
    showEnded();
    txtSend.setLine("who");
    for (const Qt::Key which : {Qt::Key_Home, Qt::Key_Left, Qt::Key_Right, Qt::Key_End})
        QTest::keyClick(&txtSend, which);
    EXPECT_EQ(ply(), 3);
}

TEST_F(BoardWalk, UpAndDownScrollTheListAndWalkNothing) {
    showEnded();
    grid.setFocus();
    key(Qt::Key_Down);
    EXPECT_EQ(board.game.grdMoves.topRow, 2);
    key(Qt::Key_PageDown);
    EXPECT_GT(board.game.grdMoves.topRow, 8);
    key(Qt::Key_PageUp);
    key(Qt::Key_Up);
    EXPECT_EQ(board.game.grdMoves.topRow, 1);
    EXPECT_EQ(ply(), 3);
}

TEST_F(BoardWalk, ACharacterTypedInTheListGoesOnInTheLine) {
    grid.setFocus();
    QTest::keyClick(&grid, 'k');
    EXPECT_EQ(focused(), "txtSend");
    EXPECT_EQ(txtSend.line(), "k");
}

TEST_F(BoardWalk, EscapeInTheListGoesBackToTheLine) {
    grid.setFocus();
    key(Qt::Key_Return);
    EXPECT_EQ(focused(), "grdMoves");
    EXPECT_THAT(typed, IsEmpty());
    key(Qt::Key_Escape);
    EXPECT_EQ(focused(), "txtSend");
}

TEST_F(BoardWalk, TheCurrentCellHasAFrameWhileTheListHasTheKeys) {
    showEnded();
    scroll(1);
    ASSERT_EQ(board.game.grdMoves.col, 2);
    EXPECT_NE(corner(cell(1, 2)), focusColor());
    grid.setFocus();
    EXPECT_EQ(corner(cell(1, 2)), focusColor());
    key(Qt::Key_Left);
    EXPECT_EQ(corner(cell(1, 1)), focusColor());
    EXPECT_NE(corner(cell(1, 2)), focusColor());
}

TEST_F(BoardWalk, TheFrameIsRoundTheListWhereTheCurrentCellIsNotInView) {
    showEnded();
    grid.setFocus();
    key(Qt::Key_Home);
    EXPECT_EQ(corner(grid.viewport()->rect()), focusColor()) << "at the start no cell is current";
    key(Qt::Key_Right);
    EXPECT_NE(corner(grid.viewport()->rect()), focusColor());
    key(Qt::Key_PageDown);
    EXPECT_EQ(corner(grid.viewport()->rect()), focusColor()) << "scrolled away";
}

TEST_F(BoardWalk, CellsTellTheirMoveAndWhatTheirTintMeans) {
    showEnded();
    scroll(1);
    const auto said = [this](int row, int col, int role) {
        return grid.model()->index(row - 1, col).data(role).toString().toStdString();
    };
    EXPECT_EQ(said(2, 1, Qt::AccessibleTextRole), "2. Nf3");
    EXPECT_EQ(said(1, 2, Qt::AccessibleTextRole), "1.. e5");
    EXPECT_EQ(said(1, 0, Qt::AccessibleTextRole), "1");
    EXPECT_EQ(said(2, 2, Qt::AccessibleTextRole), "");
    EXPECT_EQ(said(1, 2, Qt::AccessibleDescriptionRole), "current move");
    EXPECT_EQ(said(1, 1, Qt::AccessibleDescriptionRole), "");
    board.game.zGridLight("No");
    EXPECT_EQ(said(1, 2, Qt::AccessibleDescriptionRole), "current move, off the stored game");
    board.game.grdMoves.goTo(1, 1);
    board.game.zGridLight("e4");
    EXPECT_EQ(said(1, 2, Qt::AccessibleDescriptionRole), "left behind");
}

TEST_F(BoardWalk, AssistiveToolsFollowTheCurrentCell) {
    showEnded();
    grid.setFocus();
    key(Qt::Key_Left);
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&grid);
    ASSERT_NE(list->focusChild(), nullptr);
    EXPECT_EQ(list->focusChild()->text(QAccessible::Name), QStringLiteral("1.. e5"));
    EXPECT_EQ(list->focusChild()->text(QAccessible::Description), QStringLiteral("current move"));
}
