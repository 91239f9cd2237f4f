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

// A measure in twips that can be read again.
float kept(float twips) {
    using Read = std::numeric_limits<std::int16_t>;
    return std::clamp(twips, float(Read::min()), float(Read::max()));
}

QRect pixelsOf(const WindowPlace& place) {
    return {int(place.Left) / TwipsPerPixelX, int(place.Top) / TwipsPerPixelY, int(place.Width) / TwipsPerPixelX,
            int(place.Height) / TwipsPerPixelY};
}

// How far all screens reach to the right and down from the point 0, 0 of the desktop, in pixels.
QSize allScreens() {
    const QRect all = QGuiApplication::primaryScreen()->virtualGeometry();
    return {all.right() + 1, all.bottom() + 1};
}

bool fillsScreen(const QWidget& window) { return window.isMaximized() || window.isFullScreen(); }

} // namespace

Extent twipsOf(QSize size) { return {float(size.width() * TwipsPerPixelX), float(size.height() * TwipsPerPixelY)}; }

WindowPlace twipsOf(const QRect& area) {
    const Extent size = twipsOf(area.size());
    return {float(area.x() * TwipsPerPixelX), float(area.y() * TwipsPerPixelY), size.Width, size.Height};
}

Extent screenOf(const QWidget& window) { return twipsOf(window.screen()->geometry().size()); }

Extent screensFor(const WindowPlace& read) {
    const QPoint corner = pixelsOf(read).topLeft();
    const bool onScreen = QGuiApplication::screenAt({std::max(corner.x(), 0), std::max(corner.y(), 0)});
    if (!onScreen && QGuiApplication::screens().size() > 1) return {};
    return twipsOf(allScreens());
}

WindowPlacer::WindowPlacer(QWidget* window) : window_(window) { window->installEventFilter(this); }

WindowPlace WindowPlacer::place() const {
    const bool fills = fillsScreen(*window_);
    // The place to go back to is known without its frame, and a window that fills the screen may have another frame.
    const QPoint told = fills ? window_->normalGeometry().topLeft() - inside_ : window_->pos();
    const QSize size = fills ? window_->normalGeometry().size() : window_->size();
    const WindowPlace stands = twipsOf(QRect(placesAreTold() ? told : askedCorner(size), size));
    return {kept(stands.Left), kept(stands.Top), kept(stands.Width), kept(stands.Height)};
}

// Within the screens by a window of `size`, as far as they have room, since a board that is not comes in another size.
QPoint WindowPlacer::askedCorner(QSize size) const {
    const QSize room = allScreens() - size;
    return {std::max(std::min(asked_.x(), room.width()), 1), std::max(std::min(asked_.y(), room.height()), 1)};
}

void WindowPlacer::moveTo(const WindowPlace& at) {
    const QRect pixels = pixelsOf(at);
    asked_ = pixels.topLeft();
    placeFrame(*window_, pixels.topLeft());
    window_->resize(pixels.size());
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
