// A scroll bar that follows a running text at little cost.
#include "platform/LightScrollBar.h"

#include <QStyle>
#include <QStyleOptionSlider>

#include <utility>

LightScrollBar::LightScrollBar(QWidget* parent) : QScrollBar(Qt::Vertical, parent) {}

QRect LightScrollBar::slider() const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
}

void LightScrollBar::sliderChange(SliderChange change) {
    constexpr int Shadow = 2; // pixels that a style may draw beside the slider
    const bool atAnEnd = value() == minimum() || value() == maximum();
    const bool arrowsChange = std::exchange(atAnEnd_, atAnEnd) != atAnEnd;
    const QRect now = slider();
    const QRect before = std::exchange(shownAt_, now);
    if (change != SliderValueChange || arrowsChange || before.size() != now.size()) {
        QScrollBar::sliderChange(change);
    } else if (before != now) {
        update(before.united(now).adjusted(-Shadow, -Shadow, Shadow, Shadow));
    }
}
