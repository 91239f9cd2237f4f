// A font no larger than the room that a text has.
#include "platform/FittingFont.h"

#include <QFontInfo>
#include <QFontMetrics>

namespace {

constexpr int SmallestFont = 5; // pixels

bool fits(const QFont& font, const QString& text, QSize room) {
    const QFontMetrics metrics(font);
    return metrics.height() <= room.height() && metrics.horizontalAdvance(text) <= room.width();
}

} // namespace

QFont fittingFont(QFont font, const QString& text, QSize room) {
    for (int pixels = QFontInfo(font).pixelSize(); pixels > SmallestFont && !fits(font, text, room);) {
        font.setPixelSize(--pixels);
    }
    return font;
}

QFont fittingFont(QFont font, int height) { return fittingFont(std::move(font), QString(), {0, height}); }
