// The rules that a move on a board is tested by: the pieces' paths and little more, since the server decides.
//
// Required gaps. Check is not looked at: a move may leave, put or castle the own king into it, and may take a king.
// Castling asks for no rook in the corner and no king at home: a king of any row may go two files sideways over empty
// squares. In a live game a pawn may go diagonally to any empty square whose neighbour behind it is an enemy pawn.
// Drops are not tested, and neither is whose move it is: zMoveOK did that when the piece was taken up.
#pragma once

#include "board/PositionStore.h"

#include <cstdint>
#include <string>

// These three give -1 for yes and 0 for no; they fault (subscript) on a square outside 0..64.

// Whether from and to lie on one diagonal of the board with nothing between them; `to` itself may hold a piece.
std::int16_t zDiagonalOK(const BoardSquares& board, int from, int to);
// Whether from and to lie on one row or column with nothing between them; `to` itself may hold a piece.
std::int16_t zStraightOK(const BoardSquares& board, int from, int to);
// Whether the piece on `from` is a pawn that steps two rows forward and lands beside an enemy pawn.
std::int16_t zEnPassantOK(const BoardSquares& board, int from, int to);

// Whether the move of `piece` is written as castling: a king, two squares.
bool zCastle(int piece, int from, int to);
// Whether `piece` is a pawn that goes 7 or 9 squares on to an empty one, `target` being the code there.
bool zEnPassantCapture(int piece, int from, int to, int target);

// Whether `piece` is a pawn that goes to the first or the last row, whichever its colour.
bool promotes(int piece, int to);

// A move as the server reads it, such as "e2-e4".
std::string zLiteral(int from, int to);
