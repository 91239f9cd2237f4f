// The four colours of the boards, and the defaults of the squares.
#pragma once

#include "common/FixedArray.h"

#include <cstdint>

// Which of the four.
enum BoardColor : int { WhiteSquares, BlackSquares, NormalMove, PreMove };

// 0xBBGGRR, by BoardColor.
using BoardColors = FixedArray<std::int32_t, 3>;

inline constexpr std::int32_t DefaultWhite = 13495025; // red 241, green 234, blue 205
inline constexpr std::int32_t DefaultBlack = 3048380;  // red 188, green 131, blue 46

// The program's colours as they stand in modChess.
BoardColors boardColors();

// Makes `colors` the program's; boards show them from their next repaint on.
void setBoardColors(const BoardColors& colors);
