// The message loop: how a routine lets pending events run while it waits.
#include "platform/MessageLoop.h"

#include <QCoreApplication>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cmath>

void pumpMessages() { QCoreApplication::processEvents(); }

void zWait(double seconds) {
    using std::chrono::steady_clock;
    const double wanted = seconds > 0 ? seconds : 0; // no number counts as 0 too
    const auto begin = steady_clock::now();
    pumpMessages();
    while (true) {
        const double left = wanted - std::chrono::duration<double>(steady_clock::now() - begin).count();
        if (left <= 0) return;
        // Armed anew for every turn: a shot that comes a moment early must not leave the loop waiting for good.
        QTimer wake;
        wake.setTimerType(Qt::PreciseTimer);
        wake.setSingleShot(true);
        wake.start(static_cast<int>(std::ceil(std::min(left, 3600.0) * 1000.0)));
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}
