// Counts the events of one kind that an object gets.
#pragma once

#include <QEvent>
#include <QObject>

class EventCount : public QObject {
public:
    EventCount(QObject& watched, QEvent::Type type) : type_(type) { watched.installEventFilter(this); }

    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == type_) ++count;
        return false;
    }

private:
    QEvent::Type type_;
};
