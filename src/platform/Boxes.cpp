// The real boxes behind the seam.
#include "platform/Boxes.h"

#include "platform/Colors.h"
#include "platform/FramePlace.h"
#include "platform/StreamText.h"

#include <QApplication>
#include <QColorDialog>
#include <QCursor>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QRegularExpression>
#include <QTimer>
#include <QWindow>

#include <memory>

namespace {

QWidget* owner(QWidget* parent) { return parent ? parent->window() : QApplication::activeWindow(); }

// Runs a message box that may die with its parent while it is up; gives the button pressed.
int ask(QWidget* parent, const std::string& title, const std::string& text, QMessageBox::Icon icon,
        QMessageBox::StandardButtons buttons, QMessageBox::StandardButton preset = QMessageBox::NoButton) {
    const QPointer<QMessageBox> box(new QMessageBox(icon, shownStart(title), shownText(text), buttons, owner(parent)));
    box->setTextInteractionFlags(Qt::TextSelectableByMouse);
    box->setDefaultButton(preset);
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

bool realConfirm(QWidget* parent, const std::string& title, const std::string& text) {
    return ask(parent, title, text, QMessageBox::Question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
           QMessageBox::Yes;
}

bool realOkCancel(QWidget* parent, const std::string& title, const std::string& text) {
    return ask(parent, title, text, QMessageBox::Question, QMessageBox::Ok | QMessageBox::Cancel) == QMessageBox::Ok;
}

// Runs a dialog that may die with its parent while it is up; gives `answer` of one that was accepted.
template <typename Dialog, typename Answer>
auto askWith(const QPointer<Dialog>& box, Answer answer) {
    std::optional<decltype(answer(*box))> given;
    if (box->exec() == QDialog::Accepted && box) given = answer(*box);
    delete box;
    return given;
}

std::optional<std::string> askForText(QWidget* parent, const std::optional<QPoint>& place, const std::string& prompt,
                                      const std::string& title, const std::string& proposal) {
    const QPointer<QInputDialog> box(new QInputDialog(owner(parent)));
    box->setWindowTitle(shownStart(title));
    box->setLabelText(shownText(prompt));
    box->setTextValue(shownText(proposal));
    if (place) placeFrame(*box, *place);
    return askWith(box, [](const QInputDialog& accepted) { return bytesOf(accepted.textValue()); });
}

std::optional<std::string> realInput(QWidget* parent, const std::string& prompt, const std::string& title,
                                     const std::string& proposal) {
    return askForText(parent, std::nullopt, prompt, title, proposal);
}

std::optional<std::string> realInputAt(QWidget* parent, int left, int top, const std::string& prompt,
                                       const std::string& title, const std::string& proposal) {
    return askForText(parent, QPoint(left, top), prompt, title, proposal);
}

std::optional<std::int32_t> realColour(QWidget* parent, std::int32_t start) {
    const QPointer<QColorDialog> box(new QColorDialog(colorOf(start), owner(parent)));
    return askWith(box, [](const QColorDialog& accepted) { return colorValue(accepted.selectedColor()); });
}

// Its own questions first: they run on its stack.
void dismiss(QDialog& box) {
    for (QDialog* question : box.findChildren<QDialog*>()) question->reject();
    box.reject();
}

// A file dialog puts its own questions ("... already exists") on its stack, so it must not be deleted under them: it is
// no child of its window, and only told when that goes.
QFileDialog* fileBox(QWidget* parent, const std::string& title, const std::string& start, const std::string& filter) {
    auto* box = new QFileDialog(nullptr, shownText(title), QFile::decodeName(start.c_str()), shownText(filter));
    if (QWidget* over = owner(parent)) {
        box->winId(); // makes its window, which stays above the other from then on
        box->windowHandle()->setTransientParent(over->windowHandle());
        QObject::connect(over, &QObject::destroyed, box, [box] { dismiss(*box); });
    }
    return box;
}

std::optional<std::string> askForPath(const QPointer<QFileDialog>& box) {
    auto path = askWith(box, [](const QFileDialog& accepted) {
        return QFile::encodeName(accepted.selectedFiles().value(0)).toStdString();
    });
    return path && path->empty() ? std::nullopt : path;
}

std::optional<std::string> realFileOpen(QWidget* parent, const std::string& title, const std::string& start,
                                        const std::string& filter) {
    QFileDialog* box = fileBox(parent, title, start, filter);
    box->setFileMode(QFileDialog::ExistingFile);
    return askForPath(box);
}

// "pgn" of the filter "PGN Files (*.pgn)"; empty for one that names no ending.
QString endingOf(const std::string& filter) {
    static const QRegularExpression ending(QStringLiteral("\\(\\*\\.(\\w+)"));
    return ending.match(shownText(filter)).captured(1);
}

std::optional<std::string> realFileSave(QWidget* parent, const std::string& title, const std::string& start,
                                        const std::string& filter) {
    QFileDialog* box = fileBox(parent, title, start, filter);
    box->setAcceptMode(QFileDialog::AcceptSave);
    box->setDefaultSuffix(endingOf(filter));
    return askForPath(box);
}

std::optional<std::string> realFolder(QWidget* parent, const std::string& title, const std::string& start) {
    QFileDialog* box = fileBox(parent, title, start, std::string());
    box->setFileMode(QFileDialog::Directory);
    box->setOption(QFileDialog::ShowDirsOnly);
    return askForPath(box);
}

// The menu comes down before its entry announces itself, so the answer is put together behind both.
void answerOnce(QMenu& menu, QObject* once, const std::function<void(QAction* chosen)>& answer) {
    const auto choice = std::make_shared<QAction*>(nullptr);
    QObject::connect(&menu, &QMenu::triggered, once, [choice](QAction* entry) { *choice = entry; });
    QObject::connect(&menu, &QMenu::aboutToHide, once, [once, choice, answer] {
        QTimer::singleShot(0, once, [once, choice, answer] {
            once->deleteLater();
            answer(*choice);
        });
    });
}

void realPopup(QMenu& menu, const std::function<void(QAction* chosen)>& answer) {
    const auto name = QStringLiteral("popupAnswer");
    delete menu.findChild<QObject*>(name, Qt::FindDirectChildrenOnly); // what was asked before has been overtaken
    menu.hide();
    auto* once = new QObject(&menu);
    once->setObjectName(name);
    QTimer::singleShot(0, once, [&menu, once, answer] {
        answerOnce(menu, once, answer);
        menu.popup(QCursor::pos());
    });
}

} // namespace

Boxes::Boxes()
    : message(realMessage), yesNo(realYesNo), confirm(realConfirm), okCancel(realOkCancel), input(realInput),
      inputAt(realInputAt), colour(realColour), fileOpen(realFileOpen), fileSave(realFileSave), folder(realFolder),
      popup(realPopup) {}

Boxes boxes;

void showAbout(QWidget* parent) {
    boxes.message(parent, "Brightrank", "Brightrank " + bytesOf(QApplication::applicationVersion()));
}
