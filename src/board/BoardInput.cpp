// How the mouse over a board's picChess, its popup menus and its anti-slip timer meet the move in hand.
#include "board/BoardInput.h"

#include "board/BoardParts.h"
#include "platform/Boxes.h"
#include "platform/MenuEntry.h"
#include "settings/MouseSlips.h"

#include <QTimer>

#include <array>
#include <utility>

namespace {

constexpr int MovePicture = 3; // of the pointers
constexpr int PreMovePicture = 4;

void showPointer(BoardView& view, int picture) {
    view.showPointer(picture == MovePicture      ? std::int16_t{-1}
                     : picture == PreMovePicture ? std::int16_t{1}
                                                 : std::int16_t{0});
}

BoardPoint centreOf(const BoardGeometry& geometry, int position) {
    BoardPoint point;
    geometry.zGetXY(static_cast<std::int16_t>(position), point.x, point.y);
    const float half = static_cast<float>(geometry.SquarePixels) / 2;
    return {point.x + half, point.y + half};
}

} // namespace

void BoardInput::build(QWidget* window, const BoardParts& parts) {
    tmrSlip_ = new QTimer(window);
    tmrSlip_->setObjectName(QStringLiteral("tmrSlip"));
    tmrSlip_->setTimerType(Qt::PreciseTimer);
    tmrSlip_->setInterval(slipDelay(1));
    QObject::connect(tmrSlip_, &QTimer::timeout, window, [this] { moves.tmrSlip(); });
    makeMenus(window);
    fillSurfaces(parts);
    connectMouse(window, parts);
}

void BoardInput::connectMouse(QWidget* window, const BoardParts& parts) {
    const BoardView* view = parts.picChess;
    QObject::connect(view, &BoardView::mouseDown, window,
                     [this](int button, float x, float y) { moves.mouseDown(button, x, y); });
    QObject::connect(view, &BoardView::mouseMoved, window,
                     [this](int button, float x, float y) { moves.mouseMoved(button, x, y); });
    QObject::connect(view, &BoardView::mouseUp, window,
                     [this](int button, float x, float y) { moves.mouseUp(button, x, y); });
}

void BoardInput::fillSurfaces(const BoardParts& parts) {
    BoardView* view = parts.picChess;
    TypingLine* txtSend = parts.txtSend;
    moves.surface.zGetSqr = [view](float x, float y) { return view->zGetSqr(x, y); };
    moves.surface.DisplaySquare = [view](int square) { return view->geometry().DisplaySquare[square]; };
    moves.surface.centreOf = [view](int position) { return centreOf(view->geometry(), position); };
    moves.surface.zYankPiece = [view](int square) { view->zYankPiece(static_cast<std::int16_t>(square)); };
    moves.surface.startSlip = [this](int milliseconds) { tmrSlip_->start(milliseconds); };
    moves.surface.stopSlip = [this] { tmrSlip_->stop(); };
    moves.surface.popupDrop = [this](const DropEntries& entries) { popupDrop(entries); };
    moves.surface.popupPromote = [this] { popupPromote(); };
    moves.surface.focusTyping = [txtSend] { txtSend->setFocus(); };

    GameSurface& surface = moves.game.surface;
    surface.zSqFinish = [this](int square) { moves.zSqFinish(square); };
    surface.setPointerPicture = [view](int picture) { showPointer(*view, picture); };
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
