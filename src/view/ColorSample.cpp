// A picture of board squares in a fixed number of pixels.
#include "view/ColorSample.h"

#include <QPainter>

#include <utility>

ColorSample::ColorSample(QWidget* parent, const QString& name, QSize size, Needed<void()> redraw)
    : QWidget(parent), redraw_(std::move(redraw)) {
    setObjectName(name);
    setFixedSize(size);
}

void ColorSample::begin() {
    const double ratio = devicePixelRatioF();
    picture = QImage((QSizeF(size()) * ratio).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    picture.fill(palette().color(QPalette::Dark)); // between the squares
}

void ColorSample::paintEvent(QPaintEvent*) {
    if (picture.devicePixelRatio() != devicePixelRatioF()) redraw_(); // the window went to another screen
    QPainter(this).drawImage(rect(), picture);
}

void paintSampleFrame(QPainter& painter, int x, int y, const QColor& color) {
    constexpr int Thickness = 2;
    constexpr int Inside = SampleSquare - 2 * Thickness;
    painter.fillRect(x, y, SampleSquare, Thickness, color);
    painter.fillRect(x, y + Thickness + Inside, SampleSquare, Thickness, color);
    painter.fillRect(x, y + Thickness, Thickness, Inside, color);
    painter.fillRect(x + Thickness + Inside, y + Thickness, Thickness, Inside, color);
}
