// Menu entries by their prescribed names.
#pragma once

#include <QAction>
#include <QMenu>

#include <utility>

// Adds an entry with `caption` to `menu`; `name` becomes its object name, so that tests and signals find it.
inline QAction* addEntry(QMenu* menu, const char* name, const char* caption) {
    QAction* entry = menu->addAction(QString::fromLatin1(caption));
    entry->setObjectName(QString::fromLatin1(name));
    return entry;
}

// The same with a check mark.
inline QAction* addTick(QMenu* menu, const char* name, const char* caption) {
    QAction* entry = addEntry(menu, name, caption);
    entry->setCheckable(true);
    return entry;
}

// Answers an entry once its menu is down. Whatever opens a box or a window belongs here: the box would else run on the
// menu's own stack, and the menu may go with its window while the box is up.
template <typename Answer>
void onChosen(const QAction* entry, QObject* context, Answer answer) {
    QObject::connect(entry, &QAction::triggered, context, std::move(answer), Qt::QueuedConnection);
}
