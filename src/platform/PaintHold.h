// Lets the message loop run in the middle of a routine without painting its half-finished window.
#pragma once

#include <QObject>
#include <QTimer>

class QWidget;

// Holds the painting of one window back while the loop runs in `pump`, so that what a routine changes before and behind
// its pump is painted together. A pump that lasts, such as one in which a box comes up, paints after LimitMs.
class PaintHold : public QObject {
    Q_OBJECT
public:
    static constexpr int LimitMs = 10;

    // Watches `window`, a top-level widget, which must outlive this object.
    explicit PaintHold(QWidget* window);

    // Lets the pending events run once; what the window has to paint comes from the message loop afterwards. The window
    // and this object may be gone on return.
    void pump();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void paintNow();

    QWidget* window_;
    int depth_ = 0; // pumps within pumps
    bool held_ = false;
    QTimer limit_;
};
