// The board on the screen, picChess: its persistent picture, and above it the piece that hangs on the pointer.
#pragma once

#include "common/Needed.h"
#include "view/BoardGeometry.h"
#include "view/PieceSets.h"

#include <QImage>
#include <QWidget>

#include <cstdint>
#include <functional>

// Squares are painted into a picture in device pixels, and the screen shows copies of it. All points are in pixels
// from the top left corner of the top left square, which lies BorderPixels inside the widget.
class BoardView : public QWidget {
    Q_OBJECT

public:
    static constexpr int BorderPixels = 2; // the edge around the squares, on each side

    explicit BoardView(Needed<std::int16_t(int square)> pieces, QWidget* parent = nullptr);

    // The piece code (1 to 6 white, -1 to -6 black, anything else none) on square 0 to 63.
    Needed<std::int16_t(int square)> pieceAt;

    // What was played last and what is to be played, told in front of the position; empty for nothing, as on a board
    // without moves.
    std::function<std::string()> movesInWords = [] { return std::string(); };

    // Sounds when zGetSqr is asked for a point beside the board; the system's beep unless replaced.
    std::function<void()> beep;

    const BoardGeometry& geometry() const { return geometry_; }

    // Takes over the measures, sizes the widget by them and paints all squares anew, without highlights and without a
    // dragged piece; the screen changes in one step.
    void zBoardSetup(const BoardGeometry& geometry);

    // Squares painted from now on take their pieces from image list 0 to 25 (faults on any other), until the next
    // zBoardSetup.
    void usePieceList(std::int16_t list);

    // Paints one square and no other. `mode` 0 paints it plain, -1 with a frame in modChess.ColorMove, any other with
    // one in modChess.ColorPreMove; `bare` not zero leaves its piece out. With a `target` (8 squares in device pixels)
    // it paints there and not on the board. Faults (subscript) on a square outside 0 to 63.
    void zDrawSquare(std::int16_t square, std::int16_t mode = 0, std::int16_t bare = 0, QImage* target = nullptr);

    // Takes the square's piece on the pointer, to be shown by zMovePiece, and paints the square without it, its
    // highlight frame staying. Faults as zDrawSquare does.
    void zYankPiece(std::int16_t square);

    // Shows the lifted piece with its middle at a point, blended with strength `xAlpha`: 0 not at all, 255 solid. What
    // the call before showed is gone.
    void zMovePiece(float x, float y, std::uint8_t xAlpha);

    // Makes a piece that landed solid (strength 255) a part of the picture; one that still hangs on the pointer stays
    // above it. The second half of zUpdate, whose first half, the events, is the board's.
    void persist();

    // The display square at a point; 64 and a beep beside the board.
    std::int16_t zGetSqr(float x, float y) const;

    // The background colour (0xBBGGRR) of the current piece set.
    std::int32_t zGetSquareBackGroundColor() const;

    // The pointer over the board by what zMoveOK said: -1 may move now, 1 may pre-move, anything else the default.
    void showPointer(std::int16_t moveMode);

    // The square that the keyboard is at, 0 to 63, a1 at first; it keeps its name in a flip, and shows while the board
    // has the focus.
    int chosenSquare() const { return chosen_; }
    void choose(int square);
    // Whether the square was painted without its piece, which hangs on the pointer.
    bool isLifted(int square) const { return shownBare_[square]; }
    // Where a square stands in the widget, in pixels.
    QRect cellOf(int square) const { return squareArea(square).translated(BorderPixels, BorderPixels); }

    // Moves and position in words, for assistive tools; made anew on each call.
    QString description() const;

    // The picture under the dragged piece, 8 squares in device pixels.
    const QImage& picture() const { return picture_; }

Q_SIGNALS:
    // `button` is the sum of 1 left, 2 right, 4 middle: the one that changed, or in a move all that are down. A double
    // click is two presses. A drag is followed and let go anywhere on the screen. The border announces no press,
    // and no move without a button.
    void mouseDown(int button, float x, float y);
    void mouseMoved(int button, float x, float y);
    void mouseUp(int button, float x, float y);
    // A key stands for that button (1 left, 2 right) on the square.
    void squarePressed(int button, int square);
    // The keyboard, or an assistive tool, has gone to the square.
    void squareReached(int square);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QRect squareArea(int square) const;
    QRect toDevice(const QRect& pixels) const;
    bool isOnBoard(const QPointF& point) const;
    QRect withSpill(const QRect& pixels) const;
    void updatePixels(const QRect& pixels);
    void paintSquare(QPainter& painter, int square, int mode, bool bare) const;
    void paintPiece(QPainter& painter, const QRect& area, int image) const;
    void compose();
    void paintChoice(QPainter& painter) const;

    BoardGeometry geometry_;
    QImage picture_;     // 8 squares in device pixels
    double ratio_ = 1;   // device pixels to the pixel, of picture_
    PieceImages images_; // of the list in use; shares its pixels with imlPieces
    FixedArray<std::int16_t, 63> shownMode_;
    FixedArray<bool, 63> shownBare_;

    int liftedImage_ = 0;         // 0 none
    QRect layer_;                 // where the lifted piece shows, in pixels; empty if nowhere
    std::uint8_t layerAlpha_ = 0; // 0 whenever layer_ is empty
    std::int16_t pointer_ = 0;
    int chosen_ = 0;
};
