// A chess position as the engine's FEN text tells it.
#include "practice/chess/Position.h"

#include "practice/text/Text.h"

#include <algorithm>

namespace practice {

namespace {

// White's letters are capitals, as in the board line.
bool isPieceLetter(char c) { return std::string_view("KQRBNPkqrbnp").find(c) != std::string_view::npos; }

bool belongsTo(char piece, bool white) { return piece != '-' && (piece >= 'A' && piece <= 'Z') == white; }

// Fills the ranks from the eighth down; false unless there are 8 ranks of 8 squares.
bool readPlacement(std::string_view text, std::array<char, 64>& board) {
    board.fill('-');
    int rank = 7;
    int file = 0;
    for (const char c : text) {
        if (c == '/') {
            if (file != 8 || rank == 0) return false;
            --rank;
            file = 0;
        } else if (c >= '1' && c <= '8') {
            file += c - '0';
        } else if (c == '~' && file > 0) {
            // The piece before was a pawn once; only the hand it goes to when taken depends on that.
            continue;
        } else if (isPieceLetter(c) && file < 8) {
            board[static_cast<std::size_t>(8 * rank + file++)] = c;
        } else {
            return false;
        }
        if (file > 8) return false;
    }
    return rank == 0 && file == 8;
}

// "RNBQKBNR[QPbp]": takes the hand off the placement; false when its bracket is not closed.
bool cutHand(std::string& placement, std::string& hand) {
    const auto open = placement.find('[');
    if (open == std::string::npos) return true;
    if (placement.back() != ']') return false;
    hand = placement.substr(open + 1, placement.size() - open - 2);
    placement.resize(open);
    return std::all_of(hand.begin(), hand.end(), isPieceLetter);
}

// Clients show these sums; the king has no price.
int pieceValue(char piece) {
    switch (lowerOf(piece)) {
    case 'q':
        return 9;
    case 'r':
        return 5;
    case 'b':
    case 'n':
        return 3;
    case 'p':
        return 1;
    default:
        return 0;
    }
}

} // namespace

char Position::at(std::string_view square) const {
    const int index = squareIndex(square);
    return index < 0 ? '-' : board[static_cast<std::size_t>(index)];
}

std::string Position::rank(int which) const {
    const auto first = board.begin() + 8 * (which - 1);
    return std::string(first, first + 8);
}

std::string Position::handOf(bool white) const {
    std::string result;
    for (const char kind : std::string_view("PNBRQ")) {
        const char piece = white ? kind : lowerOf(kind);
        result.append(static_cast<std::size_t>(std::count(hand.begin(), hand.end(), piece)), kind);
    }
    return result;
}

// "KQkq", or "HAha" when rooks may have stood anywhere. A king on the d-file has his short side to the left.
bool Position::mayCastle(bool white, bool shortSide) const {
    const char king = white ? 'K' : 'k';
    const std::string back = rank(white ? 1 : 8);
    const auto kingFile = back.find(king);
    for (const char right : castling == "-" ? std::string() : castling) {
        if ((right >= 'A' && right <= 'Z') != white || kingFile == std::string::npos) continue;
        const char letter = lowerOf(right);
        if (letter == 'k' && shortSide == (kingFile != 3)) return true;
        if (letter == 'q' && shortSide == (kingFile == 3)) return true;
        const bool toTheRight = letter - 'a' > static_cast<int>(kingFile);
        if (letter <= 'h' && shortSide == toTheRight) return true;
    }
    return false;
}

std::optional<Position> readFen(std::string_view fen) {
    auto parts = words(fen);
    Position result;
    if (parts.size() < 2 || !cutHand(parts[0], result.hand)) return std::nullopt;
    if (!readPlacement(parts[0], result.board)) return std::nullopt;
    result.whiteToMove = parts[1] == "w";
    if (parts.size() > 2) result.castling = parts[2];
    if (parts.size() > 4) result.halfmoves = number(parts[4]).value_or(0);
    if (parts.size() > 5) result.moveNumber = std::max(1, number(parts[5]).value_or(1));
    return result;
}

// "rnbqkbnr/.../RNBQKBNR w KQkq - 0 1" without its last two fields.
std::string repetitionKey(std::string_view fen) {
    auto parts = words(fen);
    parts.resize(4);
    return parts[0] + " " + parts[1] + " " + parts[2] + " " + parts[3];
}

int squareIndex(std::string_view square) {
    if (square.size() != 2 || square[0] < 'a' || square[0] > 'h' || square[1] < '1' || square[1] > '8') return -1;
    return 8 * (square[1] - '1') + (square[0] - 'a');
}

int materialStrength(const Position& position, bool white) {
    int sum = 0;
    for (const char piece : position.board) {
        if (belongsTo(piece, white)) sum += pieceValue(piece);
    }
    return sum;
}

int countPieces(const Position& position, bool white) {
    const auto& board = position.board;
    return static_cast<int>(std::count_if(board.begin(), board.end(), [&](char p) { return belongsTo(p, white); }));
}

bool hasMatingMaterial(const Position& position, bool white) {
    int pieces = 0;
    for (const char piece : position.board) {
        if (!belongsTo(piece, white)) continue;
        if (lowerOf(piece) == 'p') return true;
        ++pieces;
    }
    return pieces > 2 || materialStrength(position, white) > 3;
}

} // namespace practice
