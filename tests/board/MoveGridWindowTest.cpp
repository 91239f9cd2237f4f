// The move list on the screen: at every font the newest move is in view.
#include "board/BoardWindowRig.h"

#include <QScrollBar>

namespace {

class MoveGridWindow : public BoardWindowRig {
protected:
    ~MoveGridWindow() override { QApplication::setFont(before); }

    frmChessBoard& openAt(int points) {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        return open();
    }
    // So many moves of a watched game.
    static void play(frmChessBoard& board, int moves) {
        receive(board.game, {.relation = 0}, true);
        for (int move = 1; move <= moves; ++move) {
            receive(board.game, {.turn = "B", .relation = 0, .moveNumber = move, .pretty = "Nbxd7+"}, false);
            receive(board.game, {.turn = "W", .relation = 0, .moveNumber = move + 1, .pretty = "exd8=Q+"}, false);
        }
    }
    static bool wholeInView(const MoveGrid& grid, int row) {
        const QRect cell = grid.visualRect(grid.model()->index(row - 1, 2));
        return grid.viewport()->rect().contains(cell);
    }

    const QFont before = QApplication::font();
};

} // namespace

TEST_F(MoveGridWindow, TheNewestMoveIsInViewAtEveryDesktopFont) {
    for (int points = 8; points <= 20; ++points) {
        frmChessBoard& board = openAt(points);
        const auto& grid = part<MoveGrid>(board, "grdMoves");
        play(board, 60);
        EXPECT_TRUE(wholeInView(grid, 60)) << points;
        EXPECT_FALSE(wholeInView(grid, 30)) << points;
        delete &board;
    }
}

TEST_F(MoveGridWindow, TheRowsAreAsHighAsTheLettersNeed) {
    frmChessBoard& board = open();
    auto& grid = part<MoveGrid>(board, "grdMoves");
    for (int points = 8; points <= 20; ++points) {
        QFont font = before;
        font.setPointSize(points);
        grid.setFont(font);
        grid.zFindBottomRow();
        EXPECT_GE(grid.rowHeight(0), grid.fontMetrics().height()) << points;
        EXPECT_EQ(board.game.grdMoves.VisibleRows, grid.viewport()->height() / grid.rowHeight(0) - 1) << points;
    }
}

TEST_F(MoveGridWindow, AGridThatIsScrolledHasAsManyRowsAsOneThatIsNot) {
    frmChessBoard& board = open();
    auto& grid = part<MoveGrid>(board, "grdMoves");
    const auto rows = board.game.grdMoves.VisibleRows;
    ASSERT_GT(rows, 5);
    board.game.grdMoves.VisibleRows = 0;
    grid.verticalScrollBar()->setValue(120);
    ASSERT_EQ(board.game.grdMoves.topRow, 121);
    grid.zFindBottomRow();
    EXPECT_EQ(board.game.grdMoves.VisibleRows, rows);
}

TEST_F(MoveGridWindow, ALongMoveIsShownWhole) {
    for (const int points : {8, 11, 14, 20}) {
        frmChessBoard& board = openAt(points);
        auto& grid = part<MoveGrid>(board, "grdMoves");
        const auto painted = [&](const char* text) {
            board.game.grdMoves.setCell(1, 1, text);
            return grid.grab().toImage();
        };
        for (const char* move : {"Nbxd7", "Qa1xb2", "exd8=Q"}) {
            const std::string text(move);
            EXPECT_NE(painted((text + "+").c_str()), painted((text + "#").c_str())) << move << " at " << points;
        }
        delete &board;
    }
}

TEST_F(MoveGridWindow, EachColumnHasANameForAssistiveToolsAndTheFirstOneNoHeading) {
    const auto& model = *part<MoveGrid>(open(), "grdMoves").model();
    const auto heading = [&model](int column, int role) {
        return model.headerData(column, Qt::Horizontal, role).toString();
    };
    EXPECT_EQ(heading(0, Qt::AccessibleTextRole), QStringLiteral("Number"));
    EXPECT_EQ(heading(0, Qt::DisplayRole), QString());
    EXPECT_EQ(heading(1, Qt::DisplayRole), QStringLiteral("White"));
    EXPECT_EQ(model.headerData(0, Qt::Vertical, Qt::AccessibleTextRole), QVariant());
}
