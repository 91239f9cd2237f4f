// One game of random moves on a random position: what has to hold.
#include "RulesRun.h"

#include "MoveModel.h"
#include "Require.h"
#include "board/MoveRules.h"
#include "common/Fault.h"
#include "common/modChess.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {

constexpr int LastRank = 7;
constexpr int LastFile = 7;

bool castles(const BoardSquares& board, int from, int to) {
    return std::abs(board[from]) == Piece::King && std::abs(to - from) == 2;
}

bool takesEnPassant(const BoardSquares& board, int from, int to) {
    return from != HandSquare && std::abs(board[from]) == Piece::Pawn && fileOf(from) != fileOf(to) && board[to] == 0;
}

// Two rows forward, to a square with an enemy pawn beside it.
bool pushesBesidePawn(const BoardSquares& board, int from, int to) {
    const int pawn = board[from];
    if (std::abs(pawn) != Piece::Pawn || rankOf(to) - rankOf(from) != 2 * signOf(pawn)) return false;
    return (fileOf(to) > 0 && board[to - 1] == -pawn) || (fileOf(to) < LastFile && board[to + 1] == -pawn);
}

bool promotes(const BoardSquares& board, int from, int to) {
    return std::abs(board[from]) == Piece::Pawn && (rankOf(to) == 0 || rankOf(to) == LastRank);
}

void put(BoardSquares& board, int square, int code) {
    if (square >= 0 && square <= HandSquare) board[square] = static_cast<std::int16_t>(code);
}

bool samePosition(const BoardSquares& one, const BoardSquares& other) {
    return std::equal(one.begin(), one.begin() + 64, other.begin());
}

} // namespace

// Squares that are not there are refused, by an answer or by a fault of their own.
void RulesRun::checkAnySquares(int from, int to) {
    Game& game = *game_;
    const bool legal = game.zMoveLegal(from, to);
    require(!legal || (from >= 0 && from < 64 && to >= 0 && to <= HandSquare), "a move is between squares");
    for (const auto path : {zDiagonalOK, zStraightOK, zEnPassantOK}) {
        try {
            const std::int16_t answer = path(game.Board, from, to);
            require(answer == 0 || answer == -1, "a path is open or not");
        } catch (const Fault& fault) {
            require(fault.kind() == FaultKind::Subscript, "a square that is not there is a subscript");
        }
    }
}

// The position that a move leads to.
BoardSquares RulesRun::boardAfter(const Before& before, int from, int to) const {
    BoardSquares board = before.squares;
    const bool asked = promotes(before.squares, from, to);
    const int queened = modChess.AutoQueen != 0 ? Piece::Queen : promotion_;
    const int moved = asked ? before.turn * queened : before.squares[from];
    put(board, from, 0);
    put(board, to, moved);
    if (from != HandSquare && castles(before.squares, from, to)) {
        put(board, to > from ? from + 3 : from - 4, 0);
        put(board, to > from ? from + 1 : from - 1, before.turn * Piece::Rook);
    }
    if (takesEnPassant(before.squares, from, to)) put(board, to - 8 * before.turn, 0);
    return board;
}

void RulesRun::checkMade(const Before& before, int from, int to, const std::string& text) {
    const Game& game = *game_;
    require(game.Turn == -before.turn && game.MoveRow == before.row + (before.turn < 0 ? 1 : 0), "the turn passes");
    require(samePosition(game.Board, boardAfter(before, from, to)), "a move changes its squares alone");
    require(game.Board[HandSquare] == 0, "the hand is empty behind a move");
    require(game.PromotePiece == 0 && game.EPGranted == 0, "nothing is left of the move that was made");
    const int col = (1 - before.turn) / 2;
    grants_[before.row + col][1 - col] = from != HandSquare && pushesBesidePawn(before.squares, from, to);
    checkText(before, from, to, text);
    checkSent(from, to, text);
    if (game.icsMode) return;
    require(game.grdMoves.text(before.row, before.turn > 0 ? 1 : 2) == text, "the list shows the move");
    checkUndo(before);
    checkRecord(before);
    past_.push_back(before);
}

void RulesRun::checkText(const Before& before, int from, int to, const std::string& text) const {
    const int kind = std::abs(before.squares[from]);
    const std::int16_t row = std::exchange(game_->MoveRow, before.row); // the check was asked for before it rose
    require(text.ends_with('+') == modelChecks(*game_, before.turn, &grants_),
            "a move that attacks the king ends with a plus");
    game_->MoveRow = row;
    std::string body = text.ends_with('+') ? text.substr(0, text.size() - 1) : text;
    if (from == HandSquare) {
        require(body == std::string("?KQRBNP").substr(static_cast<std::size_t>(kind), 1) + "@" + zSquareName(to),
                "a drop names piece and square");
        return;
    }
    if (castles(before.squares, from, to)) {
        require(body == (to > from ? "O-O" : "O-O-O"), "castling has a text of its own");
        return;
    }
    const auto promotion = body.find('=');
    require((promotion != body.npos) == (promotes(before.squares, from, to) && (promotion_ > 0 || modChess.AutoQueen)),
            "a promotion names its piece");
    body = body.substr(0, promotion);
    const bool takes = before.squares[to] != 0 || takesEnPassant(before.squares, from, to);
    require((body.find('x') != body.npos) == takes, "a capture has its sign");
    require(body.ends_with(zSquareName(to)), "a move names its square");
    require(body.substr(0, 1) == (kind != Piece::Pawn ? std::string("?KQRBN").substr(static_cast<std::size_t>(kind), 1)
                                                      : zSquareName(from).substr(0, 1)),
            "a move names its piece, or the file of a pawn");
}

void RulesRun::checkSent(int from, int to, const std::string& text) const {
    const auto promotion = text.find('=');
    const std::string line = zLiteral(from, to) + (promotion == text.npos ? "" : text.substr(promotion));
    require(sent_ == (game_->icsMode ? line : ""), "a move of the server's game is sent");
    require(from == HandSquare || !game_->icsMode || readSentMove(sent_), "what is sent is a move");
}

// By the store: one ply back is the position before, exactly, and one on is the position behind.
void RulesRun::checkUndo(const Before& before) {
    Game& game = *game_;
    const BoardSquares after = game.Board;
    game.zGetPos(game.zDevMove() - 1, false, true);
    require(samePosition(game.Board, before.squares), "the ply before holds the position before");
    game.zGetPos(game.zDevMove(), false, true);
    require(samePosition(game.Board, after), "the ply holds the position");
}

// By the record of the move. It does not hold what stood in the corner when a king castled without a rook there, nor
// whose pawn went when a side moved a pawn that was not its own.
void RulesRun::checkRecord(const Before& before) const {
    const auto& record = game_->MoveUndo[before.row][(1 - before.turn) / 2];
    const int from = record[0];
    const int to = record[1];
    const bool dropped = from == HandSquare;
    if (!dropped && signOf(before.squares[from]) != before.turn) return;
    BoardSquares board = game_->Board;
    const bool pawn = record[7] != 0 || board[to] == 0;
    const int moved = pawn ? before.turn * Piece::Pawn : board[to];
    put(board, to, 0);
    if (record[3] != 0) {
        put(board, record[3], 0);
        if (record[2] >= 0 && record[2] < 64) board[record[2]] = before.squares[record[2]];
    }
    if (record[5] != 0) put(board, record[4], record[5]);
    if (!dropped) put(board, from, moved);
    require(samePosition(board, before.squares), "the record of a move undoes it exactly");
}
