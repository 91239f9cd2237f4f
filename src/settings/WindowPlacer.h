// Where a window stands on the screen, in the twips of the settings, and putting it back there.
#pragma once

#include "settings/Placement.h"
#include "settings/WindowSettings.h"

#include <QObject>
#include <QPoint>
#include <QSize>

class QRect;
class QWidget;

// `size`, in pixels, as an extent in twips, and an area as a place.
Extent twipsOf(QSize size);
WindowPlace twipsOf(const QRect& area);

// The whole screen on which `window` is.
Extent screenOf(const QWidget& window);

// What a place that was read is tested against: the screen or, of several, all as one if its corner is on one of them,
// else nothing; so a window that stood on a screen which is no longer there goes to the corner.
Extent screensFor(const WindowPlace& read);

// Of one window. A place has the position of the window's frame and the size of what the frame holds, so what `place`
// gave puts the window back where it was when it goes to `moveTo`. A Wayland desktop places its windows itself and
// tells nobody where; there the position is the one that `moveTo` had. Measures go from -32768 to 32767 twips (2184
// pixels): one beyond that could not be read again, and with it nothing that stands behind it in the store.
class WindowPlacer : public QObject {
    Q_OBJECT
public:
    // Watches `window`, a top-level widget, which must outlive this object.
    explicit WindowPlacer(QWidget* window);

    // The window's place; of a maximised or full-screen window the one that it goes back to.
    WindowPlace place() const;

    // Puts the window there.
    void moveTo(const WindowPlace& at);

    // Puts the window where its section of the store has it; what is not there is `designed`, at the corner of the
    // screen.
    void restore(const SettingsStore& store, const WindowSection& section, Extent designed);

    // Sets a minimised window back to what it was, for its real place.
    void unminimise();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // For a desktop that tells no corner: the one asked for, at least 1 pixel, since at 0 no size is restored.
    QPoint askedCorner(QSize size) const;

    QWidget* window_;
    QPoint asked_;  // the frame's corner that `moveTo` had
    QPoint inside_; // the inner corner, seen from the frame's, while the window is neither maximised nor full-screen
};
