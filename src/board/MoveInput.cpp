// Moves by mouse: the buttons, the pointer, the anti-slip delay.
#include "board/MoveInput.h"

#include "common/Squares.h"
#include "common/modChess.h"
#include "settings/MouseSlips.h"
#include "view/BoardGeometry.h"

#include <string_view>

namespace {

constexpr int Left = 1;
constexpr int Right = 2;

bool dragStyle() { return modChess.DragMode != 0; }

int pointerPicture(int moveMode) { return moveMode == -1 ? 3 : moveMode == 1 ? 4 : 0; }

} // namespace

void MoveInput::mouseDown(int button, float x, float y) {
    if (!modChess.SelfCheckOK) return;
    pointTo(x, y);
    if (game.hand.Dragging) {
        pressWhileDragging(button, x, y);
        return;
    }
    const int position = surface.zGetSqr(x, y);
    if (position == OffBoard) return;
    const int square = surface.DisplaySquare(position);
    if (button == Right && game.Board[square] == 0 && game.HoldingsShown) {
        openDropMenu(square);
        return;
    }
    game.hand.MoveMode = game.zMoveOK(square);
    if (button == Left && game.hand.MoveMode != 0) lift(square, x, y);
}

// In click style the second click drops the piece. In drag style the right button ends the delay, an endless one too.
void MoveInput::pressWhileDragging(int button, float x, float y) {
    if (!dragStyle()) {
        if (button != Left) return;
        stopSlip();
        zMouseUp(x, y);
    } else if (button == Right && slipping_) {
        stopSlip();
        zMouseUp(game.hand.SlipX, game.hand.SlipY);
    }
}

void MoveInput::lift(int square, float x, float y) {
    stopSlip(); // one that runs from a click without a piece would drop this one
    game.hand.Dragging = true;
    liftedCode_ = game.Board[square];
    liftedMode_ = game.hand.MoveMode;
    game.drawSquare(square, game.hand.MoveMode);
    game.surface.keepPicture();
    surface.zYankPiece(square);
    game.surface.zMovePiece(x, y, game.hand.DragAlpha);
    game.hand.DragFrom = static_cast<std::int16_t>(square);
    game.zSetFrom(square);
}

void MoveInput::mouseMoved(int button, float x, float y) {
    if (game.noPlay) return;
    pointTo(x, y);
    if (button != 0 || game.hand.Dragging) {
        if (follows(button)) game.surface.zMovePiece(x, y, game.hand.DragAlpha);
    } else if (game.hand.FromSet > 0) {
        zSqFinish(HandSquare);
    } else if (modChess.SelfCheckOK) {
        hover(surface.zGetSqr(x, y));
    }
}

void MoveInput::pointTo(float x, float y) {
    game.hand.MouseX = x;
    game.hand.MouseY = y;
}

bool MoveInput::follows(int button) const {
    if (!game.hand.Dragging) return false;
    if (!dragStyle()) return button == 0 || button == Left;
    return (button & Left) != 0 && !inDelay();
}

void MoveInput::hover(int position) {
    game.hand.MoveMode = position == OffBoard ? std::int16_t{0} : game.zMoveOK(surface.DisplaySquare(position));
    game.surface.setPointerPicture(pointerPicture(game.hand.MoveMode));
}

// Only the button that drags lets go, and only once: a click in the delay leaves the held point alone.
void MoveInput::mouseUp(int button, float x, float y) {
    if (!dragStyle() || button != Left || inDelay()) return;
    pointTo(x, y);
    game.hand.SlipX = x;
    game.hand.SlipY = y;
    const int delay = slipDelay(modChess.MouseSlip);
    if (delay > 0) {
        startSlip(delay);
    } else {
        zMouseUp(x, y);
    }
}

void MoveInput::tmrSlip() {
    if (slipInterval_ >= EndlessSlip) return;
    stopSlip();
    zMouseUp(game.hand.SlipX, game.hand.SlipY);
}

void MoveInput::startSlip(int milliseconds) {
    slipping_ = true;
    slipInterval_ = milliseconds;
    surface.startSlip(milliseconds);
}

void MoveInput::stopSlip() {
    slipping_ = false;
    surface.stopSlip();
}

void MoveInput::zMouseUp(float x, float y) {
    if (!game.hand.Dragging) return;
    game.hand.Dragging = false;
    game.FromSq = game.hand.DragFrom;
    int position = surface.zGetSqr(x, y);
    const bool beside = position == OffBoard;
    if (beside) position = surface.DisplaySquare(game.hand.DragFrom);
    const BoardPoint centre = surface.centreOf(position);
    game.surface.zMovePiece(centre.x, centre.y, 255);
    zSqFinish(surface.DisplaySquare(position));
    surface.focusTyping();
    game.surface.setPointerPicture(0);
    surface.moveMade();
    rest(beside);
}

// A pointer that rests where the piece was let go sends no event of its own. MoveMode must not stay that of the lift:
// a queued pre-move would then be queued again by the position that is to play it.
void MoveInput::rest(bool beside) {
    if (game.noPlay || !modChess.SelfCheckOK) return;
    hover(beside ? OffBoard : surface.zGetSqr(game.hand.MouseX, game.hand.MouseY));
}

void MoveInput::boardPainted() {
    if (!game.hand.Dragging) return;
    if (game.Board[game.hand.DragFrom] == liftedCode_) {
        game.drawSquare(game.hand.DragFrom, liftedMode_);
        surface.zYankPiece(game.hand.DragFrom);
    }
    game.surface.zMovePiece(game.hand.MouseX, game.hand.MouseY, game.hand.DragAlpha);
}

void MoveInput::stop() {
    stopSlip();
    game.hand.giveUp();
    DropSquare.clear();
}

// The server judges whose pieces these are and where they may go; the board changes with its next line.
void MoveInput::openDropMenu(int square) {
    const int relation = game.Style12Record.Relation;
    if (relation != 1 && relation != 2) return;
    static constexpr std::array<std::string_view, 5> Words{"Queen", "Rook", "Bishop", "Knight", "Pawn"};
    const int side = (1 - game.Turn) / 2;
    DropEntries entries;
    for (std::size_t kind = 0; kind < Words.size(); ++kind) {
        const int count = game.Holdings[static_cast<long>(kind)][side];
        entries[kind].enabled = count > 0;
        entries[kind].caption = Words[kind];
        if (count > 0) entries[kind].caption += " " + std::to_string(count);
    }
    DropSquare = zSquareName(square);
    surface.popupDrop(entries);
}

void MoveInput::drop(int entry) {
    static constexpr std::string_view Letters = "QRBNP";
    if (DropSquare.empty()) return; // answered as the window closed
    game.surface.zSendMsg(Letters.at(static_cast<std::size_t>(entry)) + ("@" + DropSquare));
}
