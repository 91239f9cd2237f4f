// The four colours of the boards.
#pragma once

#include "common/FixedArray.h"

#include <cstdint>

// Which of the four.
enum BoardColor : int { WhiteSquares, BlackSquares, NormalMove, PreMove };

// 0xBBGGRR, by BoardColor.
using BoardColors = FixedArray<std::int32_t, 3>;

// The program's colours as they stand in modChess.
BoardColors boardColors();

// Makes `colors` the program's; boards show them from their next repaint on.
void setBoardColors(const BoardColors& colors);
