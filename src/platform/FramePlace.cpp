// Putting a window where the corner of its frame is to be.
#include "platform/FramePlace.h"

#include <QEvent>
#include <QLayout>
#include <QWidget>
#include <QWindow>

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

} // namespace

void placeFrame(QWidget& window, QPoint corner) {
    window.move(corner);
    if (!window.isVisible()) new FrameSettler(window); // goes as the window shows
}
