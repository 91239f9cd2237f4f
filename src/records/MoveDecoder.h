// A move's text to its squares, for every stored game: the texts of servers and of our own files, and what else passes.
#pragma once

#include "common/FixedArray.h"
#include "common/Needed.h"

#include <cstdint>
#include <optional>
#include <string_view>

// What a move's text says by itself. Pieces are king 1 to pawn 6, squares those of common/Squares.h.
struct MoveReading {
    enum class Castling { None, Short, Long };

    Castling castling = Castling::None; // nothing else counts then
    int piece = 0;                      // 0 for the empty text
    int file = -1;                      // the file that the piece comes from; a negative number names none
    int rank = -1;                      // the same of its rank
    bool drop = false;
    std::optional<std::int16_t> promotion; // of a pawn that reaches the end: queen 2 to knight 5, 0 when not named
    std::optional<std::int16_t> to;        // may lie off the board; none when the text breaks off before a square
};

// "Nbd7", "R1xe2", "exd8=Q+", "P@e4", "O-O". Castling is told by its first letter, and only "o-o" in either case is to
// the king's side, so that "O-O+" is read as the other. What stands behind the square is not looked at.
MoveReading readMoveText(std::string_view text);

// A move on a board. Without `ok` something was missing, and from and to are what was known by then.
struct MoveSquares {
    std::int16_t from = 0;
    std::int16_t to = 0;
    bool ok = false;
};

// Looks on `board` for the piece of `colour` (1 or -1) that may make the move: the lowest square that `mayMove`
// accepts. `from` comes back where there is none, 64 for a drop; a drop too is taken for a move of a piece that can
// reach the square. With a `from` of -1 there is no search.
MoveSquares findMove(const MoveReading& reading, std::int16_t colour, std::int16_t from,
                     const FixedArray<std::int16_t, 64>& board, const Needed<bool(int from, int to)>& mayMove);
