// What a key does while a button or a list of a window with a command line has the focus.
#include "platform/ButtonKeys.h"

#include "platform/TypingLine.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCoreApplication>
#include <QKeyEvent>

namespace {

void typeInto(TypingLine& line, const QKeyEvent& event) {
    line.setFocus();
    line.end(false);
    QKeyEvent typed(event.type(), event.key(), event.modifiers(), event.text());
    QCoreApplication::sendEvent(&line, &typed);
}

} // namespace

bool isCharacter(const QKeyEvent& event) {
    constexpr Qt::KeyboardModifiers Commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return !(event.modifiers() & Commands) && !event.text().isEmpty() && event.text().front().isPrint();
}

bool isEnter(const QKeyEvent& event) { return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter; }

bool goOnInLine(const QKeyEvent& event, TypingLine& line) {
    if (event.key() == Qt::Key_Escape) {
        line.setFocus();
        return true;
    }
    if (!isCharacter(event)) return false;
    typeInto(line, event);
    return true;
}

bool answerButtonKey(QWidget* focus, const QKeyEvent& event, TypingLine& line) {
    auto* button = qobject_cast<QAbstractButton*>(focus);
    if (button == nullptr && qobject_cast<QAbstractItemView*>(focus) == nullptr) return false;
    if (isEnter(event)) {
        if (button == nullptr) return false;
        button->click();
        return true;
    }
    return goOnInLine(event, line);
}
