// The program without its windows: what has to hold of moves by hand, and of positions that arrive.
#include "StreamRig.h"

#include "MoveModel.h"
#include "Require.h"
#include "common/modChess.h"

#include <algorithm>
#include <array>

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

// Runs `act`, which may let go of the piece in hand at a display square, and looks at what became of the move.
void StreamRig::landing(RigBoard& board, int position, const std::function<void()>& act) {
    const Game& game = board.game;
    const BeforeLanding before{game.Board,
                               game.Turn,
                               game.MoveRow,
                               game.hand.MoveMode,
                               game.hand.Dragging ? game.hand.DragFrom : -1,
                               game.PreMoveSet,
                               board.promotion.has_value(),
                               board.movesSent};
    const int to = position == OffBoard ? before.from : board.squareAt(position);
    const bool inHand = game.hand.Dragging && game.hand.FromSet == 1;
    const bool legal = inHand && to != before.from && modelMayMove(game, before.from, to);
    const bool asks = legal && modelAsks(game, before.from, to);
    act();
    if (before.from == -1) return;
    if (game.hand.Dragging) {
        require(game.Board == before.squares && board.movesSent == before.movesSent,
                "no move is made while it is held");
        require(game.PreMoveSet == before.preMoveSet, "no move is queued while it is held");
    } else if (before.mode == 1) {
        checkQueued(board, before, to);
    } else if (asks) {
        checkAsked(board, before, to);
    } else {
        checkPlayed(board, before, to, legal);
    }
}

void StreamRig::checkAsked(const RigBoard& board, const BeforeLanding& before, int to) const noexcept {
    const auto& asked = board.promotion;
    require(asked && asked->up && !before.asking, "a pawn that reaches the end asks what it becomes");
    require(asked->from == before.from && asked->to == to, "what is asked for is what was moved");
    require(board.game.Board == before.squares && board.game.Turn == before.turn, "no move is made while it is asked");
    require(board.movesSent == before.movesSent, "no move is sent while it is asked");
}

void StreamRig::checkQueued(const RigBoard& board, const BeforeLanding& before, int to) const noexcept {
    const Game& game = board.game;
    require(game.PreMoveSet == (to != before.from), "a move in advance is queued, or taken back on its own square");
    require(!game.PreMoveSet || (game.PreFrom == before.from && game.PreTo == to), "what is queued is what was moved");
    require(game.Board == before.squares && game.Turn == before.turn, "queueing a move changes no square");
    require(board.movesSent == before.movesSent, "a queued move is not sent");
}

void StreamRig::checkPlayed(const RigBoard& board, const BeforeLanding& before, int to, bool legal) const noexcept {
    const Game& game = board.game;
    require(board.promotion.has_value() == before.asking, "nothing but a pawn at the end asks");
    require(board.movesSent == before.movesSent + (legal && game.icsMode ? 1 : 0), "a move is sent when it is made");
    if (!legal) {
        require(game.Board == before.squares && game.Turn == before.turn, "a refused move changes no square");
        return;
    }
    require(game.Turn == -before.turn && game.MoveRow == before.row + (before.turn < 0 ? 1 : 0), "the turn passes");
    require(game.Board[before.from] == 0, "a piece that moved has left its square");
    const int col = (1 - before.turn) / 2;
    const std::string& written = game.MoveText[before.row][col]; // of a loaded game the text stays
    require(game.GameLoaded || !written.empty(), "a move that was made is written down");
    if (game.icsMode) {
        require(board.lastFrom == before.from && board.lastTo == to, "what is sent is what was moved");
        return;
    }
    require(sameSquares(game.Board, game.PositionStore.plies[game.zDevMove()]), "a local move is stored at its ply");
    const auto& listed = game.grdMoves.text(before.row, col + 1);
    require(game.GameLoaded ? !listed.empty() : listed == written, "the list shows the move");
}

