// Texts of others in tool tips: they stay on the screen, whatever their length.
#include "platform/TipText.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QScreen>
#include <QToolTip>

#include <algorithm>

namespace {

constexpr qsizetype Longest = 500; // characters

int widestLine(const QFontMetrics& metrics) {
    const int screen = QGuiApplication::primaryScreen()->availableSize().width();
    return std::min(80 * metrics.averageCharWidth(), screen * 9 / 10);
}

// How many characters the line has that begins `text`, at least one.
qsizetype lineLength(QStringView text, const QFontMetrics& metrics, int widest) {
    qsizetype behindBlank = 0;
    int width = 0;
    for (qsizetype count = 0; count < text.size(); ++count) {
        width += metrics.horizontalAdvance(text[count]);
        if (width > widest && count > 0) return behindBlank > 0 ? behindBlank : count;
        if (text[count].isSpace()) behindBlank = count + 1;
    }
    return text.size();
}

} // namespace

QString tipText(const QString& text) {
    const QFontMetrics metrics(QToolTip::font());
    const int widest = widestLine(metrics);
    QString lines;
    for (QStringView rest = QStringView(text).first(std::min(text.size(), Longest)); !rest.isEmpty();) {
        const auto length = lineLength(rest, metrics, widest);
        if (!lines.isEmpty()) lines += u'\n';
        lines += rest.first(length);
        rest = rest.sliced(length);
    }
    return lines;
}
