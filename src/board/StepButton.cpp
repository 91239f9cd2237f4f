// A button to walk through a game by.
#include "board/StepButton.h"

#include <QPainter>

#include <cstdlib>

namespace {

// Pixels.
constexpr double ArrowWidth = 6;
constexpr double ArrowHeight = 10;
constexpr double BarWidth = 2;

} // namespace

void StepButton::paintEvent(QPaintEvent* event) {
    QToolButton::paintEvent(event);
    if (step == 0) return;
    const double bar = std::abs(step) == 2 ? BarWidth : 0;
    const double right = (ArrowWidth + bar) / 2; // of an arrow that points to the right, seen from the middle
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::ButtonText));
    painter.translate(QRectF(rect()).center());
    if (step < 0) painter.scale(-1, 1);
    const double tip = right - bar;
    painter.drawPolygon(QPolygonF({{-right, -ArrowHeight / 2}, {tip, 0}, {-right, ArrowHeight / 2}}));
    if (bar > 0) painter.drawRect(QRectF(tip, -ArrowHeight / 2, bar, ArrowHeight));
}
