// The move list as text and tints.
#include "board/MoveGridState.h"

#include "board/QuietGame.h"
#include "common/Fault.h"

#include <gtest/gtest.h>

using namespace GridTint;

namespace {

// A grid with "e4" at (1, 1) as its current cell.
struct GridWithMove {
    MoveGridState grid{quietGrid()};
    GridWithMove() {
        grid.zGridSetup();
        grid.setCell(1, 1, "e4");
        grid.setCell(1, 2, "e5");
        grid.goTo(1, 1);
    }
    std::int32_t tint(int row, int col) const { return grid.cells[row][col].tint; }
};

int topAfter(int top, std::int16_t visible, int moveRow) {
    MoveGridState grid{quietGrid()};
    grid.topRow = top;
    grid.VisibleRows = visible;
    grid.zSetTop(moveRow);
    return grid.topRow;
}

} // namespace

TEST(MoveGrid, SetupClearsAllAndSetsTheHeading) {
    GridWithMove g;
    g.grid.zGridLight("e4");
    int setUps = 0;
    g.grid.surface.setUp = [&] {
        ++setUps;
        EXPECT_EQ(g.grid.text(0, 2), "Black") << "the window is set up from what stands here";
    };
    g.grid.zGridSetup();
    EXPECT_EQ(g.grid.text(0, 0), "");
    EXPECT_EQ(g.grid.text(0, 1), "White");
    EXPECT_EQ(g.grid.text(0, 2), "Black");
    EXPECT_EQ(g.grid.text(1, 1), "");
    EXPECT_EQ(g.tint(1, 1), Plain);
    EXPECT_EQ(setUps, 1);
}

TEST(MoveGrid, RowsPast200AndColumnsPast2Fault) {
    MoveGridState grid{quietGrid()};
    grid.setCell(200, 2, "x");
    EXPECT_THROW(grid.setCell(201, 1, "x"), Fault);
    EXPECT_THROW(grid.setCell(1, 3, "x"), Fault);
    EXPECT_THROW(grid.goTo(201, 1), Fault);
    EXPECT_EQ(grid.row, 0) << "a fault moves nothing";
}

TEST(MoveGrid, OnlyACellThatChangesIsShownAnew) {
    GridWithMove g;
    std::vector<std::pair<int, int>> shown;
    g.grid.surface.showCell = [&](int row, int col) { shown.emplace_back(row, col); };
    g.grid.setCell(1, 1, "e4");
    g.grid.zGridLight("d4");
    g.grid.setCell(1, 2, "");
    EXPECT_EQ(shown, (std::vector<std::pair<int, int>>{{1, 2}}));
    shown.clear();
    g.grid.setCell(1, 1, "d4");
    g.grid.zGridLight("d4");
    EXPECT_EQ(shown, (std::vector<std::pair<int, int>>{{1, 1}, {1, 1}})) << "text and tint";
}

TEST(MoveGrid, ACellHasItsTintWhenItIsShown) {
    GridWithMove g;
    std::vector<std::int32_t> shown;
    g.grid.surface.showCell = [&](int row, int col) { shown.push_back(g.tint(row, col)); };
    g.grid.zGridLight("e4");
    EXPECT_EQ(shown, (std::vector{OnLine}));
}

TEST(MoveGrid, AnotherCurrentCellIsShownWhereItIs) {
    GridWithMove g;
    std::vector<std::pair<int, int>> shown;
    g.grid.surface.showCurrent = [&] { shown.emplace_back(g.grid.row, g.grid.col); };
    g.grid.goTo(1, 2);
    g.grid.goTo(1, 2);
    g.grid.goTo(3, 2);
    EXPECT_EQ(shown, (std::vector<std::pair<int, int>>{{1, 2}, {3, 2}}));
}

TEST(MoveGrid, SetTopLeavesARowBetweenTopAndBottom) {
    EXPECT_EQ(topAfter(5, 10, 6), 5);
    EXPECT_EQ(topAfter(5, 10, 13), 5);
    EXPECT_EQ(topAfter(5, 10, 14), 5) << "the bottom row itself stays";
}

TEST(MoveGrid, SetTopScrollsDownToARowBelowTheBottom) { EXPECT_EQ(topAfter(5, 10, 15), 6); }

