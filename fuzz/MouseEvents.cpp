// The program without its windows: the mouse over a board and the menus that come up under it.
#include "StreamRig.h"

#include "Events.h"
#include "MoveModel.h"
#include "Require.h"
#include "common/modChess.h"
#include "settings/MouseSlips.h"

#include <algorithm>
#include <utility>

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
        if (board.promotion) promote(board, position < 4 ? Piece::Queen + position : 0);
        return;
    case Event::DropAnswer:
        return answerDrop(board, position);
    case Event::Lift:
        return lift(board, position);
    case Event::Land:
        return land(board, position);
    case Event::Walk:
    case Event::ClickMove:
        return walk(segment.kind, board, position);
    default:
        return;
    }
}

// A press closes the menus that are up and reaches what lies under them; only then do they tell that they are gone.
void StreamRig::press(RigBoard& board, int button, int position) {
    const std::vector<RigBoard*> dismissed = closeMenus();
    pressUnder(board, button, position);
    for (RigBoard* asking : dismissed) promote(*asking, 0);
}

// Menus that are up go first.
void StreamRig::walk(int kind, RigBoard& board, int choice) {
    for (RigBoard* asking : closeMenus()) promote(*asking, 0);
    Game& game = board.game;
    const long moves = board.movesSent;
    board.walking = true;
    if (kind == Event::Walk) {
        board.steppedBack |= !game.icsMode && choice % 5 == 1;
        game.zReposition(choice % 5 - 2);
    } else {
        game.grdMovesClick(std::clamp(game.MoveRow + choice / 3 % 9 - 4, 0, LastMoveRow), choice % 3);
    }
    board.walking = false;
    require(board.movesSent == moves, "walking sends no move");
    const bool examining = game.icsMode && game.Style12Record.Relation == 2;
    require(examining || !game.hand.Dragging || choice % 5 == 2 || kind == Event::ClickMove,
            "a piece in hand goes back before the board under it changes");
}

void StreamRig::pressUnder(RigBoard& board, int button, int position) {
    board.pointer = position;
    board.held |= button;
    const bool dragging = board.game.hand.Dragging;
    const int square = board.squareAt(position);
    const bool lifts =
        !dragging && button == Left && modChess.SelfCheckOK && square != -1 && modelMayTake(board.game, square) != 0;
    const bool defeatsDelay = dragStyle() && button == Right && board.slip != 0;
    landing(board, defeatsDelay ? board.heldPointer : position, [&] {
        const BoardPoint point = pointOn(board.geometry, position);
        board.input.mouseDown(button, point.x, point.y);
    });
    if (dragging) return;
    require(board.game.hand.Dragging == lifts, "a piece is taken up when the rules let its owner move it");
    if (!lifts) return;
    require(board.game.hand.DragFrom == square && board.game.FromSq == square && board.game.hand.FromSet == 1,
            "the move in hand begins on the square under the pointer");
    board.taken.push_back(square);
}

void StreamRig::release(RigBoard& board, int button, int position) {
    const bool inDelay = board.slip != 0 && board.game.hand.Dragging;
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
    const bool hovers =
        !game.noPlay && board.held == 0 && !game.hand.Dragging && game.hand.FromSet == 0 && modChess.SelfCheckOK;
    const BoardPoint point = pointOn(board.geometry, position);
    board.input.mouseMoved(board.held, point.x, point.y);
    require(!hovers || game.hand.MoveMode == (square == -1 ? 0 : modelMayTake(game, square)),
            "a pointer shows what may be taken up");
}

void StreamRig::lift(RigBoard& board, int position) {
    movePointer(board, position);
    press(board, Left, position);
    if (!dragStyle()) release(board, Left, position);
}

void StreamRig::land(RigBoard& board, int position) {
    movePointer(board, position);
    if (!dragStyle()) press(board, Left, position);
    release(board, Left, position);
}

void StreamRig::fireSlip(RigBoard& board) {
    if (board.slip == 0) return;
    const bool endless = board.slip == EndlessSlip;
    const bool dragging = board.game.hand.Dragging;
    landing(board, board.heldPointer, [&board] { board.input.tmrSlip(); });
    require(!endless || (board.slip == EndlessSlip && board.game.hand.Dragging == dragging),
            "the endless delay does not end by itself");
}

void StreamRig::popupPromote(RigBoard& board) {
    const Game& game = board.game;
    require(!board.promotion, "one pawn is asked for at a time");
    require(std::abs(game.Board[game.FromSq]) == Piece::Pawn, "a pawn is asked what it becomes");
    board.promotion = {game.FromSq, game.ToSq, game.Board[game.FromSq], game.Turn, game.MoveRow};
}

// A disabled entry cannot be chosen; the menu stays.
void StreamRig::answerDrop(RigBoard& board, int choice) {
    const auto entry = static_cast<std::size_t>(choice);
    if (!board.drops || (entry < board.drops->size() && !(*board.drops)[entry].enabled)) return;
    board.drops.reset();
    if (entry >= DropEntries().size()) return;
    board.dropping = true;
    board.input.drop(choice);
    board.dropping = false;
}

// Gives the boards whose promotion menu was up.
std::vector<RigBoard*> StreamRig::closeMenus() {
    std::vector<RigBoard*> asking;
    for (const auto& board : boards_) {
        board->drops.reset();
        if (!board->promotion || !std::exchange(board->promotion->up, false)) continue;
        asking.push_back(board.get());
    }
    return asking;
}
