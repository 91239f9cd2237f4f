// A window's turn to ask the server something.
#pragma once

#include "common/TurnWait.h"
#include "platform/Clock.h"
#include "platform/MessageLoop.h"
#include "platform/OpenWindows.h"

#include <QPointer>
#include <QWidget>

#include <functional>

// What `window` waits with; it may close and go meanwhile. `BusyTest` is the session's.
inline TurnHooks turnOf(QWidget* window, std::function<bool()> BusyTest) {
    constexpr double LoopTurn = 0.01; // seconds; lets the processor rest
    const QPointer<QWidget> self(window);
    return {
        .BusyTest = std::move(BusyTest),
        .secondsOfDay = wallClock.secondsOfDay,
        .pump = [] { zWait(LoopTurn); },
        .isOpen = [self] { return self && openWindows.holds(self.data()); },
    };
}
