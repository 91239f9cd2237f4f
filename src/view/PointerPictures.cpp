// The two pointers that tell over a board whether a piece may be lifted.
#include "view/PointerPictures.h"

#include <QPainter>
#include <QPixmap>
#include <QPolygonF>

#include <cmath>

QCursor badgePointer(int badge, double ratio) {
    const auto side = static_cast<int>(std::lround(24 * ratio));
    QPixmap picture(side, side);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, 1.2));
    painter.setBrush(Qt::white);
    painter.drawPolygon(QPolygonF({{1.5, 1.5}, {1.5, 16.5}, {5.4, 13}, {8, 19}, {10.6, 17.9}, {8, 12}, {13, 11.6}}));
    painter.setBrush(QColor(badge & 255, badge >> 8 & 255, badge >> 16 & 255));
    painter.drawEllipse(QPointF(17.5, 17.5), 5, 5);
    painter.end();
    return QCursor(picture, 1, 1);
}
