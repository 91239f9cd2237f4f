// The two pointers that tell over a board whether a piece may be lifted.
#include "view/PointerPictures.h"

#include "view/Artwork.h"

#include <QPixmap>

#include <cmath>

namespace {

// The artwork is 24 pixels square and points with the tip of its finger.
QCursor pointer(const QString& path, double ratio) {
    QPixmap picture = QPixmap::fromImage(drawArtwork(path, static_cast<int>(std::lround(24 * ratio))));
    picture.setDevicePixelRatio(ratio);
    return QCursor(picture, 9, 2);
}

} // namespace

QCursor movePointer(double ratio) { return pointer(QStringLiteral("pointers/move.svg"), ratio); }

QCursor preMovePointer(double ratio) { return pointer(QStringLiteral("pointers/premove.svg"), ratio); }
