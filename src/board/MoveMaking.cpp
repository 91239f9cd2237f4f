// Making a move on a board: squares, what undoes it, its text, the list, and the server.
#include "board/Game.h"

#include "board/MoveRules.h"
#include "board/PieceCodes.h"
#include "common/Squares.h"
#include "common/modChess.h"

#include <cstdlib>

namespace {

// The rook's squares when a king goes from `from` to `to`.
struct RookStep {
    int from;
    int to;
    const char* text;
};

RookStep rookStep(int from, int to) {
    return to <= from ? RookStep{from - 4, from - 1, "O-O-O"} : RookStep{from + 3, from + 1, "O-O"};
}

} // namespace

std::string Game::zMakeMove(int to, bool check, bool display) {
    if (hand.FromSet != 1) return "";
    hand.FromSet = 0;
    const int from = FromSq;
    if (to == from) return "";
    ToSq = static_cast<std::int16_t>(to);
    if (to < 0 || to >= HandSquare) return "";
    const bool drop = from == HandSquare;
    if (!drop && check && !zMoveLegal(from, to)) return "";
    const int piece = Board[from];
    if (!drop) EPGranted = zEnPassantOK(Board, from, to);

    std::string text = zMoveText(from, to);
    transferPiece(from, to, display);
    if (!drop && zCastle(piece, from, to)) text = moveRook(from, to, display);
    if (!drop && EPCapture != 0) takeEnPassant(to, display);
    grantEnPassant();
    recordPromotion(drop);
    if (zCheckTest(Turn)) text += "+";
    if (!icsMode && display) listOwnMove(text);
    passTurn();
    if (icsMode && !text.empty()) sendMove(from, to, text);
    return text;
}

bool Game::asksPromotion(int to) {
    const int from = FromSq;
    if (hand.FromSet != 1 || to < 0 || !promotes(Board[from], to)) return false;
    if (PromotePiece != 0 || modChess.AutoQueen != 0) return false;
    return from == HandSquare || zMoveLegal(from, to);
}

// A square that is not there is passed over: castling beside the corner asks for one, and so does an en passant capture
// when a takeback came while the pawn was in hand.
void Game::setSquare(int square, int code, bool display) {
    if (square < 0 || square > HandSquare) return;
    Board[square] = static_cast<std::int16_t>(code);
    if (display) drawSquare(square, 0);
}

void Game::transferPiece(int from, int to, bool display) {
    if (Board[to] != 0) {
        undo()[4] = static_cast<std::int16_t>(to);
        undo()[5] = Board[to];
    }
    const int piece = Board[from];
    setSquare(from, 0, display);
    setSquare(to, piece, display);
    undo()[0] = static_cast<std::int16_t>(from);
    undo()[1] = static_cast<std::int16_t>(to);
}

std::string Game::moveRook(int from, int to, bool display) {
    const RookStep rook = rookStep(from, to);
    setSquare(rook.from, 0, display);
    setSquare(rook.to, Turn * Piece::Rook, display);
    undo()[2] = static_cast<std::int16_t>(rook.from);
    undo()[3] = static_cast<std::int16_t>(rook.to);
    return rook.text;
}

void Game::takeEnPassant(int to, bool display) {
    const int taken = to - Turn * 8;
    setSquare(taken, 0, display);
    undo()[4] = static_cast<std::int16_t>(taken);
    undo()[5] = static_cast<std::int16_t>(-Piece::Pawn * Turn);
    EPCapture = 0;
}

// The grant stands in the slot of the next mover.
void Game::grantEnPassant() {
    const int col = (1 - Turn) / 2;
    MoveUndo[MoveRow + col][1 - col][6] = EPGranted;
    EPGranted = 0;
}

void Game::recordPromotion(bool drop) {
    undo()[7] = drop ? std::int16_t{0} : PromotePiece;
    PromotePiece = 0;
}

void Game::listOwnMove(const std::string& text) {
    const int col = Turn > 0 ? 1 : 2;
    grdMoves.goTo(MoveRow, col);
    if (col == 1) grdMoves.setCell(MoveRow, 0, std::to_string(MoveRow));
    grdMoves.setCell(MoveRow, col, text);
    zSetTop();
}

void Game::passTurn() {
    if (Turn == -1) ++MoveRow;
    Turn = static_cast<std::int16_t>(-Turn);
    if (!icsMode) zStorePos(2 * (MoveRow - 1) + (1 - Turn) / 2);
}

// A promotion goes out with its "=", its letter, and the sign of check.
void Game::sendMove(int from, int to, const std::string& text) {
    const auto promotion = text.find('=');
    surface.zSendMsg(zLiteral(from, to) + (promotion == text.npos ? "" : text.substr(promotion)));
}
