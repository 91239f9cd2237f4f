// The help panel: asks the server for a help page and shows it whole.
#include "panels/frmChessHelp.h"

#include "common/Twips.h"
#include "common/TypingKey.h"
#include "platform/Console.h"
#include "platform/ConsoleFont.h"
#include "platform/Described.h"
#include "platform/HelpFile.h"
#include "platform/InFront.h"
#include "platform/LoadedWindow.h"
#include "platform/MessageLoop.h"
#include "platform/NamedControl.h"
#include "platform/StreamText.h"
#include "platform/TypingLine.h"
#include "platform/WindowTurn.h"
#include "settings/WindowSettings.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace {

constexpr int FirstTick = 100; // milliseconds

constexpr QSize DesignedSize(680, 480); // pixels, as are those below

// What the pane leaves of the window, and how that is shared out. Large letters take more.
constexpr int Beside = 120 / TwipsPerPixelX;
constexpr int Below = 795 / TwipsPerPixelY;
constexpr int RowAboveBottom = 780 / TwipsPerPixelY;
constexpr int Lower = 60 / TwipsPerPixelY; // the tick box and the label stand
constexpr int RowHeight = 38;
constexpr int BottomMargin = 6;
constexpr int Gap = 6;
constexpr int LeastPane = 60;
constexpr int LeastTopic = 14; // letters
constexpr int Indent = 2;      // of the topic

QString sendingText() { return QStringLiteral("Sending Help Cmd"); }

} // namespace

