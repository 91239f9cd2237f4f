// The session and its boards without windows: what has to hold of moves by hand, and of positions that arrive.
#include "StreamRig.h"

#include "MoveModel.h"
#include "Require.h"
#include "common/modChess.h"

#include <algorithm>

namespace {

bool sameSquares(const BoardSquares& board, const FixedArray<std::int16_t, 63>& stored) {
    return std::equal(stored.begin(), stored.end(), board.begin());
}

FixedArray<std::int16_t, 63> codesOf(const std::string& position) {
    FixedArray<std::int16_t, 63> codes;
    for (std::size_t square = 0; square < 64; ++square) {
        if (square < position.size()) codes[static_cast<long>(square)] = pieceCode(position[square]);
    }
    return codes;
}

// Takes one `square` out of `squares`; false if there is none.
bool takeOne(std::vector<int>& squares, int square) {
    const auto found = std::ranges::find(squares, square);
    if (found == squares.end()) return false;
    squares.erase(found);
    return true;
}

bool onBoard(int square) { return square >= 0 && square < 64; }

} // namespace

// Runs `act`, which may let go of the piece in hand at a display square, and looks at what became of the move. When
// anything ran inside it, the board may have changed by that, or be gone.
void StreamRig::landing(RigBoard& board, int position, const std::function<void()>& act) {
    const Game& game = board.game;
    const BeforeLanding before{
        game.Board,      game.Turn,      game.MoveRow, game.MoveMode, game.Dragging ? game.DragFrom : -1,
        game.PreMoveSet, board.movesSent};
    const int to = position == OffBoard ? before.from : board.squareAt(position);
    const bool inHand = game.Dragging && game.FromSet == 1;
    const bool legal = inHand && to != before.from && modelMayMove(game, before.from, to);
    const long events = events_;
    act();
    if (events_ != events || before.from == -1) return;
    if (game.Dragging) {
        require(game.Board == before.squares && board.movesSent == before.movesSent,
                "no move is made while it is held");
        require(game.PreMoveSet == before.preMoveSet, "no move is queued while it is held");
    } else if (before.mode == 1) {
        checkQueued(board, before, to);
    } else {
        checkPlayed(board, before, to, legal);
    }
}

void StreamRig::checkQueued(const RigBoard& board, const BeforeLanding& before, int to) const {
    const Game& game = board.game;
    require(game.PreMoveSet == (to != before.from), "a move in advance is queued, or taken back on its own square");
    require(!game.PreMoveSet || (game.PreFrom == before.from && game.PreTo == to), "what is queued is what was moved");
    require(game.Board == before.squares && game.Turn == before.turn, "queueing a move changes no square");
    require(board.movesSent == before.movesSent, "a queued move is not sent");
}

void StreamRig::checkPlayed(const RigBoard& board, const BeforeLanding& before, int to, bool legal) const {
    const Game& game = board.game;
    require(board.movesSent == before.movesSent + (legal && game.icsMode ? 1 : 0), "a move is sent when it is made");
    if (!legal) {
        require(game.Board == before.squares && game.Turn == before.turn, "a refused move changes no square");
        return;
    }
    require(game.Turn == -before.turn && game.MoveRow == before.row + (before.turn < 0 ? 1 : 0), "the turn passes");
    require(game.Board[before.from] == 0, "a piece that moved has left its square");
    const int col = (1 - before.turn) / 2;
    require(!game.MoveText[before.row][col].empty(), "a move that was made is written down");
    if (game.icsMode) {
        require(board.lastFrom == before.from && board.lastTo == to, "what is sent is what was moved");
        return;
    }
    require(sameSquares(game.Board, game.PositionStore.plies[game.zDevMove()]), "a local move is stored at its ply");
    require(game.grdMoves.text(before.row, col + 1) == game.MoveText[before.row][col], "the list shows the move");
}

void StreamRig::receivePosition(int window) {
    Game& game = boardAt(window);
    RigBoard& board = **std::ranges::find_if(boards_, [&](const auto& open) { return &open->game == &game; });
    const bool queued = game.PreMoveSet;
    const bool again = game.MoveMode == 1;
    const int from = game.PreFrom;
    const int to = game.PreTo;
    const long sent = board.movesSent;
    board.overtaken = false;
    const long events = events_;
    game.zSetPosition(false);
    if (events_ != events) return;
    const bool played = board.movesSent != sent;
    checkPosition(game, played);
    require(game.PreMoveSet == (queued && again), "a queued move is played once, or queued again under the pointer");
    require(!played ||
                (queued && !again && board.lastFrom == from && board.lastTo == to && board.movesSent == sent + 1),
            "an arriving position sends the queued move alone");
    require(played || !queued || again || !modelMayMove(game, from, to), "a queued move that fits is played");
}

void StreamRig::checkPosition(const Game& game, bool preMovePlayed) const {
    const auto codes = codesOf(game.Style12Record.Position);
    require(game.PositionStore.plies[game.NextPly - 2] == codes, "a position that arrives is stored at its ply");
    require(preMovePlayed || sameSquares(game.Board, codes), "the board shows the position that arrived");
    require(game.ShownPly == game.NextPly - 2, "the newest position is on show");
}

void StreamRig::sendFromBoard(RigBoard& board, const std::string& text) {
    if (const auto move = readSentMove(text)) {
        require(board.game.icsMode, "a move is sent in a game of the server alone");
        require(takeOne(board.taken, move->from), "a move that is sent was made by hand, and is sent once");
        require(!board.overtaken, "a move whose pawn or turn went under the menu is not sent");
        ++board.movesSent;
        board.lastFrom = move->from;
        board.lastTo = move->to;
    } else if (isSentDrop(text)) {
        require(board.dropping, "a drop was chosen from its menu");
    } else {
        require(text == "unob" || text == "unex", "a board sends moves, drops and its leave");
    }
    road_.zSendMsg(text);
}

// Between events: a piece on the pointer, a queued move, or neither, and each from a square where a piece was taken up.
void StreamRig::checkHand(RigBoard& board) const {
    const Game& game = board.game;
    require(game.Dragging || game.FromSet == 0, "a move is in hand only while its piece hangs on the pointer");
    require(game.PromotePiece == 0 && game.EPGranted == 0, "nothing is left of the move that was made last");
    require(game.MoveMode >= -1 && game.MoveMode <= 1, "a square may be moved from now, in advance, or not");
    std::vector<int> rest;
    if (game.Dragging) rest.push_back(game.DragFrom);
    if (game.PreMoveSet) rest.push_back(game.PreFrom);
    for (const int square : rest) {
        require(onBoard(square) && takeOne(board.taken, square), "what is in hand or queued was taken up by hand");
    }
    board.taken = rest;
    require(!game.PreMoveSet || (onBoard(game.PreTo) && game.PreFrom != game.PreTo), "a queued move goes somewhere");
    require(game.icsMode || !game.PreMoveSet, "a move is queued in a game of the server alone");
    checkMarks(board);
}

// An ended game leaves its marks until the next one paints the board whole.
void StreamRig::checkMarks(RigBoard& board) const {
    const Game& game = board.game;
    if (!game.icsMode) std::ranges::replace(board.marks, 1, 0);
    for (int square = 0; square < 64; ++square) {
        const bool queued = game.PreMoveSet && (square == game.PreFrom || square == game.PreTo);
        const bool marked = board.marks[static_cast<std::size_t>(square)] == 1;
        require(!marked || queued || (game.Dragging && square == game.DragFrom),
                "no square is marked but those of the queued move and of the piece in hand");
    }
}
