// A scroll bar that follows a running text at little cost.
#include "platform/LightScrollBar.h"

#include <QStyleOptionSlider>

#include <utility>

LightScrollBar::LightScrollBar(QWidget* parent) : QScrollBar(Qt::Vertical, parent) {}

QRect LightScrollBar::part(QStyle::SubControl which) const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_ScrollBar, &option, which, this);
}

void LightScrollBar::sliderChange(SliderChange change) {
    constexpr int Shadow = 2; // pixels that a style may draw beside the slider
    const bool atAnEnd = value() == minimum() || value() == maximum();
    const bool arrowsChange = std::exchange(atAnEnd_, atAnEnd) != atAnEnd;
    const QRect now = part(QStyle::SC_ScrollBarSlider);
    const QRect before = std::exchange(shownAt_, now);
    if (change != SliderValueChange && change != SliderRangeChange) {
        QScrollBar::sliderChange(change);
        return;
    }
    if (before != now) update(before.united(now).adjusted(-Shadow, -Shadow, Shadow, Shadow));
    if (!arrowsChange) return;
    update(part(QStyle::SC_ScrollBarSubLine));
    update(part(QStyle::SC_ScrollBarAddLine));
}
