// Texts of moves: from what a player types to the engine's form, and from there to the forms shown.
#pragma once

#include "practice/chess/Position.h"

#include <string>
#include <string_view>
#include <vector>

namespace practice {

// What became of a typed move.
enum class MoveReading { Legal, Illegal, Ambiguous };

// A typed move read against the legal moves of a position.
struct TypedMove {
    MoveReading reading = MoveReading::Illegal;
    std::string move; // engine form like "e7e8q"; empty unless Legal
};

// True if `text` has the form of a move ("e2e4", "e2-e4", "Nf3", "exd5", "O-O", "e8=Q", "N@f3"), legal or not.
bool looksLikeMove(std::string_view text);

// Finds the legal move that a player meant. Where the engine tells castling as the king taking his rook, the king's
// way of two squares and more means castling as well. `promotion` is one of q, r, b, n and is taken when the text names
// no piece to promote to.
TypedMove readMove(const PositionFacts& facts, std::string_view typed, char promotion);

// The short form without a check mark: "Nbd2", "exd5", "O-O-O", "e8=Q", "N@f3". `legal` holds the moves of `position`.
std::string shortForm(const Position& position, const std::vector<std::string>& legal, std::string_view move);

// The long form of the board lines: "P/e2-e4", "o-o", "P/e7-e8=Q", "N/@@-f3".
std::string verboseForm(const Position& position, std::string_view move);

// The file 0..7 of a pawn's double step, -1 for any other move.
int doublePushFile(const Position& position, std::string_view move);

} // namespace practice
