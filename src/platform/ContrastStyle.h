// The desktop's style, with edges that show on a black window.
#pragma once

#include <QProxyStyle>

// Whether windows of that palette are so dark that edges in a shade of their colour do not show, as those of a
// high-contrast scheme.
bool isStark(const QPalette& palette);

// Styles make the edges of fields, boxes and buttons from a shade of the window's colour, and of black there is none.
// On such windows this one draws them in the colour of the text; all others it leaves as they are.
class ContrastStyle : public QProxyStyle {
    Q_OBJECT
public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};