frmChessHelp::frmChessHelp(const HelpRoads& roads) : roads_(roads) {
    describeWindow(this);
    setObjectName(QStringLiteral("frmChessHelp"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Help Panel"));
    buildRow();
    buildPane();
    resize(DesignedSize);
    tmrHelp_.setParent(this); // where it is found by its name
    tmrHelp_.setObjectName(QStringLiteral("tmrHelp"));
    tmrHelp_.setSingleShot(true);
    tmrHelp_.setInterval(FirstTick);
    connect(&tmrHelp_, &QTimer::timeout, this, [this] { tmrHelp(); });
}

frmChessHelp::~frmChessHelp() { openWindows.remove(this); }

void frmChessHelp::buildRow() {
    txtHelp_ = named(new TypingLine(this), "txtHelp");
    txtHelp_->setAccessibleName(tr("Help topic"));
    txtHelp_->setPlaceholderText(tr("Topic"));
    txtHelp_->setTextMargins(Indent, 0, Indent, 0);
    cmdGo_ = button("cmdGo", tr("&Go"));
    cmdClear_ = button("cmdClear", tr("&Clear"));
    cmdExit_ = button("cmdExit", tr("E&xit"));
    chkAuto_ = named(new QCheckBox(tr("&Auto Clear"), this), "chkAuto");
    chkAuto_->setChecked(true);
    lblRcvData_ = named(new QLabel(tr("Receiving Data"), this), "lblRcvData");
    lblRcvData_->hide();
    // The panel may close in the wait, and so may not stand on the key's stack.
    txtHelp_->keyDown = [this](int code, bool) {
        if (code != KeyEnter) return false;
        QMetaObject::invokeMethod(
            this, [this] { zGo(); }, Qt::QueuedConnection);
        return true;
    };
    connect(cmdGo_, &QPushButton::clicked, this, [this] { cmdGo(); });
    connect(cmdClear_, &QPushButton::clicked, this, [this] { txtHelpInfo_->clearScreen(); });
    connect(cmdExit_, &QPushButton::clicked, this, [this] { close(); });
}

void frmChessHelp::buildPane() {
    txtHelpInfo_ = named(new Console(this), "txtHelpInfo");
    txtHelpInfo_->setAccessibleName(tr("Help page"));
    txtHelpInfo_->rightButtonEnds = false;
    txtHelpInfo_->typed = [this](const QString& text) {
        if (!text.at(0).isPrint()) return;
        txtHelp_->setFocus();
        txtHelp_->end(false);
        txtHelp_->insert(text);
    };
}

QPushButton* frmChessHelp::button(const char* name, const QString& caption) {
    auto* made = named(new QPushButton(caption, this), name);
    made->setAutoDefault(true); // Enter presses the one that has the focus
    return made;
}

void frmChessHelp::load() {
    takeLook();
    placer_.restore(roads_.panel.store, HelpSection, twipsOf(DesignedSize));
    roads_.capture.blockRead = [this](const std::string& progress) { showProgress(shownText(progress)); };
    openWindows.add({.className = "frmChessHelp",
                     .window = this,
                     .unload = [this] { close(); },
                     .answered = [this] { zShowHelp(modChess.HelpLines, modChess.HelpCount); },
                     .takeLook = [this] { takeLook(); }});
    start();
}

void frmChessHelp::start() { tmrHelp_.start(); }

void frmChessHelp::takeLook() {
    txtHelpInfo_->setPaper(modChess.ColorBackground);
    txtHelpInfo_->setColor(modChess.ColorMain);
    txtHelpInfo_->setFont(consoleFont());
    txtHelp_->setColors(modChess.ColorBar, modChess.ColorType);
    txtHelp_->setFont(consoleFont());
    arrange();
}

WindowPlace frmChessHelp::startPlace() { return designedPlace(twipsOf(DesignedSize)); }

frmChessHelp& frmChessHelp::showIt(const HelpRoads& roads) {
    auto* window = loadedWindow<frmChessHelp>();
    if (window == nullptr) {
        window = new frmChessHelp(roads); // deletes itself after closing
        window->load();
    }
    bringInFront(*window);
    return *window;
}

void frmChessHelp::startIt(const HelpRoads& roads) { showIt(roads).start(); }

void frmChessHelp::closeEvent(QCloseEvent* event) {
    event->accept();
    if (!openWindows.holds(this)) return;
    placer_.unminimise();
    tmrHelp_.stop();
    roads_.capture.blockRead = [](const std::string&) {};
    zSaveReg(roads_.panel.store, HelpSection, placer_.place());
    openWindows.remove(this);
}

// Asking, and what is shown

void frmChessHelp::tmrHelp() {
    txtHelp_->setFocus();
    if (modChess.gHelpTopic.empty()) return;
    txtHelp_->setLine(std::exchange(modChess.gHelpTopic, {}));
    cmdGo_->click();
}

void frmChessHelp::cmdGo() {
    const QPointer<frmChessHelp> self(this);
    showProgress(sendingText());
    lblRcvData_->show();
    modChess.HelpBlock = 0;
    pumpMessages();
    if (self && openWindows.holds(this)) zGo();
}

void frmChessHelp::zGo() {
    if (chkAuto_->isChecked()) txtHelpInfo_->clearScreen();
    ::zGo(requestHooks());
}

// They outlive the window where it closes in the wait.
HelpRequestHooks frmChessHelp::requestHooks() {
    const QPointer<frmChessHelp> self(this);
    return {
        .turn = turnOf(this, roads_.panel.BusyTest),
        .topic = [self] { return self->txtHelp_->line(); },
        .zSetstate = roads_.panel.zSetstate,
        .zSendMsg = roads_.panel.zSendMsg,
    };
}

void frmChessHelp::zShowHelp(const HelpPage& lines, std::int16_t count) {
    std::string page;
    for (std::int16_t i = 0; i < count; ++i) {
        if (lines[i] != modChess.gPrompt) page += lines[i];
    }
    txtHelpInfo_->moveToEnd();
    txtHelpInfo_->insert(page);
    txtHelpInfo_->moveTo(1);
    txtHelpInfo_->verticalScrollBar()->setValue(0);
    lblRcvData_->hide();
}

void frmChessHelp::showProgress(const QString& text) {
    lblRcvData_->setText(text);
    arrange();
}

// Room

// The height of the row, with the parts that stand lower.
int frmChessHelp::rowNeeds() const {
    const auto needs = [](const QWidget* part) { return part->sizeHint().height(); };
    return std::max(
        {RowHeight, needs(txtHelp_), needs(cmdGo_), needs(chkAuto_) + 2 * Lower, needs(lblRcvData_) + 2 * Lower});
}

// The width of the label, which keeps its room while it is hidden.
int frmChessHelp::labelNeeds() const {
    const int usual = lblRcvData_->fontMetrics().horizontalAdvance(sendingText());
    return std::max(usual, lblRcvData_->sizeHint().width());
}

void frmChessHelp::arrange() {
    const int row = rowNeeds();
    const int above = std::max(RowAboveBottom, row + BottomMargin); // the bottom
    const int pane = above + Below - RowAboveBottom;
    const int y = height() - above;
    const int left = Beside / 2;
    int x = width() - left;
    const auto place = [&](QWidget* part, int width, int lower) {
        x -= width;
        part->setGeometry(x, y + lower, width, row - 2 * lower);
        x -= Gap;
    };
    place(lblRcvData_, labelNeeds(), Lower);
    place(chkAuto_, chkAuto_->sizeHint().width(), Lower);
    for (QPushButton* each : {cmdExit_, cmdClear_, cmdGo_}) place(each, each->sizeHint().width(), 0);
    txtHelp_->setGeometry(left, y, x - left, row);
    txtHelpInfo_->setGeometry(left, 0, width() - Beside, height() - pane);
    const int topic = LeastTopic * txtHelp_->fontMetrics().horizontalAdvance(u'0');
    setMinimumSize(width() - (x - left) + topic, pane + LeastPane);
}

void frmChessHelp::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (!isMinimized()) arrange();
}

void frmChessHelp::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) arrange();
}

// What the line and the pane leave.
void frmChessHelp::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
        txtHelpInfo_->turnPage(key == Qt::Key_PageUp ? -1 : 1);
    } else if (key == Qt::Key_F1) {
        showHelpFile(this);
    } else if (key == Qt::Key_Escape) {
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}
