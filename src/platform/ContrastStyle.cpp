// The desktop's style, with edges that show on a black window.
#include "platform/ContrastStyle.h"

#include <QPainter>
#include <QStyleOption>

namespace {

constexpr int DarkestShaded = 24; // lightness, of 255
constexpr double RingWidth = 1.5; // pixels; a thinner one is grey when it is smooth

void prepare(QPainter& painter, const QStyleOption& option) {
    painter.setPen(option.palette.color(QPalette::WindowText));
    painter.setBrush(Qt::NoBrush);
}

} // namespace

bool isStark(const QPalette& palette) { return palette.color(QPalette::Window).lightness() < DarkestShaded; }

void ContrastStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (!isStark(option->palette)) return;
    painter->save();
    prepare(*painter, *option);
    const QRect edge = option->rect.adjusted(0, 0, -1, -1);
    switch (element) {
    case PE_FrameLineEdit:
    case PE_FrameMenu:
    case PE_IndicatorCheckBox:
    case PE_PanelButtonCommand:
    case PE_PanelTipLabel:
        if (!option->state.testFlag(State_HasFocus)) painter->drawRect(edge);
        break;
    case PE_IndicatorRadioButton:
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(painter->pen().color(), RingWidth));
        painter->drawEllipse(QRectF(edge).adjusted(0.5, 0.5, -0.5, -0.5));
        break;
    default:
        break;
    }
    painter->restore();
}

void ContrastStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                       const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (!isStark(option->palette) || (control != CC_ComboBox && control != CC_ScrollBar)) return;
    const QRect area =
        control == CC_ComboBox ? option->rect : subControlRect(control, option, SC_ScrollBarSlider, widget);
    painter->save();
    prepare(*painter, *option);
    painter->drawRect(area.adjusted(0, 0, -1, -1));
    painter->restore();
}
