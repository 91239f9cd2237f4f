// Positions and moves in words, for assistive tools.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

// "White: king e1, rook a1; Black: none": each side's pieces from the king down to the pawns, of each kind from a1 on.
// `pieceAt` gives the piece code on square 0 to 63.
std::string describePosition(const std::function<std::int16_t(int square)>& pieceAt);

// "e4, white pawn", "e5, empty"; behind it "in hand" for a piece that is `lifted`.
std::string describeSquare(int square, std::int16_t code, bool lifted);

// A move's text with its sign in words: "8.. Qg5, check" for "8.. Qg5+", "9. Qf7, checkmate" for "9. Qf7#".
std::string describeMove(std::string_view move);

// "pre-move e7 to e5".
std::string describePreMove(int from, int to);
