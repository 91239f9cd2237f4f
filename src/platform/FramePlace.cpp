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
    FrameSettler(QWidget& window, QPoint corner) : QObject(&window), window_(window), corner_(corner) {
        window.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::Show) return false;
        if (QLayout* layout = window_.layout()) layout->activate();
        if (QWindow* handle = window_.windowHandle()) {
            handle->resize(window_.size());
            handle->setFramePosition(corner_);
        }
        window_.removeEventFilter(this);
        deleteLater();
        return false;
    }

private:
    QWidget& window_;
    QPoint corner_;
};

} // namespace

void placeFrame(QWidget& window, QPoint corner) {
    window.move(corner);
    for (QObject* child : QObjectList(window.children()))
        delete dynamic_cast<FrameSettler*>(child); // of a place before
    if (!window.isVisible()) new FrameSettler(window, corner);
}
