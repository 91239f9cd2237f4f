// The board on the screen, picChess: its persistent picture, and above it the piece that hangs on the pointer.
#include "view/BoardView.h"

#include "common/modChess.h"
#include "platform/Colors.h"
#include "platform/StreamText.h"
#include "view/BoardCells.h"
#include "view/PointerPictures.h"
#include "view/PositionWords.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

int buttonsOf(Qt::MouseButtons buttons) {
    return static_cast<int>(buttons & (Qt::LeftButton | Qt::RightButton | Qt::MiddleButton));
}

// The whole pixel at or before a coordinate, kept within what a screen can hold. Cutting and not rounding lets a piece
// dropped on the middle of a square of odd width land on the square's own pixels.
int pixelAt(float coordinate) {
    constexpr float limit = 100'000;
    return coordinate > -limit && coordinate < limit ? static_cast<int>(std::floor(coordinate))
                                                     : -static_cast<int>(limit);
}

void paintFrame(QPainter& painter, const QRect& area, int thickness, const QColor& color) {
    const QRect inside = area.adjusted(thickness, thickness, -thickness, -thickness);
    painter.fillRect(QRect(area.left(), area.top(), area.width(), thickness), color);
    painter.fillRect(QRect(area.left(), inside.bottom() + 1, area.width(), thickness), color);
    painter.fillRect(QRect(area.left(), inside.top(), thickness, inside.height()), color);
    painter.fillRect(QRect(inside.right() + 1, inside.top(), thickness, inside.height()), color);
}

QPointF fromCorner(const QMouseEvent& event) {
    return event.position() - QPointF(BoardView::BorderPixels, BoardView::BorderPixels);
}

} // namespace

BoardView::BoardView(Needed<std::int16_t(int square)> pieces, QWidget* parent)
    : QWidget(parent), pieceAt(std::move(pieces)), beep([] { QApplication::beep(); }) {
    setObjectName(QStringLiteral("picChess"));
    setFocusPolicy(Qt::TabFocus); // a click leaves the keys where they are
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    describeSquares(this, tr("Chess board"));
}

void BoardView::zBoardSetup(const BoardGeometry& geometry) {
    geometry_ = geometry;
    shownMode_.fill(0);
    shownBare_.fill(false);
    layer_ = QRect();
    layerAlpha_ = 0;
    compose();
    const int side = 8 * geometry_.SquarePixels + 2 * BorderPixels;
    setFixedSize(side, side);
    update();
    for (int square = 0; square < 64; ++square) announcePiece(this, square);
}

void BoardView::compose() {
    ratio_ = devicePixelRatioF();
    images_ = imlPieces.images(geometry_.PieceList, ratio_);
    const int side = static_cast<int>(std::lround(8 * geometry_.SquarePixels * ratio_));
    QImage composed(side, side, QImage::Format_RGB32);
    QPainter painter(&composed);
    const auto paint = [&](int square) { paintSquare(painter, square, shownMode_[square], shownBare_[square]); };
    for (int square = 0; square < 64; ++square) paint(square);
    for (int square = 0; square < 8; ++square) paint(square); // the first rank is always painted last
    painter.end();
    picture_ = std::move(composed);
}

void BoardView::usePieceList(std::int16_t list) {
    images_ = imlPieces.images(list, devicePixelRatioF());
    geometry_.PieceList = list;
}

void BoardView::zDrawSquare(std::int16_t square, std::int16_t mode, std::int16_t bare, QImage* target) {
    if (picture_.isNull()) return;
    if (target) {
        QPainter painter(target);
        paintSquare(painter, square, mode, bare != 0);
        return;
    }
    persist(); // a piece that landed here must not cover what is painted now
    shownMode_[square] = mode;
    shownBare_[square] = bare != 0;
    QPainter painter(&picture_);
    paintSquare(painter, square, mode, bare != 0);
    updatePixels(squareArea(square));
    announcePiece(this, square);
}

void BoardView::paintSquare(QPainter& painter, int square, int mode, bool bare) const {
    const QRect area = toDevice(squareArea(square));
    painter.fillRect(area, colorOf(squareColor(square)));
    if (mode != 0) {
        const auto thickness = static_cast<int>(std::lround(geometry_.highlightThickness() * ratio_));
        paintFrame(painter, area, thickness, colorOf(mode == -1 ? modChess.ColorMove : modChess.ColorPreMove));
    }
    if (!bare) paintPiece(painter, area, pieceImage(pieceAt(square)));
}