TEST(MoveGrid, SetTopScrollsUpToOneRowAboveTheMove) {
    EXPECT_EQ(topAfter(5, 10, 5), 4);
    EXPECT_EQ(topAfter(5, 10, 3), 2);
    EXPECT_EQ(topAfter(5, 10, 1), 1);
    EXPECT_EQ(topAfter(5, 10, 0), 1);
}

TEST(MoveGrid, SetTopKeepsTheRowAboveTheMoveInViewWhereOnlyOneMoreFits) {
    EXPECT_EQ(topAfter(5, 1, 9), 8);
    EXPECT_EQ(topAfter(5, 2, 9), 8);
}

TEST(MoveGrid, SetTopDoesNotScrollDownWithNoVisibleRows) { EXPECT_EQ(topAfter(5, 0, 50), 5); }

TEST(MoveGrid, SetTopTellsTheWindowOnlyOfAChange) {
    MoveGridState grid{quietGrid()};
    std::vector<int> scrolls;
    grid.surface.scrollTo = [&](int row) { scrolls.push_back(row); };
    grid.VisibleRows = 10;
    grid.zSetTop(4);
    EXPECT_TRUE(scrolls.empty());
    grid.zSetTop(20);
    EXPECT_EQ(scrolls, std::vector{11});
}

TEST(MoveGrid, LightMarksTheCellWhoseTextFits) {
    GridWithMove g;
    g.grid.zGridLight("e4");
    EXPECT_EQ(g.tint(1, 1), OnLine);
}

TEST(MoveGrid, LightWithAnotherTextTintsNothing) {
    GridWithMove g;
    g.grid.zGridLight("d4");
    EXPECT_EQ(g.tint(1, 1), Plain);
}

TEST(MoveGrid, LightWithNoMarksTheCellOffTheLine) {
    GridWithMove g;
    g.grid.zGridLight("No");
    EXPECT_EQ(g.tint(1, 1), OffLine);
}

TEST(MoveGrid, LightOnTheHeadingTintsNothingAndRemembersNone) {
    GridWithMove g;
    g.grid.goTo(0, 1);
    g.grid.zGridLight("White");
    EXPECT_EQ(g.tint(0, 1), Plain);
    g.grid.goTo(1, 1);
    g.grid.zGridLight("e4");
    EXPECT_EQ(g.tint(0, 1), Plain);
}

TEST(MoveGrid, LightOnALineLetsTheOldCellGo) {
    GridWithMove g;
    g.grid.zGridLight("e4");
    g.grid.goTo(1, 2);
    g.grid.zGridLight("e5");
    EXPECT_EQ(g.tint(1, 1), Plain);
    EXPECT_EQ(g.tint(1, 2), OnLine);
}

TEST(MoveGrid, ACellOffTheLineIsLeftBehindAndStaysSo) {
    GridWithMove g;
    g.grid.zGridLight("No");
    g.grid.goTo(1, 2);
    g.grid.zGridLight("e5");
    EXPECT_EQ(g.tint(1, 1), Left);

    g.grid.tintedRow = 1;
    g.grid.tintedCol = 1;
    g.grid.zGridLight("e5");
    EXPECT_EQ(g.tint(1, 1), Left);
}

TEST(MoveGrid, LightWithNoLetsTheOldCellGo) {
    GridWithMove g;
    g.grid.zGridLight("e4");
    g.grid.goTo(1, 2);
    g.grid.zGridLight("No");
    EXPECT_EQ(g.tint(1, 1), Plain);
    EXPECT_EQ(g.tint(1, 2), OffLine);

    g.grid.goTo(1, 1);
    g.grid.zGridLight("No");
    EXPECT_EQ(g.tint(1, 2), Left);
}

TEST(MoveGrid, SetupKeepsWhichCellWasTintedLast) {
    GridWithMove g;
    g.grid.goTo(1, 2);
    g.grid.zGridLight("e5");
    g.grid.zGridSetup();
    EXPECT_EQ(g.grid.tintedRow, 1);
    EXPECT_EQ(g.grid.tintedCol, 2);
    g.grid.cells[1][2].tint = OnLine;
    g.grid.goTo(3, 1);
    g.grid.zGridLight("No");
    EXPECT_EQ(g.tint(1, 2), Plain) << "so it is let go as the one before";
}
