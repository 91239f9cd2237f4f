// The session and its boards without windows: the mouse over a board and the menus that come up under it.
#include "StreamRig.h"

#include "Events.h"
#include "MoveModel.h"
#include "Require.h"
#include "common/modChess.h"
#include "settings/MouseSlips.h"

namespace {

constexpr int Left = 1;
constexpr int Right = 2;

bool dragStyle() { return modChess.DragMode != 0; }

// The middle of a display square, or a point beside the board.
BoardPoint pointOn(const BoardGeometry& geometry, int position) {
    if (position == OffBoard) return {-5, 700};
    BoardPoint point;
    geometry.zGetXY(static_cast<std::int16_t>(position), point.x, point.y);
    const float half = static_cast<float>(geometry.SquarePixels) / 2;
    return {point.x + half, point.y + half};
}

} // namespace

void StreamRig::mouseEvent(const Tape::Segment& segment, RigBoard& board) {
    const int position = segment.choice();
    switch (segment.kind) {
    case Event::LeftPress:
        return press(board, Left, position);
    case Event::LeftRelease:
        return release(board, Left, position);
    case Event::RightPress:
        return press(board, Right, position);
    case Event::RightRelease:
        return release(board, Right, position);
    case Event::PointerMoves:
        return movePointer(board, position);
    case Event::PointerLeaves:
        return movePointer(board, OffBoard);
    case Event::LeftReleaseBeside:
        return release(board, Left, OffBoard);
    case Event::TmrSlip:
        return fireSlip(board);
    case Event::PromotionAnswer:
        return answerPromotion(board, position);
    case Event::DropAnswer:
        return answerDrop(board, position);
    case Event::Lift:
        return lift(board, position);
    case Event::Land:
        return land(board, position);
    default:
        return;
    }
}

// A press closes a menu that is up, and reaches what lies under it.
void StreamRig::press(RigBoard& board, int button, int position) {
    closeMenus();
    board.pointer = position;
    board.held |= button;
    const bool dragging = board.game.Dragging;
    const int square = board.squareAt(position);
    const bool lifts =
        !dragging && button == Left && modChess.SelfCheckOK && square != -1 && modelMayTake(board.game, square) != 0;
    const bool defeatsDelay = dragStyle() && button == Right && board.slip != 0;
    const long events = events_;
    landing(board, defeatsDelay ? board.heldPointer : position, [&] {
        const BoardPoint point = pointOn(board.geometry, position);
        board.input.mouseDown(button, point.x, point.y);
    });
    if (dragging || events_ != events) return; // the board may be gone
    require(board.game.Dragging == lifts, "a piece is taken up when the rules let its owner move it");
    if (!lifts) return;
    require(board.game.DragFrom == square && board.game.FromSq == square && board.game.FromSet == 1,
            "the move in hand begins on the square under the pointer");
    board.taken.push_back(square);
    board.overtaken = false;
}

void StreamRig::release(RigBoard& board, int button, int position) {
    const bool inDelay = board.slip != 0 && board.game.Dragging;
    if (dragStyle() && button == Left && !inDelay) board.heldPointer = position;
    board.pointer = position;
    board.held &= ~button;
    landing(board, position, [&] {
        const BoardPoint point = pointOn(board.geometry, position);
        board.input.mouseUp(button, point.x, point.y);
    });
}

void StreamRig::movePointer(RigBoard& board, int position) {
    const Game& game = board.game;
    board.pointer = position;
    const int square = board.squareAt(position);
    const bool hovers = !game.noPlay && board.held == 0 && !game.Dragging && game.FromSet == 0 && modChess.SelfCheckOK;
    const BoardPoint point = pointOn(board.geometry, position);
    board.input.mouseMoved(board.held, point.x, point.y);
    if (!hovers) return; // the board may be gone
    require(game.MoveMode == (square == -1 ? 0 : modelMayTake(game, square)), "a pointer shows what may be taken up");
}

// Each step may let the board close.
void StreamRig::lift(RigBoard& board, int position) {
    const long serial = board.serial;
    movePointer(board, position);
    if (RigBoard* open = boardOf(serial)) press(*open, Left, position);
    RigBoard* const open = dragStyle() ? nullptr : boardOf(serial);
    if (open) release(*open, Left, position);
}

void StreamRig::land(RigBoard& board, int position) {
    const long serial = board.serial;
    movePointer(board, position);
    RigBoard* const clicked = dragStyle() ? nullptr : boardOf(serial);
    if (clicked) press(*clicked, Left, position);
    if (RigBoard* open = boardOf(serial)) release(*open, Left, position);
}

void StreamRig::fireSlip(RigBoard& board) {
    if (board.slip == 0) return;
    const bool endless = board.slip == EndlessSlip;
    const bool dragging = board.game.Dragging;
    landing(board, board.heldPointer, [&board] { board.input.tmrSlip(); });
    if (!endless) return; // the board may be gone
    require(board.slip == EndlessSlip && board.game.Dragging == dragging, "the endless delay does not end by itself");
}

// Answers and whatever else comes run until the menu is gone, and its board may be gone with it.
void StreamRig::popup(Menu menu) {
    menus_.push_back(&menu);
    pump(&menu);
    menus_.pop_back();
}

// The board may be gone when the menu closes, and so may the pawn.
void StreamRig::popupPromote(long board) {
    const Game& asking = boardOf(board)->game;
    const int from = asking.FromSq;
    const int pawn = asking.Board[from];
    const int turn = asking.Turn;
    require(std::abs(pawn) == Piece::Pawn, "a pawn is asked what it becomes");
    popup({board});
    if (RigBoard* open = boardOf(board)) open->overtaken = open->game.Board[from] != pawn || open->game.Turn != turn;
}

StreamRig::Menu* StreamRig::menuFor(const RigBoard& board, bool ofDrops) const {
    Menu* const last = menus_.empty() ? nullptr : menus_.back();
    return last && last->up && last->board == board.serial && (last->drops != nullptr) == ofDrops ? last : nullptr;
}

void StreamRig::answerPromotion(RigBoard& board, int choice) {
    Menu* const menu = menuFor(board, false);
    if (!menu) return;
    if (choice < 4) board.game.PromotePiece = static_cast<std::int16_t>(Piece::Queen + choice);
    menu->up = false;
}

// A disabled entry cannot be chosen; the menu stays.
void StreamRig::answerDrop(RigBoard& board, int choice) {
    Menu* const menu = menuFor(board, true);
    const auto entry = static_cast<std::size_t>(choice);
    if (!menu || (entry < menu->drops->size() && !(*menu->drops)[entry].enabled)) return;
    menu->up = false;
    if (entry >= menu->drops->size()) return;
    board.dropping = true;
    board.input.drop(choice);
    board.dropping = false;
}

void StreamRig::closeMenus() {
    if (!menus_.empty()) menus_.back()->up = false;
}