void BoardView::paintPiece(QPainter& painter, const QRect& area, int image) const {
    if (image == 0) return;
    const QImage& piece = images_[static_cast<std::size_t>(image)];
    const auto offset = static_cast<int>(std::lround(geometry_.pieceOffset() * ratio_));
    // The smallest set may be a pixel larger than its square.
    const QRect part(0, 0, std::min(piece.width(), area.width() - offset),
                     std::min(piece.height(), area.height() - offset));
    painter.drawImage(area.topLeft() + QPoint(offset, offset), piece, part);
}

void BoardView::zYankPiece(std::int16_t square) {
    const std::int16_t mode = shownMode_[square];
    liftedImage_ = pieceImage(pieceAt(square));
    zDrawSquare(square, mode, 1);
}

void BoardView::zMovePiece(float x, float y, std::uint8_t xAlpha) {
    const int side = geometry_.SquarePixels;
    const auto half = static_cast<float>(side / 2);
    const QRect before = layer_;
    layer_ = xAlpha == 0 || liftedImage_ == 0 ? QRect() : QRect(pixelAt(x - half), pixelAt(y - half), side, side);
    layerAlpha_ = layer_.isEmpty() ? std::uint8_t{0} : xAlpha;
    updatePixels(before);
    updatePixels(layer_);
}

void BoardView::persist() {
    if (layerAlpha_ != 255) return;
    QPainter painter(&picture_);
    paintPiece(painter, toDevice(layer_), liftedImage_);
    const QPoint middle = layer_.center();
    const auto landed = geometry_.zGetSqr(static_cast<float>(middle.x()), static_cast<float>(middle.y()));
    if (landed != OffBoard) shownBare_[geometry_.DisplaySquare[landed]] = false;
    layer_ = QRect();
    layerAlpha_ = 0;
}

std::int16_t BoardView::zGetSqr(float x, float y) const {
    const std::int16_t square = geometry_.zGetSqr(x, y);
    if (square == OffBoard && beep) beep();
    return square;
}

std::int32_t BoardView::zGetSquareBackGroundColor() const { return imlPieces.backgroundColor(geometry_.PieceList); }

void BoardView::showPointer(std::int16_t moveMode) {
    if (moveMode == pointer_) return;
    pointer_ = moveMode;
    if (moveMode == -1) {
        setCursor(movePointer(devicePixelRatioF()));
    } else if (moveMode == 1) {
        setCursor(preMovePointer(devicePixelRatioF()));
    } else {
        unsetCursor();
    }
}

QString BoardView::description() const {
    const std::string moves = movesInWords();
    return shownText((moves.empty() ? "" : moves + "; ") + describePosition(pieceAt));
}

QRect BoardView::squareArea(int square) const {
    float x = 0;
    float y = 0;
    geometry_.zGetXY(geometry_.DisplaySquare[square], x, y);
    return QRect(static_cast<int>(x), static_cast<int>(y), geometry_.SquarePixels, geometry_.SquarePixels);
}

// Both edges are rounded on their own, so that neighbours meet without a gap at ratios like 1.25.
QRect BoardView::toDevice(const QRect& pixels) const {
    const auto device = [this](int pixel) { return static_cast<int>(std::lround(pixel * ratio_)); };
    const QPoint topLeft(device(pixels.x()), device(pixels.y()));
    return QRect(topLeft, QPoint(device(pixels.x() + pixels.width()) - 1, device(pixels.y() + pixels.height()) - 1));
}

// At a ratio like 1.25 the edge of an area lies within a pixel of the device, which belongs to the neighbour too.
QRect BoardView::withSpill(const QRect& pixels) const {
    const int spill = ratio_ == std::floor(ratio_) ? 0 : 1;
    return pixels.adjusted(-spill, -spill, spill, spill);
}

void BoardView::updatePixels(const QRect& pixels) {
    if (!pixels.isEmpty()) update(withSpill(pixels.translated(BorderPixels, BorderPixels)));
}