// The answer of the menu, 0 when it was dismissed.
void StreamRig::promote(RigBoard& board, int piece) {
    const auto asked = *board.promotion;
    board.promotion.reset();
    const Game& game = board.game;
    const BoardSquares squares = game.Board;
    const int turn = game.Turn;
    const long sent = board.movesSent;
    const bool stands = !asked.givenUp && squares[asked.from] == asked.pawn && turn == asked.turn;
    board.input.promote(piece);
    require(board.movesSent == sent + (stands && game.icsMode ? 1 : 0), "an answered promotion is sent once");
    if (stands) {
        checkPromoted(board, asked, piece);
    } else {
        require(game.Board == squares && game.Turn == turn,
                "a game, a pawn or a turn that went takes the promotion along");
    }
}

void StreamRig::checkPromoted(const RigBoard& board, const RigBoard::Promotion& asked, int piece) const noexcept {
    static constexpr std::array<char, 6> Letters{0, 0, 'Q', 'R', 'B', 'N'};
    const Game& game = board.game;
    require(game.Turn == -asked.turn, "the turn passes with a promotion");
    require(game.Board[asked.from] == 0 && game.Board[asked.to] == asked.turn * piece,
            "the piece that was chosen stands where the pawn went");
    require(!game.icsMode || (board.lastFrom == asked.from && board.lastTo == asked.to &&
                              board.lastPromotion == Letters[static_cast<std::size_t>(piece)]),
            "what is sent is the promotion that was chosen");
    require(game.GameLoaded || !game.MoveText[asked.row][(1 - asked.turn) / 2].empty(), "a promotion is written down");
}

void StreamRig::receivePosition(RigBoard& board, const std::function<void()>& act) {
    const Game& game = board.game;
    const bool queued = game.PreMoveSet;
    const bool again = game.hand.MoveMode == 1;
    const int from = game.PreFrom;
    const int to = game.PreTo;
    const long sent = board.movesSent;
    const bool asking = board.promotion.has_value();
    act();
    const bool played = board.movesSent != sent;
    const bool asks = !asking && board.promotion;
    checkPosition(game, played);
    require(game.PreMoveSet == (queued && again), "a queued move is played once, or queued again under the pointer");
    require(!played ||
                (queued && !again && board.lastFrom == from && board.lastTo == to && board.movesSent == sent + 1),
            "an arriving position sends the queued move alone");
    require(!asks || (queued && !again && board.promotion->from == from && board.promotion->to == to),
            "an arriving position asks for the queued pawn alone");
    require(played || asks || !queued || again || !modelMayMove(game, from, to), "a queued move that fits is played");
}

// A list changes what a live board knows of its game, and not what stands on it or what its user does.
void StreamRig::takeRecord(RigBoard& board, const std::function<void()>& act) {
    const Game& game = board.game;
    const BoardSquares squares = game.Board;
    const MoveInHand hand = game.hand;
    const bool queued = game.PreMoveSet;
    const long sent = board.movesSent;
    const auto marks = board.marks;
    const bool idle = game.Style12Record.Relation == -100;
    act();
    require(game.Board == squares && board.marks == marks, "a list changes no square");
    require(game.hand.Dragging == hand.Dragging && game.hand.FromSet == hand.FromSet && game.PreMoveSet == queued,
            "a list leaves the move in hand alone");
    require(board.movesSent == sent, "a list sends no move");
    if (!idle) checkList(game);
}

void StreamRig::review(RigBoard& board, const std::function<void()>& act) {
    const Game& game = board.game;
    const long sent = board.movesSent;
    board.reviewed = true;
    act();
    require(board.movesSent == sent, "a review sends no move");
    require(sameSquares(game.Board, game.PositionStore.plies[0]), "a review begins at the start");
    require(!game.icsMode && game.GameLoaded && game.zDevMove() == 0 && !game.hand.Dragging,
            "a review is a stored game");
    checkList(game);
}

