// The two pointers that tell over a board whether a piece may be lifted.
#pragma once

#include <QCursor>

// An arrow with a round badge of `badge` (0xBBGGRR) at its foot, sharp at `ratio` device pixels to the pixel.
QCursor badgePointer(int badge, double ratio);
