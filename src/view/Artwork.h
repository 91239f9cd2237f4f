// The program's vector artwork, compiled into it from assets/.
#pragma once

#include <QImage>
#include <QString>

// The drawing `path` below assets/, such as "pieces/gnu/wk.svg", on a clear square of `side` device pixels, with smooth
// edges. Clear all over when there is no such drawing.
QImage drawArtwork(const QString& path, int side);
