// A board view over an array of pieces, in plain test colours.
#pragma once

#include "common/modChess.h"
#include "view/BoardView.h"

#include <QImage>

#include <gtest/gtest.h>

#include <array>
#include <cmath>

// Starts as an empty board of 54-pixel squares. Put pieces into `pieces`, then call `setUp`.
class BoardFixture : public testing::Test {
protected:
    static constexpr QRgb White = 0xFF112233;
    static constexpr QRgb Black = 0xFF445566;
    static constexpr QRgb Move = 0xFF778899;
    static constexpr QRgb PreMove = 0xFFAABBCC;

    BoardFixture() {
        modChess = ModChess{};
        modChess.ColorWhite = 0x332211; // 0xBBGGRR
        modChess.ColorBlack = 0x665544;
        modChess.ColorMove = 0x998877;
        modChess.ColorPreMove = 0xCCBBAA;
        setUp();
    }
    ~BoardFixture() override { modChess = ModChess{}; }

    void setUp(int squarePixels = 54, std::int16_t chessSet = 0, bool flipped = false) {
        BoardGeometry geometry;
        geometry.Flipped = flipped;
        geometry.zBoardSetup({(8 * squarePixels + 68) * 15, 0, 0}, chessSet);
        view.zBoardSetup(geometry);
    }

    int side() const { return view.geometry().SquarePixels; }

    // Device pixels to the pixel, and the device pixels of a length.
    double ratio() const { return view.devicePixelRatioF(); }
    int device(double pixels) const { return static_cast<int>(std::lround(pixels * ratio())); }

    // The part of a picture in device pixels that shows display square `square`.
    QImage cut(const QImage& picture, int square) const {
        float x = 0;
        float y = 0;
        view.geometry().zGetXY(static_cast<std::int16_t>(square), x, y);
        return picture.copy(device(x), device(y), device(side()), device(side()));
    }
    QImage square(int display) const { return cut(view.picture(), display); }

    // What the user sees, in device pixels, without the border.
    QImage screen() {
        const int border = BoardView::BorderPixels;
        QImage seen = view.grab(QRect(border, border, 8 * side(), 8 * side())).toImage();
        seen.setDevicePixelRatio(1);
        return seen.convertToFormat(QImage::Format_RGB32);
    }

    static bool isPlain(const QImage& part, QRgb color) {
        QImage plain(part.size(), part.format());
        plain.fill(color);
        return part == plain;
    }

    // How many pixels in from the left edge of the square's middle row have that colour.
    static int frameAtLeft(const QImage& part, QRgb color) {
        int count = 0;
        while (count < part.width() && part.pixel(count, part.height() / 2) == color) ++count;
        return count;
    }

    std::array<std::int16_t, 64> pieces{};
    BoardView view{[this](int square) { return pieces.at(static_cast<std::size_t>(square)); }};
};
