// The program's vector artwork, compiled into it from assets/.
#include "view/Artwork.h"

#include <QPainter>
#include <QSvgRenderer>

// Must stand outside any namespace: without it the linker drops the artwork of a static library.
static void loadArtwork() { Q_INIT_RESOURCE(assets); }

QImage drawArtwork(const QString& path, int side) {
    loadArtwork();
    QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QSvgRenderer artwork(QStringLiteral(":/") + path);
    if (!artwork.isValid()) return picture;
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    artwork.render(&painter, QRectF(0, 0, side, side));
    return picture;
}
