// The panel that asks the server about a player and his games.
#include "records/frmExamine.h"

#include "common/Numbers.h"
#include "common/modChess.h"
#include "platform/ButtonKeys.h"
#include "platform/FramePlace.h"
#include "platform/InFront.h"
#include "platform/LoadedWindow.h"
#include "platform/MessageLoop.h"
#include "platform/NamedControl.h"
#include "platform/StreamText.h"
#include "records/FileDialogs.h"
#include "records/MoveListRequest.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>

namespace {

constexpr double ExamineDelay = 0.55; // seconds, in which the server leaves the game before
constexpr int LastGame = 99;          // of vscGame
constexpr int GameWidth = 4;          // digits of txtGame
constexpr int Gap = 6;                // pixels

QString inCapitals(QString text) {
    for (QChar& character : text) character = character.toUpper();
    return text;
}

} // namespace

frmExamine::frmExamine(const ExamineRoads& roads, std::int32_t board) : frmCBx(board), roads_(roads) {
    setObjectName(QStringLiteral("frmExamine"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Evaluate Player"));
    auto* column = new QVBoxLayout(this);
    column->setSpacing(Gap);
    column->addLayout(buildFields());
    auto* frames = new QHBoxLayout;
    frames->setSpacing(Gap);
    frames->addWidget(buildShow());
    frames->addWidget(buildGame());
    column->addLayout(frames);
    auto* foot = new QHBoxLayout;
    foot->addStretch();
    foot->addWidget(button(this, "cmdExit", tr("E&xit"), [this] { cmdExit(); }));
    column->addLayout(foot);
    column->setSizeConstraint(QLayout::SetFixedSize);
    load();
    openWindows.add({"frmExamine", this, [this] { close(); }});
}

frmExamine::~frmExamine() { openWindows.remove(this); }

QLayout* frmExamine::buildFields() {
    txtHandle_ = named(new QLineEdit(this), "txtHandle");
    txtGame_ = named(new QLineEdit(QStringLiteral("0"), this), "txtGame");
    txtGame_->setFixedWidth(txtGame_->sizeHint().width() / 2);
    vscGame_ = named(new QScrollBar(Qt::Vertical, this), "vscGame");
    vscGame_->setRange(0, LastGame);
    vscGame_->setPageStep(10);
    vscGame_->setFixedHeight(txtGame_->sizeHint().height());
    vscGame_->setFocusPolicy(Qt::TabFocus);
    vscGame_->setAccessibleName(tr("Game number"));
    connect(txtGame_, &QLineEdit::textChanged, this, &frmExamine::txtGameChanged);
    connect(vscGame_, &QScrollBar::valueChanged, this, &frmExamine::vscGameChanged);
    auto* grid = new QGridLayout;
    grid->setSpacing(Gap);
    grid->addWidget(labelOf(this, "lblHandle", tr("Ha&ndle"), txtHandle_), 0, 0);
    grid->addWidget(txtHandle_, 0, 1, 1, 2);
    grid->addWidget(labelOf(this, "lblGame", tr("&Game"), txtGame_), 1, 0);
    grid->addWidget(txtGame_, 1, 1);
    grid->addWidget(vscGame_, 1, 2, Qt::AlignLeft);
    grid->setColumnStretch(2, 1);
    return grid;
}

QWidget* frmExamine::buildShow() {
    auto* frame = named(new QGroupBox(tr("Show Player's"), this), "fraShow");
    auto* column = new QVBoxLayout(frame);
    column->setSpacing(Gap);
    column->addWidget(sender(frame, "cmdHistory", tr("&History"), "history ", false));
    column->addWidget(sender(frame, "cmdJournal", tr("&Journal"), "journal ", false));
    column->addWidget(sender(frame, "cmdStored", tr("S&tored"), "stored ", false));
    column->addWidget(sender(frame, "cmdStats", tr("&Stats"), "fi ", false));
    column->addStretch();
    return frame;
}

QWidget* frmExamine::buildGame() {
    frmGame_ = named(new QGroupBox(tr("Game"), this), "frmGame");
    auto* grid = new QGridLayout(frmGame_);
    grid->setSpacing(Gap);
    grid->addWidget(sender(frmGame_, "cmdMoves", tr("&Moves"), "smoves ", true), 0, 0);
    grid->addWidget(button(frmGame_, "cmdGame", tr("&Examine"), [this] { cmdGame(); }), 1, 0);
    grid->addWidget(button(frmGame_, "cmdUnEx", tr("&UnExamine"), [this] { roads_.zSendMsg("unex"); }), 2, 0);
    grid->addWidget(sender(frmGame_, "cmdMail", tr("Mai&lStored"), "Mailstored ", true), 0, 1);
    grid->addWidget(button(frmGame_, "cmdPGN", tr("Save &PGN"), [this] { cmdPGN(); }), 1, 1);
    grid->setRowStretch(3, 1);
    for (const int column : {0, 1}) grid->setColumnStretch(column, 1);
    return frmGame_;
}

// Enter presses a button that has the focus, and no other.
template <typename Answer>
QPushButton* frmExamine::button(QWidget* parent, const char* name, const QString& caption, Answer answer) {
    auto* made = named(new QPushButton(caption, parent), name);
    made->setAutoDefault(false);
    connect(made, &QPushButton::clicked, this, answer);
    return made;
}

QPushButton* frmExamine::sender(QWidget* parent, const char* name, const QString& caption, const std::string& command,
                                bool withGame) {
    return button(parent, name, caption,
                  [this, command, withGame] { roads_.zSendMsg(command + (withGame ? handleAndGame() : handle())); });
}

void frmExamine::load() {
    txtHandle_->setText(shownText(modChess.ExamineHandle));
    if (!modChess.ExamineGame.empty()) txtGame_->setText(shownText(modChess.ExamineGame));
    txtHandle_->setText(shownText(roads_.handle()));
    txtHandle_->setFocus();
    if (const QWidget* board = roads_.board(frmCBx)) placeBeside(*this, *board);
}

frmExamine& frmExamine::showIt(const ExamineRoads& roads, std::int32_t board) {
    auto* panel = loadedWindow<frmExamine>();
    const bool opens = panel == nullptr;
    if (opens) panel = new frmExamine(roads, board); // deletes itself after closing
    panel->frmCBx = board;
    bringInFront(*panel);
    if (opens) panel->txtHandle_->end(false); // a dialog selects its first text as it shows
    return *panel;
}

std::string frmExamine::handle() const { return lineOf(txtHandle_->text()); }

std::string frmExamine::game() const { return lineOf(txtGame_->text()); }

// A letter is a slot of the journal.
void frmExamine::txtGameChanged(const QString& text) {
    frmGame_->setTitle(tr("Game") + QStringLiteral(" ") + text);
    if (!text.isEmpty() && text[0] > u'9') {
        const int caret = txtGame_->cursorPosition();
        txtGame_->setText(inCapitals(text));
        txtGame_->setCursorPosition(caret);
        return;
    }
    const double number = leadingNumber(bytesOf(text));
    if (number >= 0 && number <= LastGame) vscGame_->setValue(toInt16(number));
}

void frmExamine::vscGameChanged(int number) {
    txtGame_->setText(QString::number(number));
    txtGame_->end(false);
}

// The panel may have closed meanwhile; then the texts are those of the click.
void frmExamine::cmdGame() {
    const QPointer<frmExamine> self(this);
    const ExamineRoads& roads = roads_;
    std::string arguments = handleAndGame();
    roads.zSendMsg("unex");
    zWait(ExamineDelay);
    if (self) arguments = handleAndGame();
    roads.zSendMsg("ex " + arguments);
}

void frmExamine::cmdPGN() {
    QWidget* board = roads_.board(frmCBx);
    if (board == nullptr) return;
    const QPointer<frmExamine> self(this);
    const std::string file = zSaveFile(board, true);
    modChess.MovesFile = file;
    if (!self || file.empty()) return;
    modChess.MovesTarget = MovesToFile;
    roads_.zGetMoves(ByHandle, handleAndGame());
}

void frmExamine::cmdExit() {
    modChess.ExamineHandle = handle();
    modChess.ExamineGame = game();
    close();
}

void frmExamine::keyPressEvent(QKeyEvent* event) {
    auto* pressed = qobject_cast<QPushButton*>(focusWidget());
    if (!isEnter(*event)) {
        QDialog::keyPressEvent(event);
    } else if (pressed) {
        pressed->click();
    }
}

void frmExamine::closeEvent(QCloseEvent* event) {
    openWindows.remove(this);
    event->accept();
}
