// The move list of a board, grdMoves, as text and tints; the window only shows it.
#include "board/MoveGridState.h"

#include <algorithm>

namespace {

// How the cell tinted before is let go.
std::int32_t letGo(std::int32_t tint) {
    using namespace GridTint;
    return tint == OffLine || tint == Left ? Left : Plain;
}

} // namespace

void MoveGridState::setCell(int cellRow, int cellCol, std::string_view text) {
    GridCell& cell = cells[cellRow][cellCol];
    if (cell.text == text) return;
    cell.text = text;
    surface.showCell(cellRow, cellCol);
}

void MoveGridState::setTint(int cellRow, int cellCol, std::int32_t tint) {
    GridCell& cell = cells[cellRow][cellCol];
    if (cell.tint == tint) return;
    cell.tint = tint;
    surface.showCell(cellRow, cellCol);
}

void MoveGridState::goTo(int cellRow, int cellCol) {
    static_cast<void>(cells[cellRow][cellCol]); // a cell that is not there faults before anything moves
    if (cellRow == row && cellCol == col) return;
    row = cellRow;
    col = cellCol;
    surface.showCurrent();
}

void MoveGridState::zGridSetup() {
    cells.fill({});
    cells[0][1].text = "White";
    cells[0][2].text = "Black";
    surface.setUp();
}

void MoveGridState::zSetTop(int moveRow) {
    const int bottom = topRow + VisibleRows - 1;
    int top = topRow;
    if (moveRow > bottom && VisibleRows > 0) top = moveRow - (VisibleRows - 1);
    if (moveRow <= top) top = std::max(moveRow - 1, 1);
    if (top == topRow) return;
    topRow = top;
    surface.scrollTo(topRow);
}

void MoveGridState::zGridLight(std::string_view text) {
    if (tintedRow != 0) setTint(tintedRow, tintedCol, letGo(cells[tintedRow][tintedCol].tint));
    tintedRow = row;
    tintedCol = col;
    if (row == 0) return;
    if (currentText() == text) setTint(row, col, GridTint::OnLine);
    if (text == "No") setTint(row, col, GridTint::OffLine);
}
