// The rules that a move on a board is tested by: the pieces' paths and little more, since the server decides.
#include "board/MoveRules.h"

#include "board/Game.h"
#include "board/PieceCodes.h"
#include "common/Squares.h"
#include "common/modChess.h"

#include <cstdlib>

namespace {

constexpr std::int16_t answer(bool yes) { return yes ? -1 : 0; }

struct Step {
    int from;
    int to;
    int dRow = rankOf(to) - rankOf(from);
    int dCol = fileOf(to) - fileOf(from);
    int rows() const { return std::abs(dRow); }
    int cols() const { return std::abs(dCol); }
};

bool emptyBetween(const BoardSquares& board, int first, int last) {
    for (int square = first; square <= last; ++square) {
        if (board[square] != 0) return false;
    }
    return true;
}

bool mayCastle(const Game& game, const Step& step) {
    if (step.cols() != 2 || step.dRow != 0 || (!game.icsMode && game.KingMoved[game.Turn + 1])) return false;
    return step.dCol > 0 ? emptyBetween(game.Board, step.from + 1, step.from + 2)
                         : emptyBetween(game.Board, step.from - 3, step.from - 1);
}

bool kingMay(const Game& game, const Step& step) {
    return (step.cols() < 2 && step.rows() < 2) || mayCastle(game, step);
}

bool queenMay(const Game& game, const Step& step) {
    return zDiagonalOK(game.Board, step.from, step.to) != 0 || zStraightOK(game.Board, step.from, step.to) != 0;
}

bool knightMay(const Step& step) { return step.cols() < 3 && step.rows() < 3 && step.cols() + step.rows() == 3; }

// What a pawn goes by: white's figures, and black's with the signs turned.
struct PawnSide {
    int sign; // of the codes and of a step forward
    int startRow;
    int col; // of MoveUndo
};
constexpr PawnSide WhitePawn{1, 1, 0};
constexpr PawnSide BlackPawn{-1, 6, 1};

bool mayTakeEnPassant(const Game& game, const Step& step, const PawnSide& side) {
    const bool granted = game.icsMode || game.MoveUndo[game.MoveRow][side.col][6] != 0;
    return granted && game.Board[step.to - 8 * side.sign] == -side.sign * Piece::Pawn;
}

bool pawnMay(Game& game, const Step& step, const PawnSide& side) {
    const bool toEmpty = game.Board[step.to] == 0;
    if (step.dRow == side.sign) {
        if (step.dCol == 0) return toEmpty;
        if (step.cols() != 1) return false;
        if (!toEmpty) return true;
        game.EPCapture = answer(mayTakeEnPassant(game, step, side));
        return game.EPCapture != 0;
    }
    return step.dRow == 2 * side.sign && rankOf(step.from) == side.startRow && step.dCol == 0 && toEmpty &&
           game.Board[step.to - 8 * side.sign] == 0;
}

bool pieceMay(Game& game, const Step& step) {
    const int code = game.Board[step.from];
    if (signOf(code) == signOf(game.Board[step.to])) return false;
    switch (std::abs(code)) {
    case Piece::King:
        return kingMay(game, step);
    case Piece::Queen:
        return queenMay(game, step);
    case Piece::Rook:
        return zStraightOK(game.Board, step.from, step.to) != 0;
    case Piece::Bishop:
        return zDiagonalOK(game.Board, step.from, step.to) != 0;
    case Piece::Knight:
        return knightMay(step);
    case Piece::Pawn:
        return pawnMay(game, step, code > 0 ? WhitePawn : BlackPawn);
    default:
        return false;
    }
}

} // namespace

// The column is not kept within the board on the way: the last test refuses every way that left it.
std::int16_t zDiagonalOK(const BoardSquares& board, int from, int to) {
    const Step step{from, to};
    const int stepRow = signOf(step.dRow);
    const int stepCol = signOf(step.dCol);
    if (stepRow == 0 || stepCol == 0) return 0;
    int col = fileOf(from);
    for (int row = rankOf(from) + stepRow;; row += stepRow) {
        col += stepCol;
        const int square = 8 * row + col;
        if (square < 0 || square > 63) return 0;
        if (row == rankOf(to)) break;
        if (board[square] != 0) return 0;
    }
    return answer(col == fileOf(to));
}

std::int16_t zStraightOK(const BoardSquares& board, int from, int to) {
    const Step step{from, to};
    const int stepRow = signOf(step.dRow);
    const int stepCol = signOf(step.dCol);
    if ((stepRow == 0) == (stepCol == 0)) return 0;
    const int stride = 8 * stepRow + stepCol;
    for (int square = from + stride; square != to; square += stride) {
        if (board[square] != 0) return 0;
    }
    return -1;
}

std::int16_t zEnPassantOK(const BoardSquares& board, int from, int to) {
    const int piece = board[from];
    if (std::abs(piece) != Piece::Pawn || Step{from, to}.dRow != 2 * signOf(piece)) return 0;
    return answer((fileOf(from) > 0 && board[to - 1] == -piece) || (fileOf(from) < 7 && board[to + 1] == -piece));
}

bool zCastle(int piece, int from, int to) { return std::abs(piece) == Piece::King && std::abs(from - to) == 2; }

bool zEnPassantCapture(int piece, int from, int to, int target) {
    const int distance = std::abs(from - to);
    return std::abs(piece) == Piece::Pawn && target == 0 && (distance == 7 || distance == 9);
}

bool promotes(int piece, int to) { return std::abs(piece) == Piece::Pawn && (rankOf(to) == 0 || rankOf(to) == 7); }

std::string zLiteral(int from, int to) { return zSquareName(from) + "-" + zSquareName(to); }

std::int16_t Game::zMoveOK(int square) const {
    const int sign = signOf(Board[square]);
    if (noPlay) return 0;
    if (!icsMode) return answer(sign == Turn);
    if (ShownPly != NextPly - 2 || hand.FromSet != 0) return 0;
    const int relation = Style12Record.Relation;
    if (relation == 1 || relation == 2) return answer(sign == Turn);
    return relation == -1 && modChess.PreMoveOK != 0 && sign == -Turn ? 1 : 0;
}

void Game::zSetFrom(int square) {
    FromSq = static_cast<std::int16_t>(square);
    hand.FromSet = 1;
}

bool Game::zMoveLegal(int from, int to) {
    EPCapture = 0;
    bool legal = false;
    passOver([&] { legal = pieceMay(*this, Step{from, to}); });
    return legal;
}

bool Game::zCheckTest(int side) {
    int target = 0;
    while (target < 64 && Board[target] != -side * Piece::King) ++target;
    for (int square = 0; square < 64; ++square) {
        if (signOf(Board[square]) == side && zMoveLegal(square, target)) return true;
    }
    return false;
}
