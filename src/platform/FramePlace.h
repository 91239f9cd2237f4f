// Putting a window where the corner of its frame is to be.
#pragma once

#include <QPoint>

class QWidget;

// Puts the upper left corner of the frame of `window`, a top-level widget, at a point of the screen (pixels), at once
// or, of one that does not show yet, as it shows.
void placeFrame(QWidget& window, QPoint corner);

// The same beside `other`, which shows: to the right of it, to the left where only there is room, or within it. Takes
// `window` for as large as its layout wants it, and its frame for one like the other's.
void placeBeside(QWidget& window, const QWidget& other);
