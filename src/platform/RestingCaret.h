// A caret that stops blinking when nobody types.
#pragma once

#include <QObject>
#include <QTimer>

// Every blink wakes the program, the display and the processor, for weeks. Behind `RestMs` without a key, a press or a
// change of the focus the carets of all windows stay on, and blink again from the next one on. Stands as long as the
// program runs; where the desktop's carets do not blink it does nothing.
class RestingCaret : public QObject {
    Q_OBJECT
public:
    static constexpr int RestMs = 10000;

    explicit RestingCaret(QObject& application);

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void wake();
    void rest();

    int blinking_;      // milliseconds of a blink, on and off, as the desktop has it
    QTimer rest_{this}; // where it is found
};
