// The algebraic text of a move about to be made, and the promotion that belongs to it.
#include "board/Game.h"
#include "board/MoveRules.h"
#include "board/PieceCodes.h"
#include "common/Squares.h"
#include "common/modChess.h"

#include <cstdlib>
#include <string_view>

namespace {

// By code; a pawn and an empty square have no letter.
std::string pieceLetter(int code) {
    constexpr std::string_view Letters = "KQRBN";
    const int kind = std::abs(code);
    return kind >= Piece::King && kind <= Piece::Knight
               ? std::string(Letters.substr(static_cast<std::size_t>(kind - 1), 1))
               : "";
}

std::string promotionPart(int piece) {
    return piece >= Piece::Queen && piece <= Piece::Knight ? "=" + pieceLetter(piece) : "";
}

// What tells the piece on `from` from others of its kind that could go to `to`; a pinned one counts.
std::string disambiguation(Game& game, int from, int to) {
    std::string name = zSquareName(from);
    std::string part;
    for (int square = 0; square < 64; ++square) {
        if (square == from || game.Board[square] != game.Board[from] || !game.zMoveLegal(square, to)) continue;
        if (!part.empty()) return name;
        part = fileOf(square) != fileOf(from) ? name.substr(0, 1) : name.substr(1);
    }
    return part;
}

} // namespace

std::string Game::zMoveText(int from, int to) {
    const int piece = Board[from];
    const bool pawn = std::abs(piece) == Piece::Pawn;
    const std::string toName = zSquareName(to);
    const bool captures = Board[to] != 0 || EPCapture != 0;
    std::string promotion;
    if (promotes(piece, to)) {
        if (PromotePiece == 0 && !hand.promotionAnswered && modChess.AutoQueen != 0) PromotePiece = Piece::Queen;
        Board[from] = static_cast<std::int16_t>(Turn * PromotePiece);
        promotion = promotionPart(PromotePiece);
    }
    if (from == HandSquare) return (pawn ? "P" : pieceLetter(piece)) + "@" + toName;
    if (pawn) return (captures ? zSquareName(from).substr(0, 1) + "x" : "") + toName + promotion;
    return pieceLetter(piece) + disambiguation(*this, from, to) + (captures ? "x" : "") + toName;
}
