// The squares of a board as an assistive tool reads and presses them.
#include "view/BoardCells.h"
#include "platform/Spoken.h"
#include "view/BoardFixture.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

namespace {

class BoardCells : public BoardFixture {
protected:
    BoardCells() {
        pieces[4] = 1;   // e1
        pieces[28] = 6;  // e4
        pieces[60] = -1; // e8
        setUp();
    }
    ~BoardCells() override {
        announceSquare = squareBefore;
        announcePiece = pieceBefore;
    }

    QAccessibleInterface& table() { return *QAccessible::queryAccessibleInterface(&view); }
    QString nameOf(int row, int column) {
        return table().tableInterface()->cellAt(row, column)->text(QAccessible::Name);
    }

    const std::function<void(BoardView*, int)> squareBefore = announceSquare;
    const std::function<void(BoardView*, int)> pieceBefore = announcePiece;
};

} // namespace

TEST_F(BoardCells, TheBoardIsATableOfEightTimesEight) {
    EXPECT_EQ(table().role(), QAccessible::Table);
    EXPECT_EQ(table().text(QAccessible::Name), QStringLiteral("Chess board"));
    EXPECT_EQ(table().childCount(), 64);
    EXPECT_EQ(table().tableInterface()->rowCount(), 8);
    EXPECT_EQ(table().tableInterface()->columnCount(), 8);
    EXPECT_EQ(table().child(64), nullptr);
    EXPECT_EQ(table().tableInterface()->cellAt(8, 0), nullptr);
    EXPECT_EQ(table().tableInterface()->cellAt(0, -1), nullptr);
}

TEST_F(BoardCells, ACellSaysItsSquareAndWhatStandsThere) {
    EXPECT_EQ(nameOf(0, 4), QStringLiteral("e8, black king"));
    EXPECT_EQ(nameOf(4, 4), QStringLiteral("e4, white pawn"));
    EXPECT_EQ(nameOf(7, 4), QStringLiteral("e1, white king"));
    EXPECT_EQ(nameOf(7, 0), QStringLiteral("a1, empty"));
    pieces[0] = 3;
    EXPECT_EQ(nameOf(7, 0), QStringLiteral("a1, white rook"));
}

TEST_F(BoardCells, TheTableStandsAsTheBoardDoes) {
    EXPECT_EQ(table().tableInterface()->rowDescription(0), QStringLiteral("8"));
    EXPECT_EQ(table().tableInterface()->columnDescription(0), QStringLiteral("a"));
    setUp(54, 0, true);
    EXPECT_EQ(nameOf(0, 3), QStringLiteral("e1, white king"));
    EXPECT_EQ(nameOf(7, 7), QStringLiteral("a8, empty"));
    EXPECT_EQ(table().tableInterface()->rowDescription(0), QStringLiteral("1"));
    EXPECT_EQ(table().tableInterface()->columnDescription(0), QStringLiteral("h"));
}

TEST_F(BoardCells, ACellKnowsItsPlaceInTheTableAndOnTheScreen) {
    QAccessibleInterface* const cell = table().tableInterface()->cellAt(7, 4);
    EXPECT_EQ(cell->role(), QAccessible::Cell);
    EXPECT_EQ(cell->parent(), &table());
    EXPECT_EQ(table().indexOfChild(cell), 60);
    EXPECT_EQ(cell->tableCellInterface()->rowIndex(), 7);
    EXPECT_EQ(cell->tableCellInterface()->columnIndex(), 4);
    EXPECT_EQ(cell->tableCellInterface()->table(), &table());
    const QPoint middle = view.mapToGlobal(view.cellOf(4).center());
    EXPECT_TRUE(cell->rect().contains(middle));
    EXPECT_EQ(table().childAt(middle.x(), middle.y()), cell);
    const QPoint edge = view.mapToGlobal(QPoint(0, 0));
    EXPECT_EQ(table().childAt(edge.x(), edge.y()), nullptr);
}

TEST_F(BoardCells, ACellMovesOnTheScreenWithItsWindow) {
    QAccessibleInterface* const cell = table().child(0);
    const QRect before = cell->rect();
    view.move(view.pos() + QPoint(30, 50));
    EXPECT_EQ(cell->rect(), before.translated(30, 50));
}

