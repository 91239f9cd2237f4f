// What stands below the console: the prompt, the command line and the buttons with commands.
#include "session/CommandRow.h"

#include "platform/ButtonKeys.h"

#include <QKeyEvent>

#include <algorithm>

namespace {

// Pixels.
constexpr int Gap = 6;
constexpr int RowGap = 1;
constexpr int LowHeight = 21; // of one row of several
constexpr int TellWidth = 21;
constexpr int TellGap = 1;
constexpr int LeastLine = 120;
constexpr int LeastTyping = 180; // the line and a usual prompt
constexpr int LongestPrompt = 140;
constexpr int BesideWord = 18;
constexpr int BesideDigit = 8;

QBoxLayout* rowIn(QWidget* widget, int spacing) {
    auto* row = new QBoxLayout(QBoxLayout::LeftToRight, widget);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(spacing);
    return row;
}

void direct(QBoxLayout& parts, bool beside) {
    parts.setDirection(beside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    parts.setSpacing(beside ? Gap : RowGap);
}

QPushButton* wordButton(QWidget* parent, const char* name, const QString& caption) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

int captionWidth(const QAbstractButton& button) {
    return button.fontMetrics().size(Qt::TextShowMnemonic, button.text()).width();
}

} // namespace

CommandRow::CommandRow(QWidget* parent) : QWidget(parent) {
    typing_ = buildTyping();
    tells_ = buildTells();
    words_ = buildWords();
    auto* buttons = new QWidget(this);
    buttons_ = rowIn(buttons, Gap);
    buttons_->addWidget(tells_, 0, Qt::AlignLeft);
    buttons_->addWidget(words_, 1, Qt::AlignLeft);
    all_ = rowIn(this, Gap);
    all_->addWidget(typing_, 1);
    all_->addWidget(buttons);
    fitWidths();
    arrange();
}

QWidget* CommandRow::buildTyping() {
    auto* widget = new QWidget(this);
    lblPrompt = new ElidedLabel(widget);
    lblPrompt->setObjectName(QStringLiteral("lblPrompt"));
    lblPrompt->setAccessibleDescription(tr("Prompt of the server"));
    lblPrompt->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    lblPrompt->setMaximumWidth(LongestPrompt);
    txtSend = new TypingLine(widget);
    txtSend->setMinimumWidth(LeastLine);
    txtSend->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    QBoxLayout* row = rowIn(widget, Gap);
    row->addWidget(lblPrompt);
    row->addWidget(txtSend, 1);
    return widget;
}

QWidget* CommandRow::buildTells() {
    auto* widget = new QWidget(this);
    QBoxLayout* row = rowIn(widget, TellGap);
    for (std::size_t index = 0; index < cmdTell.size(); ++index) {
        const QString digit = QString::number((index + 1) % 10);
        cmdTell[index] = new QToolButton(widget);
        cmdTell[index]->setObjectName(QStringLiteral("cmdTell(%1)").arg(index));
        cmdTell[index]->setText(digit);
        cmdTell[index]->setShortcut(QKeySequence(QStringLiteral("Alt+") + digit));
        cmdTell[index]->setAccessibleName(tr("Button command %1").arg(index + 1));
        cmdTell[index]->setFocusPolicy(Qt::TabFocus);
        row->addWidget(cmdTell[index]);
    }
    return widget;
}

QWidget* CommandRow::buildWords() {
    auto* widget = new QWidget(this);
    QBoxLayout* row = rowIn(widget, Gap);
    cmdAcc = wordButton(widget, "cmdAcc", tr("&Accept"));
    cmdDec = wordButton(widget, "cmdDec", tr("&Decline"));
    cmdChat = wordButton(widget, "cmdChat", tr("Cha&t"));
    for (QPushButton* button : {cmdAcc, cmdDec, cmdChat}) row->addWidget(button);
    return widget;
}

void CommandRow::fitWidths() {
    for (QToolButton* button : cmdTell) button->setFixedWidth(std::max(TellWidth, captionWidth(*button) + BesideDigit));
    for (QPushButton* button : {cmdAcc, cmdDec, cmdChat}) button->setFixedWidth(captionWidth(*button) + BesideWord);
    setMinimumWidth(std::max({LeastLine, tells_->minimumSizeHint().width(), words_->minimumSizeHint().width()}));
}

int CommandRow::rowsFor(int width) const {
    const int buttons = tells_->minimumSizeHint().width() + Gap + words_->minimumSizeHint().width();
    return width >= LeastTyping + Gap + buttons ? 1 : width >= buttons ? 2 : 3;
}

void CommandRow::arrange() {
    rows_ = rowsFor(width());
    direct(*all_, rows_ == 1);
    direct(*buttons_, rows_ < 3);
    const int letters = fontMetrics().height();
    const int height = rows_ == 1 ? std::max(UsualHeight, letters + 9) : std::max(LowHeight, letters + 6);
    for (QWidget* part : {typing_, tells_, words_}) part->setFixedHeight(height);
    for (QToolButton* button : cmdTell) button->setFixedHeight(height);
    for (QPushButton* button : {cmdAcc, cmdDec, cmdChat}) button->setFixedHeight(height);
    setFixedHeight(rows_ * height + (rows_ - 1) * RowGap);
    Q_EMIT fitted();
}

void CommandRow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (rowsFor(width()) != rows_) arrange();
}

void CommandRow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange) return;
    fitWidths();
    arrange();
}

// What the line and the buttons leave.
void CommandRow::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
        turnPage(key == Qt::Key_PageUp ? -1 : 1);
    } else if (!answerButtonKey(window()->focusWidget(), *event, *txtSend)) {
        QWidget::keyPressEvent(event);
    }
}
