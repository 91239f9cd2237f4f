// Every position and every move text of the game on a board, in fixed arrays.
#pragma once

#include "common/FixedArray.h"

#include <cstdint>
#include <string>

inline constexpr int LastMoveRow = 200; // full moves
inline constexpr int LastPly = 400;     // half moves

// One position: codes of the squares 0 to 63; entry 64 is the hand, the source of a drop.
using BoardSquares = FixedArray<std::int16_t, 64>;

// First index the ply: 0 the start, 1 after white's first move. Never cleared: the next game overwrites it from ply 0.
struct PositionStore {
    FixedArray<FixedArray<std::int16_t, 63>, LastPly, "half-moves of a game"> plies;

    // Copies squares 0 to 63 of `board` to `ply`; faults (subscript) outside 0..400.
    void store(std::int32_t ply, const BoardSquares& board);
};

// First index the move number 0..200, second 0 white and 1 black.
using MoveTexts = FixedArray<FixedArray<std::string, 1>, LastMoveRow, "moves of a game">;

// What undoes a locally made move: move number 0..200, 0 white and 1 black, kind 0..7 (0 from, 1 to, 2 and 3 the rook
// of a castling, 4 and 5 square and code of a captured piece, 6 en passant grant, 7 promotion piece).
using MoveUndos = FixedArray<FixedArray<FixedArray<std::int16_t, 7>, 1>, LastMoveRow, "moves of a game">;
