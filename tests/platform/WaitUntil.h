// Runs the message loop of a test until something has happened.
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

// True as soon as `condition` holds; false after `milliseconds`, which only a hang reaches.
template <typename Condition>
bool waitUntil(Condition condition, int milliseconds = 30000) {
    const QDeadlineTimer deadline(milliseconds);
    QTimer wake; // looks at the condition from time to time even when nothing else happens
    wake.start(2);
    while (!condition()) {
        if (deadline.hasExpired()) return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

// Runs the message loop for `milliseconds`, for things that must not happen.
inline void runFor(int milliseconds) {
    waitUntil([] { return false; }, milliseconds);
}
