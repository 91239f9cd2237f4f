// A scroll bar that follows a running text at little cost.
#include "platform/LightScrollBar.h"

#include "platform/ContrastStyle.h"

#include <QPaintEvent>
#include <QPainter>
#include <QStyleOptionSlider>

#include <algorithm>

LightScrollBar::LightScrollBar(QWidget* parent) : QScrollBar(Qt::Vertical, parent) {}

// What lies below need not be painted, whatever a style says of the bar that it would paint.
bool LightScrollBar::event(QEvent* event) {
    const bool taken = QScrollBar::event(event);
    if (event->type() == QEvent::Polish || event->type() == QEvent::StyleChange) setAttribute(Qt::WA_OpaquePaintEvent);
    return taken;
}

QRect LightScrollBar::part(QStyle::SubControl which) const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_ScrollBar, &option, which, this);
}

void LightScrollBar::sliderChange(SliderChange change) {
    const std::pair<bool, bool> free{value() > minimum(), value() < maximum()};
    const bool arrowsChange = std::exchange(free_, free) != free;
    const QRect now = part(QStyle::SC_ScrollBarSlider);
    const QRect before = std::exchange(shownAt_, now);
    if (change != SliderValueChange && change != SliderRangeChange) {
        QScrollBar::sliderChange(change);
        return;
    }
    if (before != now) update(before.united(now));
    if (!arrowsChange) return;
    update(part(QStyle::SC_ScrollBarSubLine));
    update(part(QStyle::SC_ScrollBarAddLine));
}

void LightScrollBar::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QPalette& look = palette();
    painter.fillRect(event->rect(), look.color(QPalette::Window));
    if (maximum() == minimum()) return;
    const QRect slider = part(QStyle::SC_ScrollBarSlider).adjusted(3, 1, -3, -1);
    const QPalette::ColorRole resting = isStark(look) ? QPalette::WindowText : QPalette::Mid;
    painter.fillRect(slider, look.color(isSliderDown() || underMouse() ? QPalette::Highlight : resting));
    paintArrow(painter, QStyle::SC_ScrollBarSubLine, value() > minimum());
    paintArrow(painter, QStyle::SC_ScrollBarAddLine, value() < maximum());
}

void LightScrollBar::paintArrow(QPainter& painter, QStyle::SubControl which, bool enabled) const {
    const QRect area = part(which);
    const int tall = std::max(2, area.width() / 4); // pixels from the arrow's base to its tip
    const QColor color = palette().color(enabled ? QPalette::Active : QPalette::Disabled, QPalette::WindowText);
    for (int line = 0; line < tall; ++line) {
        const int fromTip = which == QStyle::SC_ScrollBarSubLine ? line : tall - 1 - line;
        const int top = area.center().y() - tall / 2 + line;
        painter.fillRect(area.center().x() - fromTip, top, 2 * fromTip + 1, 1, color);
    }
}
