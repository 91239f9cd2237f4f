// The measures of a board: its squares, its form, and the way between points and squares. All arithmetic, no window.
#pragma once

#include "common/FixedArray.h"
#include "common/Twips.h"

#include <cstdint>
#include <functional>
#include <string>

// What zGetSqr gives for a point beside the board.
inline constexpr std::int16_t OffBoard = 64;

// Design figures in pixels.
namespace BoardDesign {
inline constexpr int SmallestSquare = 24; // side of a square
inline constexpr int MinHeight = 68;      // what a form needs inside besides eight squares
inline constexpr int MinWidth = 186;      //
inline constexpr int PanelHeight = 109;   // what it needs inside besides grdMoves
inline constexpr int PanelWidth = 162;    // what stands to the right of the tell buttons
} // namespace BoardDesign

// A form as the window system has it, in twips.
struct FormMeasures {
    std::int32_t height = 0; // outer height
    std::int32_t frameX = 0; // outer width minus inner width
    std::int32_t frameY = 0; // outer height minus inner height
};

// Squares are a1 = 0 to h8 = 63. A display square counts the same way from the bottom left of the screen. Pixel (0,0)
// is the top left corner of the top left square. DisplaySquare is its own inverse.
struct BoardGeometry {
    std::int16_t SquareTwips = BoardDesign::SmallestSquare * TwipsPerPixelX; // side of a square, whole pixels
    std::int16_t SquarePixels = BoardDesign::SmallestSquare;                 // the same, never below SmallestSquare
    std::int16_t ImagePixels = 24;                                           // side of the piece images
    std::int16_t PieceList = 7;                                              // index 0 to 25 into imlPieces
    bool Flipped = false;                                                    // black at the bottom
    FixedArray<std::int16_t, 63> DisplaySquare;                              // square to display square

    // In twips; set by zBoardSetup.
    std::int32_t MinHeight = 0;  // what the form needs outside besides the squares
    std::int32_t MinWidth = 0;   //
    std::int32_t FormHeight = 0; // the outer size to give to the form
    std::int32_t FormWidth = 0;  //

    // An unflipped board of the smallest size.
    BoardGeometry();

    // Fits the board to the form's height, takes the piece list of the family `chessSet` (the setting Chess_Set) and
    // turns DisplaySquare by Flipped. Faults (overflow) on a form of some 17,000 pixels and more.
    void zBoardSetup(const FormMeasures& form, std::int16_t chessSet);

    // The display square at a point in pixels; OffBoard beside the board, where the caller beeps.
    std::int16_t zGetSqr(float x, float y) const;

    // The top left pixel of a display square.
    void zGetXY(std::int16_t square, float& x, float& y) const;

    // The square that stands so many files to the right and ranks up on the screen, as far as the board goes.
    int neighbour(int square, int right, int up) const;

    // Where an image stands in its square, in pixels from the square's left and top edge; never below 0.
    int pieceOffset() const;

    // The thickness of a highlight frame in pixels, a twentieth of the image.
    int highlightThickness() const;

private:
    void fillDisplaySquare();
};

// The name of a square, such as "e4".
std::string zConvertSquare(std::int16_t square);

// The colour (0xBBGGRR) of a square: modChess.ColorBlack if file plus rank is even, as on a1, else modChess.ColorWhite.
std::int32_t squareColor(int square);

// Asks for rows 1 to 200 of grdMoves whether they are in view. The first that is not, minus 2, goes to `visibleRows`,
// which is left alone when all are.
void zFindBottomRow(const std::function<bool(int row)>& rowIsVisible, std::int16_t& visibleRows);
