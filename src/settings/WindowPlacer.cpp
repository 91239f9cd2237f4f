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
float kept(int twips) {
    using Read = std::numeric_limits<std::int16_t>;
    return float(std::clamp<int>(twips, Read::min(), Read::max()));
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
    const QPoint corner(int(read.Left) / TwipsPerPixelX, int(read.Top) / TwipsPerPixelY);
    const bool onScreen = QGuiApplication::screenAt({std::max(corner.x(), 0), std::max(corner.y(), 0)});
    if (!onScreen && QGuiApplication::screens().size() > 1) return {};
    const QRect all = QGuiApplication::primaryScreen()->virtualGeometry();
    return twipsOf({all.right() + 1, all.bottom() + 1});
}

WindowPlacer::WindowPlacer(QWidget* window) : window_(window) { window->installEventFilter(this); }

WindowPlace WindowPlacer::place() const {
    const bool fills = fillsScreen(*window_);
    // The place to go back to is known without its frame, and a window that fills the screen may have another frame.
    const QPoint told = fills ? window_->normalGeometry().topLeft() - inside_ : window_->pos();
    const QSize size = fills ? window_->normalGeometry().size() : window_->size();
    const QPoint corner = placesAreTold() ? told : askedCorner(size);
    return {kept(corner.x() * TwipsPerPixelX), kept(corner.y() * TwipsPerPixelY), kept(size.width() * TwipsPerPixelX),
            kept(size.height() * TwipsPerPixelY)};
}

// Within the screens by a window of `size`, as far as they have room, since a board that is not comes in another size.
QPoint WindowPlacer::askedCorner(QSize size) const {
    const QRect all = window_->screen()->virtualGeometry();
    return {std::max(std::min(asked_.x(), all.right() + 1 - size.width()), 1),
            std::max(std::min(asked_.y(), all.bottom() + 1 - size.height()), 1)};
}

void WindowPlacer::moveTo(const WindowPlace& at) {
    const QPoint corner(int(at.Left) / TwipsPerPixelX, int(at.Top) / TwipsPerPixelY);
    asked_ = corner;
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
