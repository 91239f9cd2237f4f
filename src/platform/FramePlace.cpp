// Putting a window where the corner of its frame is to be.
#include "platform/FramePlace.h"

#include <QEvent>
#include <QLayout>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace {

// A window that takes another size on its way to the screen, as its layout wants it, is given to the window manager
// with the corner of what the frame holds, and the title bar would stand above it. So its size is settled first.
class FrameSettler : public QObject {
public:
    explicit FrameSettler(QWidget& window) : QObject(&window), window_(window) { window.installEventFilter(this); }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::Show) return false;
        if (QLayout* layout = window_.layout()) layout->activate();
        if (QWindow* handle = window_.windowHandle()) {
            handle->resize(window_.size());
            handle->setFramePosition(window_.pos());
        }
        window_.removeEventFilter(this);
        deleteLater();
        return false;
    }

private:
    QWidget& window_;
};

constexpr int Gap = 6; // pixels between two frames

// The left edge of a window beside another or, where the screen has room on neither side, within it.
int leftBeside(const QRect& other, int width, const QRect& screen) {
    for (const int left : {other.right() + 1 + Gap, other.left() - Gap - width}) {
        if (left >= screen.left() && left + width <= screen.right() + 1) return left;
    }
    return std::max(std::min(other.right(), screen.right()) + 1 - width, screen.left());
}

} // namespace

void placeFrame(QWidget& window, QPoint corner) {
    window.move(corner);
    if (!window.isVisible()) new FrameSettler(window); // goes as the window shows
}

void placeBeside(QWidget& window, const QWidget& other) {
    const QRect screen = other.screen()->availableGeometry();
    const QRect frame = other.frameGeometry();
    const QSize whole = window.sizeHint() + frame.size() - other.size();
    const int top = std::max(std::min(frame.top(), screen.bottom() + 1 - whole.height()), screen.top());
    placeFrame(window, {leftBeside(frame, whole.width(), screen), top});
}
