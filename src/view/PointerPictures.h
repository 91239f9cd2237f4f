// The two pointers that tell over a board whether a piece may be lifted.
#pragma once

#include <QCursor>

// The pointer for a piece that may move now, or for one that may pre-move, sharp at `ratio` device pixels to the pixel.
QCursor movePointer(double ratio);
QCursor preMovePointer(double ratio);
