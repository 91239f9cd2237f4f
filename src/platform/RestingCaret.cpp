// A caret that stops blinking when nobody types.
#include "platform/RestingCaret.h"

#include <QEvent>
#include <QGuiApplication>
#include <QStyleHints>

namespace {

QStyleHints& hints() { return *QGuiApplication::styleHints(); }

bool isTheUsers(const QEvent& event) {
    switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::FocusIn:
    case QEvent::InputMethod:
        return true;
    default:
        return false;
    }
}

} // namespace

RestingCaret::RestingCaret(QObject& application) : blinking_(hints().cursorFlashTime()) {
    rest_.setSingleShot(true);
    rest_.setInterval(RestMs);
    connect(&rest_, &QTimer::timeout, this, &RestingCaret::rest);
    application.installEventFilter(this);
    rest_.start();
}

bool RestingCaret::eventFilter(QObject*, QEvent* event) {
    if (isTheUsers(*event)) wake();
    return false;
}

void RestingCaret::wake() {
    rest_.start();
    if (hints().cursorFlashTime() != blinking_) hints().setCursorFlashTime(blinking_);
}

void RestingCaret::rest() { hints().setCursorFlashTime(0); }
