// The move list of a board, grdMoves, as text and tints; the window only shows it.
#pragma once

#include "common/FixedArray.h"
#include "common/Needed.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

// Where the grid shows itself. Every member must be given.
struct MoveGridSurface {
    Needed<void(int row, int col)> showCell; // its text or tint has changed
    Needed<void(int row)> scrollTo;          // the top row below the heading
    Needed<void()> setUp;                    // all cells have changed; set the widths anew
    Needed<void()> showCurrent;              // another cell is the current one
    Needed<void()> zFindBottomRow;           // count VisibleRows
};

// 0xBBGGRR.
namespace GridTint {
inline constexpr std::int32_t Plain = 0xFFFFFF;
inline constexpr std::int32_t OnLine = 0xC0C0FF;  // the current move on the stored line
inline constexpr std::int32_t OffLine = 0x80FFFF; // the current cell off the stored line
inline constexpr std::int32_t Left = 0xC0FFFF;    // a cell left behind
} // namespace GridTint

struct GridCell {
    std::string text;
    std::int32_t tint = GridTint::Plain;
};

// Rows 0 to 200, row 0 the heading; columns 0 number, 1 white, 2 black. Every row and column past these faults
// (subscript).
struct MoveGridState {
    static constexpr int LastRow = 200;
    static constexpr int LastCol = 2;

    // Widths of the columns in pixels.
    static constexpr int NumberWidth = 20;
    static constexpr int MoveWidth = 47;

    explicit MoveGridState(MoveGridSurface shownBy) : surface(std::move(shownBy)) {}

    MoveGridSurface surface;
    FixedArray<FixedArray<GridCell, LastCol>, LastRow, "rows of the move list"> cells;
    int row = 0; // the current cell; set through goTo
    int col = 0;
    int topRow = 1;               // first row on view below the heading; a window that is scrolled by hand writes it
    std::int16_t VisibleRows = 0; // how many rows fit, minus one; the window counts them
    int tintedRow = 0;            // the cell tinted last; row 0 means none
    int tintedCol = 0;

    // Shows the cell only when its text is another one than before.
    void setCell(int cellRow, int cellCol, std::string_view text);
    const std::string& text(int cellRow, int cellCol) const { return cells[cellRow][cellCol].text; }
    const std::string& currentText() const { return text(row, col); }

    // Makes a cell the current one.
    void goTo(int cellRow, int cellCol);

    // Clears all cells and sets the heading "White", "Black".
    void zGridSetup();

    // Scrolls so that `moveRow` stays in view.
    void zSetTop(int moveRow);

    // Tints the current cell: as the move on the stored line if its text equals `text`, as a cell off the line if
    // `text` is "No"; the cell tinted before is let go.
    void zGridLight(std::string_view text);

private:
    void setTint(int cellRow, int cellCol, std::int32_t tint);
};
