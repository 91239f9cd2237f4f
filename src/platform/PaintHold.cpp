// Lets the message loop run in the middle of a routine without painting its half-finished window.
#include "platform/PaintHold.h"

#include "platform/MessageLoop.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QWidget>

#include <utility>

PaintHold::PaintHold(QWidget* window) : window_(window) {
    limit_.setSingleShot(true);
    limit_.setTimerType(Qt::PreciseTimer);
    limit_.setInterval(LimitMs);
    connect(&limit_, &QTimer::timeout, this, &PaintHold::paintNow);
    window->installEventFilter(this);
}

void PaintHold::pump() {
    const QPointer<PaintHold> self(this);
    ++depth_;
    try {
        pumpMessages();
    } catch (...) {
        if (self) --depth_;
        throw;
    }
    if (!self || --depth_ > 0 || !held_) return;
    held_ = false;
    QCoreApplication::postEvent(window_, new QEvent(QEvent::UpdateRequest), Qt::LowEventPriority);
}

bool PaintHold::eventFilter(QObject*, QEvent* event) {
    if (event->type() != QEvent::UpdateRequest) return false;
    if (depth_ == 0) {
        limit_.stop();
        return false;
    }
    held_ = true;
    if (!limit_.isActive()) limit_.start();
    return true;
}

void PaintHold::paintNow() {
    held_ = false;
    const int depth = std::exchange(depth_, 0);
    QEvent request(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(window_, &request);
    depth_ = depth;
}
