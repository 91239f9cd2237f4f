// A picture of board squares in a fixed number of pixels, drawn as finely as the screen is.
#pragma once

#include "common/Needed.h"

#include <QColor>
#include <QImage>
#include <QWidget>

class QPainter;

// The side of a sample's square in pixels, whatever the boards' squares are.
inline constexpr int SampleSquare = 40;

class ColorSample : public QWidget {
public:
    // `size` in pixels, fixed. `redraw` draws the picture anew; `begin` comes first in it.
    ColorSample(QWidget* parent, const QString& name, QSize size, Needed<void()> redraw);

    // Makes the picture empty, at the scale of the screen on which it stands.
    void begin();

    // What is shown: painted into in pixels, whatever the scale.
    QImage picture;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Needed<void()> redraw_;
};

// A frame two pixels thick inside the square with its top left corner at (x,y).
void paintSampleFrame(QPainter& painter, int x, int y, const QColor& color);
