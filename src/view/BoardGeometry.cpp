// The measures of a board: its squares, its form, and the way between points and squares.
#include "view/BoardGeometry.h"

#include "common/Numbers.h"
#include "common/Squares.h"
#include "common/modChess.h"
#include "view/PieceLists.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr std::int32_t SmallestSquare = 24; // pixels

int rounded(double value) { return static_cast<int>(roundHalfEven(value)); }

std::string describeSide(const std::function<std::int16_t(int)>& pieceAt, int firstImage) {
    static constexpr std::array<const char*, 6> Words{"king", "queen", "rook", "bishop", "knight", "pawn"};
    std::string text;
    for (int kind = 0; kind < 6; ++kind) {
        for (int square = 0; square < 64; ++square) {
            if (pieceImage(pieceAt(square)) != firstImage + kind) continue;
            if (!text.empty()) text += ", ";
            text += std::string(Words[static_cast<std::size_t>(kind)]) + " " + zSquareName(square);
        }
    }
    return text.empty() ? "none" : text;
}

} // namespace

BoardGeometry::BoardGeometry() { fillDisplaySquare(); }

void BoardGeometry::zBoardSetup(const FormMeasures& form, std::int16_t chessSet) {
    MinHeight = 68 * TwipsPerPixelY + form.frameY;
    MinWidth = 186 * TwipsPerPixelX + form.frameX;
    PanelHeight = 109 * TwipsPerPixelY + form.frameY;
    PanelWidth = 162 * TwipsPerPixelX + form.frameX;

    SquareTwips = toInt16((form.height - MinHeight) / 8.0);
    SquareTwips = toInt16(std::max<std::int32_t>(SquareTwips, SmallestSquare * TwipsPerPixelX));
    SquarePixels = toInt16(static_cast<double>(SquareTwips) / TwipsPerPixelX);
    PieceList = choosePieceList(chessSet, SquarePixels);
    SquareTwips = toInt16(SquarePixels * TwipsPerPixelX);
    ImagePixels = pieceListSize(PieceList);
    fillDisplaySquare();

    FormHeight = 8 * SquareTwips + MinHeight;
    FormWidth = 8 * SquareTwips + MinWidth;
    GridLeft = FormWidth - form.frameX - PanelWidth;
    GridHeight = FormHeight - form.frameY - PanelHeight;
    BoardSide = 8 * SquareTwips + 4 * TwipsPerPixelX;
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

int BoardGeometry::pieceOffset() const { return ::pieceOffset(SquarePixels, ImagePixels); }

int BoardGeometry::highlightThickness() const { return ::highlightThickness(ImagePixels); }

int pieceOffset(int squarePixels, int imagePixels) {
    return std::max(0, rounded((squarePixels - (imagePixels - 1)) / 2.0));
}

int highlightThickness(int imagePixels) { return rounded(imagePixels / 20.0); }

std::string zConvertSquare(std::int16_t square) { return zSquareName(square); }

std::int32_t squareColor(std::int16_t square) {
    return (fileOf(square) + rankOf(square)) % 2 == 0 ? modChess.ColorBlack : modChess.ColorWhite;
}

void zFindBottomRow(const std::function<bool(int row)>& rowIsVisible, std::int16_t& visibleRows) {
    for (int row = 1; row <= 200; ++row) {
        if (rowIsVisible(row)) continue;
        visibleRows = static_cast<std::int16_t>(row - 2);
        return;
    }
}

std::string describePosition(const std::function<std::int16_t(int square)>& pieceAt) {
    return "White: " + describeSide(pieceAt, 1) + "; Black: " + describeSide(pieceAt, 7);
}
