// A line to type commands in, whose window answers the keys.
#pragma once

#include <QLineEdit>

#include <functional>
#include <string>

// `txtSend`. Its window fills in what Enter and the special keys do; characters are Latin-1, as the stream's are.
class TypingLine : public QLineEdit {
    Q_OBJECT
public:
    explicit TypingLine(QWidget* parent = nullptr);

    // The text, one character a byte; what Latin-1 does not hold becomes "?", a pasted line break a blank.
    std::string line() const;
    // Replaces the text; the insertion point goes to its end.
    void setLine(const std::string& text);
    // Background and text colour, 0xBBGGRR.
    void setColors(std::int32_t background, std::int32_t text);

    // A key went down: its code (common/TypingKey.h) and Shift; true takes the key.
    std::function<bool(int code, bool shift)> keyDown = [](int, bool) { return false; };

protected:
    void keyPressEvent(QKeyEvent* event) override;
};
