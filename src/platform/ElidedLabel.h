// A label that never asks for more room than it gets: what does not fit ends in dots and is shown as its tool tip.
#pragma once

#include "platform/TipText.h"

#include <QEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

#include <functional>

// For texts of the server, whose length must not widen a window.
class ElidedLabel : public QLabel {
public:
    explicit ElidedLabel(QWidget* parent) : QLabel(parent) {
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }

    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

    // A double click with the left button.
    std::function<void()> doubleClicked = [] {};

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton) doubleClicked();
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
        painter.setPen(palette().color(foregroundRole()));
        painter.drawText(contentsRect(), int(alignment()) | Qt::TextSingleLine, shown);
    }

    bool event(QEvent* event) override {
        if (event->type() == QEvent::ToolTip) {
            const bool cut = fontMetrics().horizontalAdvance(text()) > contentsRect().width();
            setToolTip(cut ? tipText(text()) : QString());
        }
        return QLabel::event(event);
    }
};
