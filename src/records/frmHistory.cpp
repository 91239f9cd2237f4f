// A player's games as the server lists them.
#include "records/frmHistory.h"

#include "common/CaptureState.h"
#include "common/modChess.h"
#include "platform/Boxes.h"
#include "platform/Described.h"
#include "platform/InFront.h"
#include "platform/LoadedWindow.h"
#include "platform/MenuEntry.h"
#include "platform/NamedControl.h"
#include "platform/StreamText.h"
#include "platform/WindowTurn.h"
#include "records/FileDialogs.h"
#include "records/HistoryTable.h"
#include "settings/WindowSettings.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>

#include <utility>

namespace {

constexpr int FirstTick = 100;    // milliseconds
constexpr int OpponentColumn = 2; // of stored games

bool isStored(std::int16_t kind) { return &lookOf(kind) == &lookOf(HistoryKindStored); }

} // namespace

frmHistory::frmHistory(const HistoryRoads& roads) : roads_(roads) {
    describeWindow(this);
    setObjectName(QStringLiteral("frmHistory"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("History"));
    build();
    buildMenu();
    setLook(modChess.HistoryKind);
    tmrHist_.setParent(this); // where it is found by its name
    tmrHist_.setObjectName(QStringLiteral("tmrHist"));
    tmrHist_.setSingleShot(true);
    connect(&tmrHist_, &QTimer::timeout, this, [this] { tmrHist(); });
}

frmHistory::~frmHistory() { openWindows.remove(this); }

void frmHistory::build() {
    auto* column = new QVBoxLayout(this);
    auto* row = new QHBoxLayout;
    txtPlayer_ = named(new QLineEdit(this), "txtPlayer");
    auto* label = named(new QLabel(tr("&Player"), this), "lblPlayer");
    label->setBuddy(txtPlayer_);
    txtPlayer_->setAccessibleName(tr("Player"));
    connect(txtPlayer_, &QLineEdit::returnPressed, this, [this] { zGo("History"); });
    row->addWidget(label);
    row->addWidget(txtPlayer_, 1);
    cmdHistory_ = button("cmdHistory", tr("&History"));
    connect(cmdHistory_, &QPushButton::clicked, this, [this] { ask(HistoryKindGames); });
    QPushButton* journal = button("cmdJournal", tr("&Journal"));
    connect(journal, &QPushButton::clicked, this, [this] { ask(HistoryKindJournal); });
    QPushButton* stored = button("cmdStored", tr("&Stored"));
    connect(stored, &QPushButton::clicked, this, [this] { ask(HistoryKindStored); });
    QPushButton* exit = button("cmdExit", tr("E&xit"));
    connect(exit, &QPushButton::clicked, this, [this] { close(); });
    for (QPushButton* each : {cmdHistory_, journal, stored, exit}) row->addWidget(each);
    column->addLayout(row);
    lvwHistory_ = named(new HistoryTable(this), "lvwHistory");
    lvwHistory_->setAccessibleName(tr("Games"));
    connect(lvwHistory_, &HistoryTable::reviewWanted, this, [this] {
        pick();
        mnuReview();
    });
    column->addWidget(lvwHistory_, 1);
}

QPushButton* frmHistory::button(const char* name, const QString& caption) {
    auto* made = named(new QPushButton(caption, this), name);
    made->setAutoDefault(true); // Enter presses the one that has the focus
    return made;
}

void frmHistory::buildMenu() {
    mnuGame_ = named(new QMenu(this), "mnuGame");
    const auto entry = [this](const char* name, const char* caption, auto answer) {
        QAction* made = addEntry(mnuGame_, name, caption);
        onChosen(made, this, answer);
        return made;
    };
    entry("mnuExamine", "Examine", [this] { send(examineLine); });
    entry("mnuReview", "Review", [this] { mnuReview(); });
    entry("mnuMoves", "Move List", [this] { send(movesLine); });
    entry("mnuSavePGN", "Save PGN", [this] { mnuSavePGN(); });
    entry("mnuMailStored", "Mail Stored", [this] { send(mailLine); });
    buildJournalMenu();
    mnuRemove_ = entry("mnuRemove", "Remove", [this] { mnuRemove(); });
    connect(lvwHistory_, &HistoryTable::menuWanted, this, [this] {
        pick();
        boxes.popup(*mnuGame_, [](QAction*) {});
    });
    connect(lvwHistory_, &HistoryTable::menuWantedAt, this, [this](QPoint place) {
        pick();
        mnuGame_->popup(place);
    });
}

void frmHistory::buildJournalMenu() {
    auto* slots = new QMenu(QStringLiteral("Add Journal"), mnuGame_);
    for (char slot = 'A'; slot <= 'J'; ++slot) {
        const std::string caption(1, slot);
        onChosen(addEntry(slots, "mnuAdd", caption.c_str()), this,
                 [this, caption] { roads_.zSendMsg(addLine(picked(), caption)); });
    }
    mnuAddJourn_ = named(mnuGame_->addMenu(slots), "mnuAddJourn");
}

void frmHistory::load() {
    placer_.restore(roads_.store, HistorySection, twipsOf(sizeHint().boundedTo(screen()->availableSize())));
    roads_.lists.handleRead = [this](const std::string& title) {
        txtPlayer_->setText(shownText(roads_.lists.HistHandle));
        setWindowTitle(shownStart(title + roads_.lists.HistHandle));
    };
    openWindows.add({"frmHistory", this, [this] { close(); }, {}, [this] { answered(); }});
    start();
}

void frmHistory::start() { tmrHist_.start(FirstTick); }

void frmHistory::tmrHist() {
    txtPlayer_->setFocus();
    if (modChess.gHelpTopic.empty()) {
        txtPlayer_->setText(shownText(roads_.handle()));
        txtPlayer_->end(false);
    } else {
        txtPlayer_->setText(shownText(std::exchange(modChess.gHelpTopic, {})));
        cmdHistory_->click();
    }
}

frmHistory& frmHistory::showIt(const HistoryRoads& roads) {
    auto* window = loadedWindow<frmHistory>();
    if (window == nullptr) {
        window = new frmHistory(roads); // deletes itself after closing
        window->load();
    }
    bringInFront(*window);
    return *window;
}

void frmHistory::startIt(const HistoryRoads& roads) { showIt(roads).start(); }

void frmHistory::closeEvent(QCloseEvent* event) {
    event->accept();
    if (std::exchange(closed_, true)) return;
    placer_.unminimise();
    tmrHist_.stop();
    roads_.lists.handleRead = [](const std::string&) {};
    zSaveReg(roads_.store, HistorySection, placer_.place());
    openWindows.remove(this);
}

// Lists

void frmHistory::zSetHistory() { setLook(HistoryKindGames); }
void frmHistory::zSetJournal() { setLook(HistoryKindJournal); }
void frmHistory::zSetStored() { setLook(HistoryKindStored); }
void frmHistory::zHistoryList() { fill(HistoryKindGames); }
void frmHistory::zJournalList() { fill(HistoryKindJournal); }
void frmHistory::zStoredList() { fill(HistoryKindStored); }

// A menu that is up is about a row that goes.
void frmHistory::setLook(std::int16_t kind) {
    mnuGame_->close();
    const ListLook& look = lookOf(kind);
    lvwHistory_->setLook(look);
    mnuAddJourn_->setVisible(look.addsToJournal);
    mnuRemove_->setVisible(look.removes);
}

void frmHistory::answered() { fill(modChess.HistoryKind); }

void frmHistory::fill(std::int16_t kind) {
    mnuGame_->close();
    lvwHistory_->fill(roads_.lists);
    if (roads_.lists.HistCount == 0) roads_.tell(player() + lookOf(kind).empty);
}

void frmHistory::ask(std::int16_t kind) {
    modChess.HistoryKind = kind;
    setLook(kind);
    zGo(lookOf(kind).command);
}

void frmHistory::zGo(const std::string& command) { ::zGo(command, roads_.lists, requestHooks()); }

// They outlive the window where it closes in the wait.
ListRequestHooks frmHistory::requestHooks() {
    const QPointer<frmHistory> self(this);
    const HistoryRoads& roads = roads_;
    return {
        .turn = turnOf(this, roads.BusyTest),
        .player = [self] { return self->player(); },
        .setCaption = [self](const std::string& caption) { self->setWindowTitle(shownStart(caption)); },
        .zSetstate = roads.zSetstate,
        .zSendMsg = roads.zSendMsg,
    };
}

std::string frmHistory::player() const { return lineOf(txtPlayer_->text()); }

// The menu

void frmHistory::pick() {
    const int row = lvwHistory_->selectedRow();
    SelectedText_ = lvwHistory_->cell(row, 0);
    SelectedIndex_ = static_cast<std::int16_t>(row + 1);
}

ListedGame frmHistory::picked() const {
    ListedGame game{player(), SelectedText_, std::nullopt};
    if (isStored(modChess.HistoryKind)) game.opponent = lvwHistory_->cell(SelectedIndex_ - 1, OpponentColumn);
    return game;
}

void frmHistory::send(std::string (*line)(const ListedGame& game)) { roads_.zSendMsg(line(picked())); }

void frmHistory::mnuReview() {
    modChess.MovesTarget = MovesToReview;
    send(movesLine);
    roads_.zSetstate(MovesState);
}

// The dialog dies with the window, and gives no name then.
void frmHistory::mnuSavePGN() {
    const std::string arguments = gameArguments(picked());
    const HistoryRoads& roads = roads_;
    const std::string path = zSaveFile(this, true);
    if (path.empty()) return;
    modChess.MovesFile = path;
    modChess.MovesTarget = MovesToFile;
    roads.zGetMoves(arguments);
}

// So does the question.
void frmHistory::mnuRemove() {
    const ListedGame game = picked();
    const HistoryRoads& roads = roads_;
    if (boxes.confirm(this, "Brightrank", removeQuestion(game))) roads.zSendMsg(removeLine(game));
}
