// Bringing a window before the user.
#pragma once

class QWidget;

// Shows `window`, a top-level widget, above all others and not minimised, with the keyboard if the window manager lets
// it have that.
void bringInFront(QWidget& window);
