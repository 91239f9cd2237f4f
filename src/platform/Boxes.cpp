// The real boxes behind the seam.
#include "platform/Boxes.h"

#include "platform/Colors.h"
#include "platform/StreamText.h"

#include <QApplication>
#include <QColorDialog>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>

namespace {

QWidget* owner(QWidget* parent) { return parent ? parent->window() : QApplication::activeWindow(); }

// Runs a message box that may die with its parent while it is up; gives the button pressed.
int ask(QWidget* parent, const std::string& title, const std::string& text, QMessageBox::Icon icon,
        QMessageBox::StandardButtons buttons) {
    const QPointer<QMessageBox> box(new QMessageBox(icon, shownText(title), shownText(text), buttons, owner(parent)));
    box->setTextFormat(Qt::PlainText); // server text is never markup
    box->setTextInteractionFlags(Qt::TextSelectableByMouse);
    const int answer = box->exec();
    delete box; // null if the parent took it along; the answer is 0 then
    return answer;
}

void realMessage(QWidget* parent, const std::string& title, const std::string& text) {
    ask(parent, title, text, QMessageBox::Information, QMessageBox::Ok);
}

bool realYesNo(QWidget* parent, const std::string& title, const std::string& text) {
    return ask(parent, title, text, QMessageBox::Question, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

bool realOkCancel(QWidget* parent, const std::string& title, const std::string& text) {
    return ask(parent, title, text, QMessageBox::Question, QMessageBox::Ok | QMessageBox::Cancel) == QMessageBox::Ok;
}

std::optional<std::string> realInput(QWidget* parent, const std::string& prompt, const std::string& title,
                                     const std::string& proposal) {
    const QPointer<QInputDialog> box(new QInputDialog(owner(parent)));
    box->setWindowTitle(shownText(title));
    box->setLabelText(shownText(prompt));
    box->setTextValue(shownText(proposal));
    const bool accepted = box->exec() == QDialog::Accepted && box;
    std::optional<std::string> answer;
    if (accepted) answer = bytesOf(box->textValue());
    delete box;
    return answer;
}

std::optional<std::int32_t> realColour(QWidget* parent, std::int32_t start) {
    const QColor chosen = QColorDialog::getColor(colorOf(start), owner(parent));
    if (!chosen.isValid()) return std::nullopt;
    return colorValue(chosen);
}

std::optional<std::string> pathOf(const QString& chosen) {
    if (chosen.isEmpty()) return std::nullopt;
    return QFile::encodeName(chosen).toStdString();
}

QString pathShown(const std::string& path) { return QFile::decodeName(path.c_str()); }

std::optional<std::string> realFileOpen(QWidget* parent, const std::string& title, const std::string& start,
                                        const std::string& filter) {
    return pathOf(QFileDialog::getOpenFileName(owner(parent), shownText(title), pathShown(start), shownText(filter)));
}

std::optional<std::string> realFileSave(QWidget* parent, const std::string& title, const std::string& start,
                                        const std::string& filter) {
    return pathOf(QFileDialog::getSaveFileName(owner(parent), shownText(title), pathShown(start), shownText(filter)));
}

std::optional<std::string> realFolder(QWidget* parent, const std::string& title, const std::string& start) {
    return pathOf(QFileDialog::getExistingDirectory(owner(parent), shownText(title), pathShown(start)));
}

} // namespace

Boxes::Boxes()
    : message(realMessage), yesNo(realYesNo), okCancel(realOkCancel), input(realInput), colour(realColour),
      fileOpen(realFileOpen), fileSave(realFileSave), folder(realFolder) {}

Boxes boxes;
