// What an assistive tool reads of a widget, and what it is told.
#pragma once

#include "platform/Described.h"

#include <QAccessible>
#include <QString>
#include <QWidget>

#include <vector>

inline QString spokenText(QWidget& widget, QAccessible::Text kind) {
    return QAccessible::queryAccessibleInterface(&widget)->text(kind);
}

// Notes whose descriptions are announced while it lives.
struct Announcements {
    Announcements() {
        announceDescription = [this](QWidget* widget) { heard.push_back(widget->objectName()); };
    }
    Announcements(const Announcements&) = delete;
    Announcements& operator=(const Announcements&) = delete;
    ~Announcements() { announceDescription = before; }

    std::vector<QString> heard;
    const std::function<void(QWidget*)> before = announceDescription;
};
