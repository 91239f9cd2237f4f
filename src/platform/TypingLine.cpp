// A line to type commands in, whose window answers the keys.
#include "platform/TypingLine.h"

#include "common/TypingKey.h"
#include "platform/Colors.h"
#include "platform/StreamText.h"

#include <QKeyEvent>

namespace {

// The prescribed codes of the keys a command line knows; 0 for all others.
int keyCode(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Up:
        return KeyUp;
    case Qt::Key_Down:
        return KeyDown;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return KeyEnter;
    default:
        return event.key() >= Qt::Key_F5 && event.key() <= Qt::Key_F9 ? KeyF5 + event.key() - Qt::Key_F5 : 0;
    }
}

} // namespace

TypingLine::TypingLine(QWidget* parent) : QLineEdit(parent) {
    setObjectName(QStringLiteral("txtSend"));
    setAccessibleName(tr("Command line"));
    setStyleSheet(QStringLiteral("QLineEdit { lineedit-password-character: 42 }")); // "*"
}

std::string TypingLine::line() const { return lineOf(text()); }

void TypingLine::setLine(const std::string& text) {
    setText(shownText(text));
    end(false);
}

void TypingLine::setColors(std::int32_t background, std::int32_t text) {
    QPalette look = palette();
    look.setColor(QPalette::Base, colorOf(background));
    look.setColor(QPalette::Text, colorOf(text));
    setPalette(look);
}

void TypingLine::keyPressEvent(QKeyEvent* event) {
    const int code = keyCode(*event);
    if (code != 0 && keyDown(code, event->modifiers().testFlag(Qt::ShiftModifier))) {
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
}
