// A menu entry chosen, and what it leads to done.
#pragma once

#include <QAction>
#include <QCoreApplication>
#include <QEvent>

// As by its user: whatever opens a box is answered once the menu is down.
inline void chooseEntry(QAction& entry) {
    entry.trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
}
