// The rules of moves once more, worked out apart from the board's own: what may be taken up, and where it may go.
#pragma once

#include "board/Game.h"
#include "board/PieceCodes.h"
#include "common/Squares.h"
#include "common/modChess.h"

#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

// -1 when the piece on `square` may be moved now, 1 when it may be moved in advance, else 0.
inline int modelMayTake(const Game& game, int square) {
    if (game.noPlay) return 0;
    const int owner = signOf(game.Board[square]);
    if (!game.icsMode) return owner == game.Turn ? -1 : 0;
    const bool newest = game.ShownPly + 2 == game.NextPly;
    if (!newest || game.hand.FromSet != 0) return 0;
    switch (game.Style12Record.Relation) {
    case 1:
    case 2:
        return owner == game.Turn ? -1 : 0;
    case -1:
        return modChess.PreMoveOK != 0 && owner == -game.Turn ? 1 : 0;
    default:
        return 0;
    }
}

// The code on a square of the board or the hand (64); nothing for any other.
inline std::optional<int> modelCode(const Game& game, int square) {
    if (square < 0 || square > HandSquare) return std::nullopt;
    return game.Board[square];
}

// How many pieces stand between two squares of one line.
inline int modelBetween(const Game& game, int from, int to) {
    const int stride = signOf(rankOf(to) - rankOf(from)) * 8 + signOf(fileOf(to) - fileOf(from));
    int pieces = 0;
    for (int square = from + stride; square != to; square += stride) pieces += game.Board[square] != 0 ? 1 : 0;
    return pieces;
}

inline bool modelCastles(const Game& game, int from, int to) {
    if (rankOf(from) != rankOf(to) || std::abs(to - from) != 2) return false;
    if (!game.icsMode && game.KingMoved[game.Turn + 1]) return false;
    const int step = signOf(to - from);
    bool free = modelCode(game, from + step) == 0 && modelCode(game, to) == 0;
    if (step < 0) free = free && modelCode(game, to - 1) == 0; // may lie on the row below
    return free;
}

// Who may take en passant in a local game: by row of the move list and side to move.
using ModelGrants = FixedArray<FixedArray<bool, 1>, LastMoveRow>;

inline bool modelGranted(const Game& game, int col, const ModelGrants* grants) {
    if (game.icsMode) return true;
    if (game.MoveRow < 0 || game.MoveRow > LastMoveRow) return false;
    return grants ? (*grants)[game.MoveRow][col] : game.MoveUndo[game.MoveRow][col][6] != 0;
}

inline bool modelPawnMay(const Game& game, int from, int to, int side, const ModelGrants* grants) {
    const int steps = (rankOf(to) - rankOf(from)) * side;
    const int files = std::abs(fileOf(to) - fileOf(from));
    const bool toEmpty = game.Board[to] == 0;
    const auto behind = modelCode(game, to - 8 * side);
    if (steps == 2) return files == 0 && rankOf(from) == (side > 0 ? 1 : 6) && toEmpty && behind == 0;
    if (steps != 1 || files > 1) return false;
    if (files == 0) return toEmpty;
    if (!toEmpty) return true;
    return modelGranted(game, side > 0 ? 0 : 1, grants) && behind == -side * Piece::Pawn;
}

// Whether the piece on `from` (0 to 63) may go to `to` (0 to 64). Without `grants` of one's own, those of the game
// hold.
inline bool modelMayMove(const Game& game, int from, int to, const ModelGrants* grants = nullptr) {
    const int piece = game.Board[from];
    if (signOf(piece) == signOf(game.Board[to])) return false;
    const int files = std::abs(fileOf(to) - fileOf(from));
    const int ranks = std::abs(rankOf(to) - rankOf(from));
    const bool line = files == 0 || ranks == 0;
    const bool diagonal = files == ranks && to != HandSquare;
    switch (std::abs(piece)) {
    case Piece::King:
        return (files < 2 && ranks < 2) || modelCastles(game, from, to);
    case Piece::Queen:
        return (line || diagonal) && modelBetween(game, from, to) == 0;
    case Piece::Rook:
        return line && modelBetween(game, from, to) == 0;
    case Piece::Bishop:
        return diagonal && modelBetween(game, from, to) == 0;
    case Piece::Knight:
        return files * ranks == 2;
    case Piece::Pawn:
        return modelPawnMay(game, from, to, signOf(piece), grants);
    default:
        return false;
    }
}

// Whether the user is asked what the pawn becomes that moves from `from` to `to`.
inline bool modelAsks(const Game& game, int from, int to) {
    const bool atEnd = to < HandSquare && (rankOf(to) == 0 || rankOf(to) == 7);
    return atEnd && std::abs(game.Board[from]) == Piece::Pawn && modChess.AutoQueen == 0;
}

// Whether `side` attacks the other king, which counts as standing on a9 when it is not on the board.
inline bool modelChecks(const Game& game, int side, const ModelGrants* grants = nullptr) {
    int king = 0;
    while (king < 64 && game.Board[king] != -side * Piece::King) ++king;
    for (int square = 0; square < 64; ++square) {
        if (signOf(game.Board[square]) == side && modelMayMove(game, square, king, grants)) return true;
    }
    return false;
}

// A move as it goes to the server: "e2-e4", "e7-e8=Q+".
struct SentMove {
    int from = 0;
    int to = 0;
    char promotion = 0; // the piece's letter
};

inline bool isSquareName(std::string_view name) {
    return name.size() == 2 && name[0] >= 'a' && name[0] <= 'h' && name[1] >= '1' && name[1] <= '8';
}

inline std::optional<SentMove> readSentMove(std::string_view text) {
    if (text.size() < 5 || text[2] != '-' || !isSquareName(text.substr(0, 2)) || !isSquareName(text.substr(3, 2))) {
        return std::nullopt;
    }
    std::string_view rest = text.substr(5);
    if (rest.size() > 1 && rest.ends_with('+')) rest.remove_suffix(1);
    const bool promotes = rest.size() == 2 && rest[0] == '=' && std::string_view("QRBN").find(rest[1]) != rest.npos;
    if (!rest.empty() && !promotes) return std::nullopt;
    return SentMove{zSquareNumber(text.substr(0, 2)), zSquareNumber(text.substr(3, 2)), promotes ? rest[1] : '\0'};
}

// A drop as it goes to the server: "N@f3".
inline bool isSentDrop(std::string_view text) {
    return text.size() == 4 && std::string_view("QRBNP").find(text[0]) != text.npos && text[1] == '@' &&
           isSquareName(text.substr(2));
}
