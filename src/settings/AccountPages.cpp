// The pages of the options dialog for the log-on, the server's address and the button commands.
#include "settings/AccountPages.h"

#include "common/Numbers.h"
#include "common/modChess.h"
#include "platform/NamedControl.h"
#include "platform/StreamText.h"

#include <QGridLayout>
#include <QGroupBox>

#include <algorithm>

namespace {

constexpr int CommandRows = 5; // of two columns
constexpr int WidestBox = 30;  // letters that a box has room for, at least
constexpr int CommandBox = 18;

QLineEdit* textBox(QWidget* parent, const char* name, const std::string& text, int letters) {
    auto* box = named(new QLineEdit(shownText(text), parent), name);
    box->setCursorPosition(0); // a long text shows its beginning
    box->setMinimumWidth(letters * box->fontMetrics().averageCharWidth());
    return box;
}

// Pixels of a label with the name of `box`.
int labelWidth(const QLineEdit& box) { return box.fontMetrics().horizontalAdvance(box.accessibleName()); }

} // namespace

AccountPage::AccountPage(const OptionsAccount& account, QWidget* parent) : QWidget(parent) {
    auto* column = new QVBoxLayout(this);
    column->addWidget(buildLogOn(account));
    column->addWidget(buildServer());
    column->addStretch();
    alignBoxes();
}

// The boxes of both frames stand in one line.
void AccountPage::alignBoxes() {
    int widest = 0;
    for (const auto* box : findChildren<QLineEdit*>()) widest = std::max(widest, labelWidth(*box));
    for (auto* grid : findChildren<QGridLayout*>()) grid->setColumnMinimumWidth(0, widest);
}

QWidget* AccountPage::buildLogOn(const OptionsAccount& account) {
    auto* frame = new QGroupBox(tr("Log-on"), this);
    txtHandle_ = textBox(frame, "txtHandle", account.handle, WidestBox);
    txtPassword_ = textBox(frame, "txtPassword", account.password, WidestBox);
    txtPassword_->setEchoMode(QLineEdit::Password);
    auto* grid = new QGridLayout(frame);
    grid->addWidget(labelOf(frame, "lblHandle", tr("&Handle"), txtHandle_), 0, 0);
    grid->addWidget(txtHandle_, 0, 1);
    grid->addWidget(labelOf(frame, "lblPassword", tr("&Password"), txtPassword_), 1, 0);
    grid->addWidget(txtPassword_, 1, 1);
    grid->addWidget(new QLabel(tr("For Auto-Logon, and the Up key at the server's questions."), frame), 2, 0, 1, 2);
    return frame;
}

QWidget* AccountPage::buildServer() {
    auto* frame = new QGroupBox(tr("Server"), this);
    auto* address = textBox(frame, "txtICS_IP", modChess.ServerIP, WidestBox);
    auto* port = textBox(frame, "txtPort", std::to_string(modChess.ServerPort), WidestBox);
    connect(address, &QLineEdit::textChanged, this, [](const QString& text) { modChess.ServerIP = lineOf(text); });
    connect(port, &QLineEdit::textChanged, this,
            [](const QString& text) { modChess.ServerPort = strictInt32(lineOf(text)); });
    auto* grid = new QGridLayout(frame);
    grid->addWidget(labelOf(frame, "lblICS_IP", tr("&IP Address"), address), 0, 0);
    grid->addWidget(address, 0, 1);
    grid->addWidget(labelOf(frame, "lblPort", tr("P&ort"), port), 1, 0);
    grid->addWidget(port, 1, 1);
    grid->addWidget(new QLabel(tr("These two change as you type, whether you cancel or not."), frame), 2, 0, 1, 2);
    return frame;
}

void AccountPage::take(OptionsAccount& account) const {
    account.handle = lineOf(txtHandle_->text());
    account.password = lineOf(txtPassword_->text());
}

ButtonsPage::ButtonsPage(const OptionsAccount& account, QWidget* parent) : QWidget(parent) {
    auto* column = new QVBoxLayout(this);
    column->addWidget(buildCommands(account));
    column->addStretch();
}

QWidget* ButtonsPage::buildCommands(const OptionsAccount& account) {
    auto* frame = named(new QGroupBox(tr("Button Commands"), this), "fraTell");
    auto* grid = new QGridLayout(frame);
    for (int index = 0; index < static_cast<int>(txtTell_.size()); ++index) {
        const std::string at = "(" + std::to_string(index) + ")";
        QLineEdit* box = textBox(frame, ("txtTell" + at).c_str(), account.Tell[index], CommandBox);
        const QString caption = index < 9 ? QStringLiteral("&%1").arg(index + 1) : QStringLiteral("1&0");
        QLabel* label = labelOf(frame, ("lblTell" + at).c_str(), caption, box);
        box->setAccessibleName(tr("Button command %1").arg(index + 1));
        const int column = 2 * (index / CommandRows);
        grid->addWidget(label, index % CommandRows, column, Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(box, index % CommandRows, column + 1);
        txtTell_[static_cast<std::size_t>(index)] = box;
    }
    grid->addWidget(new QLabel(tr("What the buttons of the console and of each board send."), frame), CommandRows, 0, 1,
                    4);
    return frame;
}

void ButtonsPage::take(OptionsAccount& account) const {
    for (std::size_t index = 0; index < txtTell_.size(); ++index) {
        account.Tell[static_cast<long>(index)] = lineOf(txtTell_[index]->text());
    }
}
