// A chess position as the engine's FEN text tells it.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace practice {

// The start position of every game here.
inline constexpr std::string_view startFen = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";

// Squares count from a1 = 0 over h1 = 7 to h8 = 63; a board holds one letter a square, '-' for none.
struct Position {
    std::array<char, 64> board{};
    bool whiteToMove = true;
    std::string castling = "-"; // letters of KQkq or of the rooks' files, or "-"
    std::string hand;           // pieces to drop, white's as capitals
    int halfmoves = 0;          // half-moves since a capture or a pawn's move
    int moveNumber = 1;         // number of the move about to be made

    // The piece on a square named like "e4"; '-' for an empty square or a name of another form.
    char at(std::string_view square) const;

    // The rank 1..8 as eight letters, file a first.
    std::string rank(int which) const;

    // What a side may drop, as capitals, pawns first.
    std::string handOf(bool white) const;

    // True if a side may still castle to its short or its long side, whatever stands between.
    bool mayCastle(bool white, bool shortSide) const;
};

// How a position without legal moves counts for the side to move.
enum class Outcome { Drawn, Won, Lost };

// What the rules engine says about one position.
struct PositionFacts {
    std::string fen;
    std::vector<std::string> legal;   // legal moves like "e2e4", "e7e8q"; none at mate and stalemate
    bool check = false;               // the side to move stands in check
    Outcome outcome = Outcome::Drawn; // only without legal moves
};

// Reads a FEN with 8 ranks and at least its side to move; nothing for any other text. Behind the ranks may stand a hand
// in brackets, behind a promoted piece a "~". Counters that are missing or no numbers become 0 and 1.
std::optional<Position> readFen(std::string_view fen);

// The part of a FEN that decides repetition: placement, side, castling and en passant.
std::string repetitionKey(std::string_view fen);

// The index 0..63 of a square named like "e4"; -1 for a name of another form.
int squareIndex(std::string_view square);

// The sum of one side's pieces by the usual counting: 1, 3, 3, 5, 9; 39 at the start.
int materialStrength(const Position& position, bool white);

// The pieces of one side on the board, the king among them.
int countPieces(const Position& position, bool white);

// False when a side is left with its king alone or with one knight or bishop besides.
bool hasMatingMaterial(const Position& position, bool white);

} // namespace practice
