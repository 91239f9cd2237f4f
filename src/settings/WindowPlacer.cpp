// Where a window stands on the screen, and putting it back there.
#include "settings/WindowPlacer.h"

#include "common/Twips.h"
#include "platform/FramePlace.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace {

bool placesAreTold() { return !QGuiApplication::platformName().startsWith(QLatin1String("wayland")); }

bool fillsScreen(const QWidget& window) { return window.isMaximized() || window.isFullScreen(); }

} // namespace

Extent twipsOf(QSize size) { return {float(size.width() * TwipsPerPixelX), float(size.height() * TwipsPerPixelY)}; }

Extent screenOf(const QWidget& window) { return twipsOf(window.screen()->geometry().size()); }

Extent screensFor(const WindowPlace& read) {
    const QPoint corner(int(read.Left) / TwipsPerPixelX, int(read.Top) / TwipsPerPixelY);
    const QScreen* screen = QGuiApplication::screenAt({std::max(corner.x(), 0), std::max(corner.y(), 0)});
    if (!screen) return {};
    const QRect all = screen->virtualGeometry();
    return twipsOf({all.right() + 1, all.bottom() + 1});
}

WindowPlacer::WindowPlacer(QWidget* window) : window_(window) { window->installEventFilter(this); }

WindowPlace WindowPlacer::place() const {
    const bool fills = fillsScreen(*window_);
    // The place to go back to is known without its frame, and a window that fills the screen may have another frame.
    const QPoint told = fills ? window_->normalGeometry().topLeft() - inside_ : window_->pos();
    const QPoint corner = placesAreTold() ? told : asked_;
    const Extent size = twipsOf(fills ? window_->normalGeometry().size() : window_->size());
    constexpr float Most = std::numeric_limits<std::int16_t>::max();
    return {std::min(float(corner.x() * TwipsPerPixelX), Most), std::min(float(corner.y() * TwipsPerPixelY), Most),
            std::min(size.Width, Most), std::min(size.Height, Most)};
}

void WindowPlacer::moveTo(const WindowPlace& at) {
    const QPoint corner(int(at.Left) / TwipsPerPixelX, int(at.Top) / TwipsPerPixelY);
    asked_ = {std::max(corner.x(), 1), std::max(corner.y(), 1)};
    placeFrame(*window_, corner);
    window_->resize(int(at.Width) / TwipsPerPixelX, int(at.Height) / TwipsPerPixelY);
}

void WindowPlacer::restore(const SettingsStore& store, const WindowSection& section, Extent designed) {
    WindowPlace read = designedPlace(designed);
    readWindow(store, section, read);
    moveTo(placed(read, designed, screensFor(read), section.limit));
}

void WindowPlacer::unminimise() {
    if (window_->isMinimized()) window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized);
}

// Any event is an occasion to look: of the frame itself, which comes and goes with the state, there are none.
bool WindowPlacer::eventFilter(QObject*, QEvent*) {
    if (!fillsScreen(*window_)) inside_ = window_->geometry().topLeft() - window_->pos();
    return false;
}
