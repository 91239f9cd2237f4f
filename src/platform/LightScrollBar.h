// A scroll bar that follows a running text at little cost.
#pragma once

#include <QScrollBar>
#include <QStyle>

// Looks as the style draws it. When its slider moves, or a range grows under it, it repaints only where the slider was
// and is, and the arrows at the ends: a whole bar takes a style longer than all else that a move changes on a board.
class LightScrollBar : public QScrollBar {
    Q_OBJECT
public:
    explicit LightScrollBar(QWidget* parent = nullptr);

protected:
    void sliderChange(SliderChange change) override;

private:
    QRect part(QStyle::SubControl which) const;

    QRect shownAt_;       // the slider when it was last told to move
    bool atAnEnd_ = true; // an arrow may look different there
};
