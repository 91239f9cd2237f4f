// A button to walk through a game by.
#pragma once

#include <QToolButton>

// Its picture is an arrow in the colour of captions, so that it can be seen on a dark desktop as well.
class StepButton : public QToolButton {
    Q_OBJECT
public:
    explicit StepButton(QWidget* parent) : QToolButton(parent) {}

    // -2 to the start and 2 to the end, with a bar at the arrow's tip; -1 back, 1 forward; 0 without a picture.
    int step = 0;

protected:
    void paintEvent(QPaintEvent* event) override;
};
