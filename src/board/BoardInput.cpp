// How the mouse over a board's picChess, its popup menus and its anti-slip timer meet the move in hand.
#include "board/BoardInput.h"

#include "board/BoardParts.h"
#include "common/modChess.h"
#include "panels/SelfCheckSheet.h"
#include "platform/Boxes.h"
#include "platform/MenuEntry.h"
#include "settings/MouseSlips.h"

#include <QTimer>

#include <array>
#include <utility>

namespace {

constexpr int LeftButton = 1;
constexpr int MovePicture = 3; // of the pointers
constexpr int PreMovePicture = 4;

// Of a display square.
BoardPoint centreOf(const BoardGeometry& geometry, int position) {
    BoardPoint point;
    geometry.zGetXY(static_cast<std::int16_t>(position), point.x, point.y);
    const float half = static_cast<float>(geometry.SquarePixels) / 2;
    return {point.x + half, point.y + half};
}

BoardPoint centreOfSquare(const BoardGeometry& geometry, int square) {
    return centreOf(geometry, geometry.DisplaySquare[square]);
}

} // namespace

void BoardInput::build(QWidget* window) {
    tmrSlip_ = new QTimer(window);
    tmrSlip_->setObjectName(QStringLiteral("tmrSlip"));
    tmrSlip_->setTimerType(Qt::PreciseTimer);
    tmrSlip_->setInterval(slipDelay(1));
    QObject::connect(tmrSlip_, &QTimer::timeout, window, [this] { moves.tmrSlip(); });
    makeMenus(window);
    connectMouse(window);
    connectKeys(window);
}

void BoardInput::connectMouse(QWidget* window) {
    const BoardView* view = parts_.picChess;
    QObject::connect(view, &BoardView::mouseDown, window,
                     [this](int button, float x, float y) { moves.mouseDown(button, x, y); });
    QObject::connect(view, &BoardView::mouseMoved, window,
                     [this](int button, float x, float y) { moves.mouseMoved(button, x, y); });
    QObject::connect(view, &BoardView::mouseUp, window,
                     [this](int button, float x, float y) { moves.mouseUp(button, x, y); });
}

// The keyboard is a pointer that stands in the middle of a square.
void BoardInput::connectKeys(QWidget* window) {
    const BoardView* view = parts_.picChess;
    QObject::connect(view, &BoardView::squarePressed, window,
                     [this](int button, int square) { pressSquare(button, square); });
    QObject::connect(view, &BoardView::squareReached, window, [this, view](int square) {
        if (!moves.game.hand.Dragging) return;
        const BoardPoint point = centreOfSquare(view->geometry(), square);
        moves.mouseMoved(LeftButton, point.x, point.y);
    });
}

// In drag style a key that lifts a piece has no end, and the next one lets go.
void BoardInput::pressSquare(int button, int square) {
    const BoardPoint point = centreOfSquare(parts_.picChess->geometry(), square);
    if (button == LeftButton && moves.game.hand.Dragging && modChess.DragMode != 0) {
        moves.mouseUp(button, point.x, point.y);
    } else {
        moves.mouseDown(button, point.x, point.y);
    }
}

bool BoardInput::putBack() {
    if (!moves.game.hand.Dragging) return false;
    const BoardPoint origin = centreOfSquare(parts_.picChess->geometry(), moves.game.hand.DragFrom);
    moves.zMouseUp(origin.x, origin.y);
    return true;
}

void BoardInput::showPointer(int picture) const {
    parts_.picChess->showPointer(picture == MovePicture      ? std::int16_t{-1}
                                 : picture == PreMovePicture ? std::int16_t{1}
                                                             : std::int16_t{0});
}

MoveInputSurface BoardInput::surface() {
    return {
        .zGetSqr = [this](float x, float y) { return parts_.picChess->zGetSqr(x, y); },
        .DisplaySquare = [this](int square) { return parts_.picChess->geometry().DisplaySquare[square]; },
        .centreOf = [this](int position) { return centreOf(parts_.picChess->geometry(), position); },
        .zYankPiece = [this](int square) { parts_.picChess->zYankPiece(static_cast<std::int16_t>(square)); },
        .startSlip = [this](int milliseconds) { tmrSlip_->start(milliseconds); },
        .stopSlip = [this] { tmrSlip_->stop(); },
        .popupDrop = [this](const DropEntries& entries) { popupDrop(entries); },
        .popupPromote = [this] { popupPromote(); },
        .focusTyping = [this] { parts_.txtSend->setFocus(); },
        .moveMade = resetSelfCheck,
    };
}

void BoardInput::makeMenus(QWidget* window) {
    static constexpr std::array<std::pair<const char*, const char*>, 4> Promotions{
        {{"mnuQueen", "&Queen"}, {"mnuRook", "&Rook"}, {"mnuBishop", "&Bishop"}, {"mnuKnight", "K&night"}}};
    static constexpr std::array Drops{"mnuDQ", "mnuDR", "mnuDB", "mnuDN", "mnuDP"};
    mnuPromote_ = new QMenu(window);
    mnuPromote_->setObjectName(QStringLiteral("mnuPromote"));
    mnuDrop_ = new QMenu(window);
    mnuDrop_->setObjectName(QStringLiteral("mnuDrop"));
    for (const auto& [name, caption] : Promotions) addEntry(mnuPromote_, name, caption);
    for (const char* name : Drops) addEntry(mnuDrop_, name, "");
}

void BoardInput::popupDrop(const DropEntries& entries) {
    for (std::size_t entry = 0; entry < entries.size(); ++entry) {
        QAction* const action = mnuDrop_->actions().at(static_cast<qsizetype>(entry));
        action->setText(QString::fromStdString(entries[entry].caption));
        action->setEnabled(entries[entry].enabled);
    }
    boxes.popup(*mnuDrop_, [this](QAction* chosen) {
        if (chosen) moves.drop(static_cast<int>(mnuDrop_->actions().indexOf(chosen)));
    });
}

void BoardInput::popupPromote() {
    constexpr int Queen = 2; // the first entry
    dismissed_ = false;
    boxes.popup(*mnuPromote_, [this](QAction* chosen) {
        if (chosen) {
            moves.promote(Queen + static_cast<int>(mnuPromote_->actions().indexOf(chosen)));
        } else {
            dismissPromotion();
        }
    });
}

void BoardInput::dismissPromotion() {
    dismissed_ = held_;
    if (!held_) moves.promote(0);
}

void BoardInput::goOn() {
    held_ = false;
    if (dismissed_) dismissPromotion();
}

void BoardInput::stop() {
    moves.stop();
    mnuPromote_->hide();
    mnuDrop_->hide();
}