void BoardView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (picture_.isNull()) {
        painter.fillRect(event->rect(), palette().window());
        return;
    }
    if (ratio_ != devicePixelRatioF()) compose(); // the window went to another screen
    const QRect board(BorderPixels, BorderPixels, 8 * geometry_.SquarePixels, 8 * geometry_.SquarePixels);
    if (!board.contains(event->rect())) painter.fillRect(rect(), palette().dark());

    // From here on in device pixels, so that the picture is copied and never scaled.
    const auto border = std::lround(BorderPixels * ratio_);
    painter.scale(1 / ratio_, 1 / ratio_);
    painter.translate(static_cast<double>(border), static_cast<double>(border));
    // Clipped to one rectangle at a time: a clip of several makes the toolkit paint a texture, on several threads.
    for (const QRect& area : event->region()) {
        const QRect pixels = withSpill(area.translated(-BorderPixels, -BorderPixels));
        const QRect shown = toDevice(pixels).intersected(picture_.rect());
        painter.setClipRect(shown);
        painter.drawImage(shown.topLeft(), picture_, shown);
    }
    painter.setClipRect(picture_.rect());
    if (hasFocus()) paintChoice(painter);
    if (layerAlpha_ == 0) return;
    painter.setOpacity(layerAlpha_ / 255.0);
    paintPiece(painter, toDevice(layer_), liftedImage_);
}

// Dark and light, so that it shows on every colour of a square.
void BoardView::paintChoice(QPainter& painter) const {
    const int thickness = std::max(1, static_cast<int>(std::lround(ratio_ * geometry_.SquarePixels / 24)));
    const QRect area = toDevice(squareArea(chosen_));
    paintFrame(painter, area, thickness, Qt::black);
    paintFrame(painter, area.adjusted(thickness, thickness, -thickness, -thickness), thickness, Qt::white);
}

bool BoardView::isOnBoard(const QPointF& point) const {
    const double side = 8 * geometry_.SquarePixels;
    return point.x() >= 0 && point.y() >= 0 && point.x() < side && point.y() < side;
}

void BoardView::mousePressEvent(QMouseEvent* event) {
    const QPointF point = fromCorner(*event);
    if (!isOnBoard(point)) return;
    Q_EMIT mouseDown(buttonsOf(event->button()), static_cast<float>(point.x()), static_cast<float>(point.y()));
}

void BoardView::mouseMoveEvent(QMouseEvent* event) {
    const QPointF point = fromCorner(*event);
    const int buttons = buttonsOf(event->buttons());
    if (buttons == 0 && !isOnBoard(point)) return;
    Q_EMIT mouseMoved(buttons, static_cast<float>(point.x()), static_cast<float>(point.y()));
}

void BoardView::mouseReleaseEvent(QMouseEvent* event) {
    const QPointF point = fromCorner(*event);
    Q_EMIT mouseUp(buttonsOf(event->button()), static_cast<float>(point.x()), static_cast<float>(point.y()));
}

// Keyboard

void BoardView::choose(int square) {
    updatePixels(squareArea(chosen_));
    chosen_ = square;
    updatePixels(squareArea(chosen_));
    announceSquare(this, square);
    Q_EMIT squareReached(square);
}

void BoardView::keyPressEvent(QKeyEvent* event) {
    const bool plain = !(event->modifiers() & ~Qt::KeypadModifier);
    const auto go = [this](int right, int up) { choose(geometry_.neighbour(chosen_, right, up)); };
    switch (plain ? event->key() : 0) {
    case Qt::Key_Left:
        return go(-1, 0);
    case Qt::Key_Right:
        return go(1, 0);
    case Qt::Key_Up:
        return go(0, 1);
    case Qt::Key_Down:
        return go(0, -1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (!event->isAutoRepeat()) Q_EMIT squarePressed(1, chosen_);
        return;
    default:
        event->ignore();
    }
}

// The menu key; the button of the pointer is a press of its own.
void BoardView::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard) Q_EMIT squarePressed(2, chosen_);
}

void BoardView::focusInEvent(QFocusEvent*) {
    updatePixels(squareArea(chosen_));
    QTimer::singleShot(0, this, [this] { // behind what the toolkit says of the whole board
        if (hasFocus()) announceSquare(this, chosen_);
    });
}

void BoardView::focusOutEvent(QFocusEvent*) { updatePixels(squareArea(chosen_)); }