void StreamRig::checkList(const Game& game) const noexcept {
    const GameRecord& record = modChess.MovesRecord;
    require(game.LastRow >= 0 && game.LastRow <= LastMoveRow, "the list has its rows");
    for (int row = 1; row <= game.LastRow; ++row) {
        require(game.grdMoves.text(row, 0) == std::to_string(row), "each row has its number");
        require(game.MoveText[row][0] == record.WhiteMoves[row], "White's move is the record's");
        require(game.grdMoves.text(row, 1) == record.WhiteMoves[row], "the list shows it");
        require(static_cast<float>(row) > record.LastMove ? game.MoveText[row][1].empty()
                                                          : game.MoveText[row][1] == record.BlackMoves[row],
                "Black's move is the record's up to the last one");
    }
    require(!game.noPlay, "pieces can be lifted");
}

void StreamRig::checkPosition(const Game& game, bool preMovePlayed) const noexcept {
    const auto codes = codesOf(game.Style12Record.Position);
    require(game.NextPly >= 2 && game.NextPly - 2 <= LastPly, "a position that arrives has a ply of its own");
    require(game.PositionStore.plies[game.NextPly - 2] == codes, "a position that arrives is stored at its ply");
    require(preMovePlayed || sameSquares(game.Board, codes), "the board shows the position that arrived");
    require(game.ShownPly == game.NextPly - 2, "the newest position is on show");
}

void StreamRig::sendFromBoard(RigBoard& board, const std::string& text) {
    if (const auto move = readSentMove(text)) {
        require(board.game.icsMode, "a move is sent in a game of the server alone");
        require(takeOne(board.taken, move->from), "a move that is sent was made by hand, and is sent once");
        ++board.movesSent;
        board.lastFrom = move->from;
        board.lastTo = move->to;
        board.lastPromotion = move->promotion;
    } else if (isSentDrop(text)) {
        require(board.dropping, "a drop was chosen from its menu");
    } else if (text.starts_with("For") || text.starts_with("Back")) {
        require(board.walking && board.game.icsMode && board.game.Style12Record.Relation == 2,
                "steps are asked for by hand, in an examined game");
    } else {
        require(text == "unob" || text == "unex", "a board sends moves, drops, steps and its leave");
    }
    session_.road.zSendMsg(text);
}

// Between events: a piece on the pointer, a queued move, a pawn that is asked for, or none of them, and each from a
// square where a piece was taken up.
void StreamRig::checkHand(RigBoard& board) const noexcept {
    const Game& game = board.game;
    require(game.hand.Dragging || game.hand.FromSet == 0,
            "a move is in hand only while its piece hangs on the pointer");
    require(game.PromotePiece == 0 && (game.EPGranted == 0 || board.steppedBack),
            "nothing is left of the move that was made last");
    require(game.hand.MoveMode >= -1 && game.hand.MoveMode <= 1, "a square may be moved from now, in advance, or not");
    std::vector<int> rest;
    if (game.hand.Dragging) rest.push_back(game.hand.DragFrom);
    if (game.PreMoveSet) rest.push_back(game.PreFrom);
    if (board.promotion) rest.push_back(board.promotion->from);
    for (const int square : rest) {
        require(onBoard(square) && takeOne(board.taken, square), "what is in hand, queued or asked for was taken up");
    }
    board.taken = rest;
    require(!game.PreMoveSet || (onBoard(game.PreTo) && game.PreFrom != game.PreTo), "a queued move goes somewhere");
    require(game.icsMode || !game.PreMoveSet, "a move is queued in a game of the server alone");
    checkMarks(board);
}

// An ended game leaves its marks until the next one paints the board whole.
void StreamRig::checkMarks(RigBoard& board) const noexcept {
    const Game& game = board.game;
    if (!game.icsMode) std::ranges::replace(board.marks, 1, 0);
    for (int square = 0; square < 64; ++square) {
        const bool queued = game.PreMoveSet && (square == game.PreFrom || square == game.PreTo);
        const bool asked = board.promotion && (square == board.promotion->from || square == board.promotion->to);
        const bool marked = board.marks[static_cast<std::size_t>(square)] == 1;
        require(!marked || queued || asked || (game.hand.Dragging && square == game.hand.DragFrom),
                "no square is marked but those of a queued move, of a promotion and of the piece in hand");
    }
}
