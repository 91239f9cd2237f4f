// Real board windows under real mouse events; popup menus are answered by the test, from the message loop.
#pragma once

#include "board/BoardRig.h"
#include "board/BoardWindowRig.h"
#include "common/Squares.h"

#include <QCoreApplication>
#include <QImage>
#include <QMenu>
#include <QMouseEvent>
#include <QTimer>

#include <functional>
#include <string>

inline const std::string BlackE5 = "rnbqkbnr pppp-ppp -------- ----p--- ----P--- -------- PPPP-PPP RNBQKBNR";
inline const std::string PawnOnA7 = "----k--- P------- -------- -------- -------- -------- -------- ----K---";

class MouseWindowRig : public BoardWindowRig {
protected:
    MouseWindowRig() {
        modChess.DragMode = 1;
        boxes.popup = [this](QMenu& menu, const std::function<void(QAction*)>& chosen) {
            popups.push_back(menu.objectName().toStdString());
            QTimer::singleShot(0, &menu, [this, &menu, chosen] {
                ++answered;
                chosen(answer ? answer(menu) : nullptr);
            });
        };
    }

    // A board on which the user has the white pieces and is to move.
    frmChessBoard& openMine(const LineOf& line = {}) {
        frmChessBoard& board = open();
        receive(board, line, true);
        return board;
    }
    // The same after his e4, with pre-moves allowed.
    frmChessBoard& openWaiting() {
        modChess.PreMoveOK = 1;
        frmChessBoard& board = openMine();
        receive(board, {AfterE4, "B", 12, -1, 300, 300, 1, "P/e2-e4", "e4", 0});
        return board;
    }
    static void receive(frmChessBoard& board, const LineOf& line, bool first = false) {
        modChess.Record = recordOf(line);
        modChess.NewGameFlag = first;
        board.game.zGS();
        board.game.zSetPosition(false);
        modChess.NewGameFlag = false;
    }
    static void receiveAnswer(frmChessBoard& board) {
        receive(board, {BlackE5, "W", 12, 1, 300, 300, 2, "P/e7-e5", "e5", 0});
    }

    static BoardView& view(frmChessBoard& board) { return part<BoardView>(board, "picChess"); }
    // The middle of a square such as "e2" in the widget.
    static QPoint at(frmChessBoard& board, const std::string& square) {
        const BoardGeometry& geometry = view(board).geometry();
        const int side = geometry.SquarePixels;
        const int position = geometry.DisplaySquare[zSquareNumber(square)];
        return {position % 8 * side + side / 2 + BoardView::BorderPixels,
                (7 - position / 8) * side + side / 2 + BoardView::BorderPixels};
    }

    static void send(frmChessBoard& board, QEvent::Type type, QPoint point, Qt::MouseButton button,
                     Qt::MouseButtons buttons) {
        QWidget& target = view(board);
        QMouseEvent event(type, QPointF(point), QPointF(target.mapToGlobal(point)), button, buttons, {});
        QCoreApplication::sendEvent(&target, &event);
    }
    static void press(frmChessBoard& board, const std::string& square, Qt::MouseButton button = Qt::LeftButton) {
        send(board, QEvent::MouseButtonPress, at(board, square), button, button);
    }
    static void release(frmChessBoard& board, const std::string& square, Qt::MouseButton button = Qt::LeftButton) {
        send(board, QEvent::MouseButtonRelease, at(board, square), button, Qt::NoButton);
    }
    static void move(frmChessBoard& board, QPoint point, Qt::MouseButtons buttons = Qt::LeftButton) {
        send(board, QEvent::MouseMove, point, Qt::NoButton, buttons);
    }
    // Press, a move in ten steps with the loop running, release.
    static void drag(frmChessBoard& board, const std::string& from, const std::string& to) {
        press(board, from);
        carry(board, from, to);
        release(board, to);
    }
    static void carry(frmChessBoard& board, const std::string& from, const std::string& to,
                      Qt::MouseButtons buttons = Qt::LeftButton) {
        const QPoint start = at(board, from);
        const QPoint way = at(board, to) - start;
        for (int step = 1; step <= 10; ++step) {
            move(board, start + way * step / 10, buttons);
            QCoreApplication::processEvents();
        }
    }

    bool menusAnswered() {
        return waitUntil([this] { return answered == popups.size(); });
    }

    // What the window system holds of the board: the pixels that were really painted, none painted for this. The
    // offscreen platform gives only a quarter of them at double scale; there the board is painted once more.
    static QImage screenOf(frmChessBoard& board) {
        QCoreApplication::processEvents();
        BoardView& target = view(board);
        if (board.devicePixelRatioF() != 1) return target.grab().toImage();
        const QImage window = board.screen()->grabWindow(board.winId()).toImage();
        return window.copy(QRect(target.mapTo(&board, QPoint(0, 0)), target.size()));
    }
    // A part of a picture, given in pixels of the window.
    static QImage cut(const QImage& picture, const QRect& part) {
        const double ratio = picture.devicePixelRatio();
        return picture.copy(QRect((QPointF(part.topLeft()) * ratio).toPoint(), part.size() * ratio));
    }
    static QColor pixel(const QImage& picture, QPoint point) {
        return picture.pixelColor((QPointF(point) * picture.devicePixelRatio()).toPoint());
    }
    // The pixel that a frame of the square would colour.
    static QColor frameOf(frmChessBoard& board, const std::string& square) {
        const int half = view(board).geometry().SquarePixels / 2;
        return pixel(screenOf(board), at(board, square) - QPoint(half, half));
    }
    static QColor colorOf(std::int32_t bgr) { return QColor(bgr & 255, bgr >> 8 & 255, bgr >> 16 & 255); }

    std::vector<std::string> popups;
    std::size_t answered = 0;               // of the popups
    std::function<QAction*(QMenu&)> answer; // none: the menu is dismissed
};
