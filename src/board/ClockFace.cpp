// One chess clock on a board window.
#include "board/ClockFace.h"

#include "board/BoardClock.h"
#include "platform/Colors.h"
#include "platform/Described.h"
#include "platform/FittingFont.h"
#include "platform/StreamText.h"

#include <QEvent>
#include <QFontInfo>
#include <QPainter>

#include <algorithm>

namespace {

// Pixels.
constexpr int Swatch = 11;
constexpr int SwatchLeft = 6;
constexpr int TextLeft = SwatchLeft + Swatch + 2; // at least
constexpr int TextRight = 5;                      // from the right edge

// The digits all count as one, so that a clock keeps its size as it runs.
std::string formOf(std::string text) {
    std::erase(text, ' ');
    std::ranges::replace_if(
        text, [](char c) { return c >= '0' && c <= '9'; }, '0');
    return text;
}

} // namespace

ClockFace::ClockFace(int side, QWidget* parent) : QWidget(parent), side_(side), background_(ClockColor::Waiting) {
    setObjectName(QStringLiteral("lblTime(%1)").arg(side));
    describe(this, QAccessible::StaticText, side == 0 ? tr("White's clock") : tr("Black's clock"),
             [this] { return shownText(text_).trimmed(); });
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ClockFace::setText(const std::string& text) {
    if (text == text_) return;
    const bool sameForm = formOf(text) == formOf(text_);
    text_ = text;
    if (!sameForm) fit();
    update();
}

void ClockFace::setBackground(std::uint32_t color) {
    if (color == background_) return;
    background_ = color;
    update();
}

void ClockFace::fit() {
    QFont large = font();
    large.setPixelSize(qRound(QFontInfo(large).pixelSize() * 1.35));
    large.setBold(true);
    digits_ = fittingFont(large, shownText(formOf(text_)), {width() - TextLeft - TextRight, height() - 2});
}

void ClockFace::resizeEvent(QResizeEvent*) { fit(); }

void ClockFace::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) fit();
    QWidget::changeEvent(event);
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
    framed({SwatchLeft, (height() - Swatch + 1) / 2, Swatch, Swatch}, QColor(96, 96, 96),
           side_ == 0 ? Qt::white : Qt::black);
    painter.setPen(waiting ? palette().color(QPalette::ButtonText) : QColor(Qt::black));
    painter.setFont(digits_);
    const QString text = shownText(text_).trimmed();
    const QFontMetrics metrics(digits_);
    const int left = std::max(TextLeft, width() - TextRight - metrics.horizontalAdvance(text));
    painter.drawText(left, (height() + metrics.ascent() - metrics.descent()) / 2, text);
}
