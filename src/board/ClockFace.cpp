// One chess clock on a board window.
#include "board/ClockFace.h"

#include "board/BoardClock.h"
#include "platform/Colors.h"
#include "platform/StreamText.h"

#include <QPainter>

#include <algorithm>

namespace {
constexpr int Swatch = 10; // pixels
}

ClockFace::ClockFace(int side, QWidget* parent) : QWidget(parent), side_(side), background_(ClockColor::Waiting) {
    setObjectName(QStringLiteral("lblTime(%1)").arg(side));
    setAccessibleName(side == 0 ? tr("White's clock") : tr("Black's clock"));
    QFont big = font();
    big.setPointSizeF(big.pointSizeF() * 1.35);
    big.setBold(true);
    setFont(big);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ClockFace::setText(const std::string& text) {
    if (text == text_) return;
    text_ = text;
    setAccessibleDescription(shownText(text));
    update();
}

void ClockFace::setBackground(std::uint32_t color) {
    if (color == background_) return;
    background_ = color;
    update();
}

void ClockFace::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool waiting = background_ == ClockColor::Waiting;
    const QColor paper = waiting ? palette().color(QPalette::Button) : colorOf(static_cast<std::int32_t>(background_));
    const auto framed = [&painter](const QRect& area, const QColor& frame, const QColor& inside) {
        painter.fillRect(area, frame);
        painter.fillRect(area.adjusted(1, 1, -1, -1), inside);
    };
    framed(rect(), palette().color(QPalette::Mid), paper);
    framed({6, (height() - Swatch) / 2, Swatch + 1, Swatch + 1}, QColor(96, 96, 96),
           side_ == 0 ? Qt::white : Qt::black);
    painter.setPen(waiting ? palette().color(QPalette::ButtonText) : QColor(Qt::black));
    const QString text = shownText(text_);
    const QFontMetrics metrics = fontMetrics();
    const int left = std::max(Swatch + 8, width() - 6 - metrics.horizontalAdvance(text));
    painter.drawText(left, (height() + metrics.ascent() - metrics.descent()) / 2, text);
}
