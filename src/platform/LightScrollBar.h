// A scroll bar that follows a running text at little cost.
#pragma once

#include <QScrollBar>
#include <QStyle>

#include <utility>

// Lies where the style lays it, but is drawn plainly: the style's shades took longer, on several threads, than all else
// that a move changes on a board. When its slider moves, or a range grows under it, it repaints only where the slider
// was and is, and the arrows at the ends.
class LightScrollBar : public QScrollBar {
    Q_OBJECT
public:
    explicit LightScrollBar(QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
    void sliderChange(SliderChange change) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QRect part(QStyle::SubControl which) const;
    void paintArrow(QPainter& painter, QStyle::SubControl which, bool enabled) const;

    QRect shownAt_;                // the slider when it was last told to move
    std::pair<bool, bool> free_{}; // whether there is a way up and a way down; the arrows show it
};
