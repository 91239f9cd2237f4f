// The table of imlPieces: which image lists there are, of which family, and in which size.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

inline constexpr int PieceListCount = 26;
inline constexpr int PiecesInAList = 12; // images 1 to 6: white K Q R B N P; 7 to 12: the same in black

// One family of piece sets: the lists `first` to `last`, largest images first.
struct PieceFamily {
    std::string_view name; // its folder of artwork
    int first;
    int last;
};

// The family of the setting `chessSet`: 0 Bookup, 1 Quorl, any other value GNU.
const PieceFamily& pieceFamily(std::int16_t chessSet);

// The family that list 0 to 25 belongs to.
const PieceFamily& familyOfList(int list);

// The side of the images of list 0 to 25 in pixels; faults (subscript) on any other list.
std::int16_t pieceListSize(int list);

// The first list of the family whose images are no wider than `squarePixels`; the family's last list, with its smallest
// images, when none is.
std::int16_t choosePieceList(std::int16_t chessSet, std::int16_t squarePixels);

// The image number of piece code 1 to 6 (white) or -1 to -6 (black); 0, no image, for any other code.
int pieceImage(std::int16_t piece);
