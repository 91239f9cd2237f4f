// Fonts for words that change often: no larger than the room that they have, and quick to lay out.
#include "platform/FittingFont.h"

#include <QFontInfo>
#include <QFontMetrics>

#include <utility>

namespace {

constexpr int SmallestFont = 5; // pixels

bool fits(const QFont& font, const QString& text, QSize room) {
    const QFontMetrics metrics(font);
    return metrics.height() <= room.height() && metrics.horizontalAdvance(text) <= room.width();
}

} // namespace

QFont unshaped(QFont font) {
    font.setStyleStrategy(static_cast<QFont::StyleStrategy>(font.styleStrategy() | QFont::PreferNoShaping));
    return font;
}

QFont fittingFont(QFont font, const QString& text, QSize room) {
    font = unshaped(std::move(font));
    for (int pixels = QFontInfo(font).pixelSize(); pixels > SmallestFont && !fits(font, text, room);) {
        font.setPixelSize(--pixels);
    }
    return font;
}

QFont fittingFont(QFont font, int height) { return fittingFont(std::move(font), QString(), {0, height}); }
