// Bringing a window before the user.
#include "platform/InFront.h"

#include <QWidget>

void bringInFront(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}
