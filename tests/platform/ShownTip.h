// The tool tip on the screen.
#pragma once

#include <QApplication>
#include <QLabel>

// Null if none is shown.
inline const QLabel* shownTip() {
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        if (label && label->isVisible() && label->windowType() == Qt::ToolTip) return label;
    }
    return nullptr;
}
