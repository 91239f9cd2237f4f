// Finding the window of a class of which there is one at most.
#pragma once

#include "platform/OpenWindows.h"

#include <QApplication>
#include <QWidget>

// The loaded window of the class, null when none is: one that has closed and only waits to be deleted does not count.
template <typename Window>
Window* loadedWindow() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* window = qobject_cast<Window*>(widget);
        if (window == nullptr) continue;
        const bool loaded = std::ranges::any_of(openWindows.windows, [window](const OpenWindow& open) {
            return open.window == static_cast<const void*>(window);
        });
        if (loaded) return window;
    }
    return nullptr;
}
