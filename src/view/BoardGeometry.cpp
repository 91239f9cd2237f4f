// The measures of a board: its squares, its form, and the way between points and squares.
#include "view/BoardGeometry.h"

#include "common/Numbers.h"
#include "common/Squares.h"
#include "common/modChess.h"
#include "view/PieceLists.h"

#include <algorithm>
#include <cmath>

namespace {

int rounded(double value) { return static_cast<int>(roundHalfEven(value)); }

} // namespace

BoardGeometry::BoardGeometry() { fillDisplaySquare(); }

void BoardGeometry::zBoardSetup(const FormMeasures& form, std::int16_t chessSet) {
    MinHeight = BoardDesign::MinHeight * TwipsPerPixelY + form.frameY;
    MinWidth = BoardDesign::MinWidth * TwipsPerPixelX + form.frameX;

    SquareTwips = toInt16((form.height - MinHeight) / 8.0);
    SquareTwips = toInt16(std::max<std::int32_t>(SquareTwips, BoardDesign::SmallestSquare * TwipsPerPixelX));
    SquarePixels = toInt16(static_cast<double>(SquareTwips) / TwipsPerPixelX);
    PieceList = choosePieceList(chessSet, SquarePixels);
    SquareTwips = toInt16(SquarePixels * TwipsPerPixelX);
    ImagePixels = pieceListSize(PieceList);
    fillDisplaySquare();

    FormHeight = 8 * SquareTwips + MinHeight;
    FormWidth = 8 * SquareTwips + MinWidth;
}

void BoardGeometry::fillDisplaySquare() {
    for (int square = 0; square < 64; ++square) {
        DisplaySquare[square] = static_cast<std::int16_t>(Flipped ? 63 - square : square);
    }
}

std::int16_t BoardGeometry::zGetSqr(float x, float y) const {
    const float file = std::floor(x / static_cast<float>(SquarePixels));
    const float row = 7 - std::floor(y / static_cast<float>(SquarePixels));
    // Written so that a point that is no number is off the board too.
    if (!(file >= 0 && file <= 7 && row >= 0 && row <= 7)) return OffBoard;
    return static_cast<std::int16_t>(static_cast<int>(row) * 8 + static_cast<int>(file));
}

void BoardGeometry::zGetXY(std::int16_t square, float& x, float& y) const {
    x = static_cast<float>(fileOf(square) * SquarePixels);
    y = static_cast<float>((7 - rankOf(square)) * SquarePixels);
}

int BoardGeometry::neighbour(int square, int right, int up) const {
    const int position = DisplaySquare[square];
    const int file = std::clamp(fileOf(position) + right, 0, 7);
    const int rank = std::clamp(rankOf(position) + up, 0, 7);
    return DisplaySquare[8 * rank + file];
}

int BoardGeometry::pieceOffset() const { return std::max(0, rounded((SquarePixels - (ImagePixels - 1)) / 2.0)); }

int BoardGeometry::highlightThickness() const { return rounded(ImagePixels / 20.0); }

std::string zConvertSquare(std::int16_t square) { return zSquareName(square); }

std::int32_t squareColor(int square) {
    return (fileOf(square) + rankOf(square)) % 2 == 0 ? modChess.ColorBlack : modChess.ColorWhite;
}

void zFindBottomRow(const std::function<bool(int row)>& rowIsVisible, std::int16_t& visibleRows) {
    for (int row = 1; row <= 200; ++row) {
        if (rowIsVisible(row)) continue;
        visibleRows = static_cast<std::int16_t>(row - 2);
        return;
    }
}
