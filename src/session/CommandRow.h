// What stands below the console: the prompt, the command line and the buttons with commands.
#pragma once

#include "platform/ElidedLabel.h"
#include "platform/TypingLine.h"

#include <QBoxLayout>
#include <QPushButton>
#include <QToolButton>

#include <array>
#include <functional>

// One row where there is room, else two or three, so that no font and no prompt widens the window. The buttons take the
// focus by Tab only; what is typed then is still meant for the command line.
class CommandRow : public QWidget {
    Q_OBJECT
public:
    explicit CommandRow(QWidget* parent);

    // Pixels of one row at the usual font.
    static constexpr int UsualHeight = 24;

    ElidedLabel* lblPrompt;
    TypingLine* txtSend;
    std::array<QToolButton*, 10> cmdTell{};
    QPushButton* cmdAcc;
    QPushButton* cmdDec;
    QPushButton* cmdChat;

    // PageUp (-1) or PageDown (1) was pressed.
    std::function<void(int pages)> turnPage = [](int) {};

Q_SIGNALS:
    // The rows have another height.
    void fitted();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QWidget* buildTyping();
    QWidget* buildTells();
    QWidget* buildWords();
    void fitWidths();
    int rowsFor(int width) const;
    void arrange();

    QWidget* typing_;
    QWidget* tells_;
    QWidget* words_;
    QBoxLayout* buttons_;
    QBoxLayout* all_;
    int rows_ = 0;
};
