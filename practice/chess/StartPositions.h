// Start positions of the kinds of chess that do not start as usual, as FEN texts with white to move.
#pragma once

#include <random>
#include <string>
#include <string_view>

namespace practice {

// The usual start with these castling rights: "KQkq" or "-".
std::string standardStart(std::string_view castling);

// Kings on the d-file, queens on the e-file, everything else as usual.
std::string kingsAndQueensSwapped();

// Kings on `kingFile` (3 for d, 4 for e), rooks in the corners, bishops of either colour; the rest of each side is
// shuffled for itself.
std::string shuffledBetweenRooks(std::size_t kingFile, std::mt19937& dice);

// The usual pieces in any order, the same for both sides; no castling.
std::string shuffledMirrored(std::mt19937& dice);

// A king and seven pieces of any kind, the same for both sides; no castling.
std::string randomMirrored(std::mt19937& dice);

// A king and seven pieces of any kind for each side, with as many bishops on light and on dark squares as the other
// side has; no castling.
std::string randomBalanced(std::mt19937& dice);

// Each side's pieces stand behind its own pawns on the other side of the board, so that all pawns are one step from
// promotion; no castling.
std::string pawnsNearPromotion();

// White's pawns on the fourth rank and black's on the fifth, or, if `passed`, each on the other's.
std::string advancedPawns(bool passed);

// The start position of Fischer's random chess with this number, 0..959; 518 is the usual one.
std::string fischerRandom(int number);

} // namespace practice