TEST_F(BoardCells, ALiftedPieceIsInHandAndItsCellSelected) {
    EXPECT_EQ(table().tableInterface()->selectedCellCount(), 0);
    view.zYankPiece(28);
    EXPECT_EQ(nameOf(4, 4), QStringLiteral("e4, white pawn, in hand"));
    const auto selected = table().tableInterface()->selectedCells();
    ASSERT_EQ(selected.size(), 1);
    EXPECT_TRUE(selected[0]->state().selected);
    EXPECT_EQ(selected[0], table().child(4 * 8 + 4));
    view.zDrawSquare(28);
    EXPECT_EQ(table().tableInterface()->selectedCellCount(), 0);
}

TEST_F(BoardCells, TheChosenSquareHasTheFocusWhileTheBoardHas) {
    view.show();
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    view.choose(28);
    view.setFocus();
    QAccessibleInterface* const cell = table().tableInterface()->cellAt(4, 4);
    EXPECT_TRUE(cell->state().focusable);
    EXPECT_TRUE(cell->state().focused);
    EXPECT_EQ(table().focusChild(), cell);
    EXPECT_FALSE(table().child(0)->state().focused);
    view.clearFocus();
    EXPECT_FALSE(cell->state().focused);
    EXPECT_NE(table().focusChild(), cell);
    cell->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(view.hasFocus());
}

TEST_F(BoardCells, AStepIsAnnounced) {
    std::vector<int> heard;
    announceSquare = [&](BoardView*, int square) { heard.push_back(square); };
    view.choose(28);
    QTest::keyClick(&view, Qt::Key_Up);
    EXPECT_EQ(heard, (std::vector{28, 36}));
}

TEST_F(BoardCells, TheFocusIsAnnouncedBehindThatOfTheWholeBoard) {
    view.show();
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    view.clearFocus();
    QCoreApplication::processEvents();
    std::vector<int> heard;
    announceSquare = [&](BoardView*, int square) { heard.push_back(square); };
    view.setFocus();
    EXPECT_TRUE(heard.empty());
    QCoreApplication::processEvents();
    EXPECT_EQ(heard, std::vector{0});
    view.setFocus();
    view.clearFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(heard.size(), 1U) << "it has gone again";
}

TEST_F(BoardCells, ASquareThatIsPaintedIsAnnouncedAndAFlipAnnouncesAll) {
    std::vector<int> heard;
    announcePiece = [&](BoardView*, int square) { heard.push_back(square); };
    view.zDrawSquare(28);
    EXPECT_EQ(heard, std::vector{28});
    setUp(54, 0, true);
    EXPECT_EQ(heard.size(), 65U);
}

TEST_F(BoardCells, TheFirstActionIsAPressOfTheKeyAndTheSecondGoesThere) {
    QSignalSpy pressed(&view, &BoardView::squarePressed);
    QAccessibleActionInterface* const cell = table().tableInterface()->cellAt(4, 4)->actionInterface();
    ASSERT_TRUE(cell);
    cell->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(view.chosenSquare(), 28);
    EXPECT_EQ(pressed.count(), 0);
    cell->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_EQ(pressed.count(), 1);
    EXPECT_EQ(pressed[0], (QVariantList{1, 28}));
}

TEST_F(BoardCells, ACellOutlivesItsBoardAsNothing) {
    auto* board = new BoardView([](int) { return std::int16_t{0}; });
    QAccessibleInterface* const kept = QAccessible::queryAccessibleInterface(board)->child(0);
    const QAccessible::Id id = QAccessible::uniqueId(kept);
    delete board;
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

TEST_F(BoardCells, TheFrameOfTheChosenSquareShowsWhileTheBoardHasTheFocus) {
    view.show();
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    view.clearFocus();
    const QImage before = screen();
    view.choose(12);
    EXPECT_EQ(screen(), before);
    view.setFocus();
    EXPECT_EQ(frameAtLeft(cut(screen(), 12), 0xFF000000), device(2));
    view.choose(13);
    EXPECT_EQ(cut(screen(), 12), cut(before, 12));
    view.clearFocus();
    EXPECT_EQ(screen(), before);
}
