// The seek graph.
#include "seek/frmSeek.h"

#include "common/RaisedFlag.h"
#include "common/Twips.h"
#include "common/modChess.h"
#include "platform/Boxes.h"
#include "platform/ButtonKeys.h"
#include "platform/Clock.h"
#include "platform/Described.h"
#include "platform/FittingFont.h"
#include "platform/InFront.h"
#include "platform/LoadedWindow.h"
#include "platform/MenuEntry.h"
#include "platform/StreamText.h"
#include "platform/TipText.h"
#include "seek/AdTexts.h"
#include "settings/WindowSettings.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QToolTip>

#include <cmath>

namespace {

constexpr QSize DesignedSize(520, 460); // pixels, as are those below; cells of 16
constexpr QSize LeastSize(200, 103);    // of which the graph has its smallest cells

// Below the graph.
constexpr int Below = (780 - 15) / TwipsPerPixelY; // the base line has one
constexpr int TallTitleBar = 105 / TwipsPerPixelY;
constexpr int ButtonTop = 2;
constexpr int ButtonHeight = 24;
constexpr int ButtonMargin = 6; // beside its caption
constexpr int StatusHeight = 22;
constexpr int StatusIndent = 6;
constexpr int DummyAside = 300 / TwipsPerPixelX;

constexpr std::int32_t White = 0xFFFFFF;
constexpr std::int32_t Black = 0;

int pixelsFor(float twips) { return static_cast<int>(std::ceil(twips / TwipsPerPixelX)); }

} // namespace

frmSeek::frmSeek(const SeekRoads& roads) : roads_(roads) {
    describeWindow(this);
    setObjectName(QStringLiteral("frmSeek"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Seek Graph"));
    setMinimumSize(LeastSize);
    build();
    buildMenu();
    tmrSeek_.setParent(this); // where it is found by its name
    tmrSeek_.setObjectName(QStringLiteral("tmrSeek"));
    tmrSeek_.setTimerType(Qt::PreciseTimer);
    connect(&tmrSeek_, &QTimer::timeout, this, [this] { poll_.tmrSeek(); });
}

frmSeek::~frmSeek() { openWindows.remove(this); }

SeekGraphHooks frmSeek::graphHooks() {
    return {
        .setCaption = [this](const std::string& caption) { setWindowTitle(shownStart(caption)); },
        .answered = [this] { poll_.again(); },
    };
}

SeekPollHooks frmSeek::pollHooks() {
    return {
        .startTimer = [this](int milliseconds) { tmrSeek_.start(milliseconds); },
        .stopTimer = [this] { tmrSeek_.stop(); },
        .millisecondsOfDay = [] { return wallClock.msOfDay(); },
        .BusyTest = roads_.BusyTest,
        .zSetstate = roads_.zSetstate,
        .zSendMsg = roads_.zSendMsg,
        .enableSeek = [this] { cmdSeek_->setEnabled(true); },
    };
}

void frmSeek::build() {
    plot_ = new SeekPlot(graph_, this);
    plot_->setObjectName(QStringLiteral("picSeek"));
    connect(plot_, &SeekPlot::dotPressed, this, &frmSeek::pressed);
    connect(plot_, &SeekPlot::dotPointedAt, this, &frmSeek::pointedAt);
    cmdSeek_ = new QPushButton(tr("&Seek"), this);
    cmdSeek_->setObjectName(QStringLiteral("cmdSeek"));
    cmdSeek_->setToolTip(tr("Compose a seek of your own"));
    cmdSeek_->setEnabled(false);
    cmdSeek_->installEventFilter(this);
    connect(cmdSeek_, &QPushButton::clicked, this, &frmSeek::cmdSeekClick);
    cmddummy_ = new QWidget(this);
    cmddummy_->setObjectName(QStringLiteral("cmddummy"));
    cmddummy_->setAccessibleName(tr("Seek graph"));
    cmddummy_->setAccessibleDescription(
        tr("Arrow keys walk through the seeks, Enter plays the chosen one; other keys type in the console"));
    stbSeek_ = new ElidedLabel(this);
    stbSeek_->setObjectName(QStringLiteral("stbSeek"));
    stbSeek_->setContentsMargins(StatusIndent, 0, 0, 0);
    fitFonts();
}

void frmSeek::buildMenu() {
    mnuCmd_ = new QMenu(this);
    mnuCmd_->setObjectName(QStringLiteral("mnuCmd"));
    const auto sending = [this](const char* name, const char* caption, const std::string& command) {
        onChosen(addEntry(mnuCmd_, name, caption), this, [this, command] { roads_.zSendMsg(command + PopupName_); });
    };
    sending("mnuFinger", "&Finger", "fi ");
    sending("mnuAssess", "&Assess", "ass ");
    sending("mnuPlay", "&Play", "Play ");
    onChosen(addEntry(mnuCmd_, "mnuHistory", "&History"), this, [this] {
        modChess.gHelpTopic = PopupName_;
        roads_.startHistory();
    });
    onChosen(addEntry(mnuCmd_, "mnuMatch", "&Match"), this, [this] { mnuMatch(); });
}

void frmSeek::load() {
    roads_.zSendMsg("Set Seek 0"); // the table tells what the announcements would
    placer_.restore(roads_.store, SeekSection, twipsOf(DesignedSize));
    zSize();
    openWindows.add({.className = "frmSeek",
                     .window = this,
                     .unload =
                         [this] {
                             userCloses_ = false;
                             close();
                         },
                     .answered = [this] { zGraph(); },
                     .takeLook =
                         [this] {
                             takeColors();
                             zSize();
                         }});
    modChess.gSeekOn = true;
    cmddummy_->setFocus();
    takeColors();
    poll_.start();
}

WindowPlace frmSeek::startPlace() { return designedPlace(twipsOf(DesignedSize)); }

void frmSeek::takeColors() {
    const bool white = modChess.SeekWhite != 0;
    plot_->setColors(white ? White : modChess.ColorBackground, white ? Black : modChess.ColorMain);
}

void frmSeek::fitFonts() {
    cmdSeek_->setFont(fittingFont(font(), ButtonHeight - ButtonMargin));
    stbSeek_->setFont(fittingFont(font(), StatusHeight));
}

void frmSeek::zGraph() {
    if (NeedResize_) zSize();
    NeedResize_ = false;
    graph_.zGraph();
    plot_->redraw();
}

void frmSeek::zSize() {
    const RaisedFlag busy(SizeBusy_);
    const bool tall = roads_.tallTitleBars();
    const Extent whole = graph_.geometry.zSize(twipsOf(size()), tall);
    below_ = Below + (tall ? TallTitleBar : 0);
    if (!isMaximized() && !isFullScreen()) resize(pixelsFor(whole.Width), pixelsFor(whole.Height));
    laidOut_ = size();
    arrange();
    plot_->redraw();
    cmddummy_->setFocus();
}

void frmSeek::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (!SizeBusy_ && size() != laidOut_) NeedResize_ = true;
    arrange();
}

void frmSeek::arrange() {
    plot_->setGeometry(0, 0, width(), height() - below_);
    const QSize button(cmdSeek_->sizeHint().width(), ButtonHeight);
    const int right = static_cast<int>(plot_->pixels(graph_.geometry.RightX));
    cmdSeek_->setGeometry({{right - button.width(), plot_->height() + ButtonTop}, button});
    stbSeek_->setGeometry(0, height() - StatusHeight, width(), StatusHeight);
    cmddummy_->move(width() + DummyAside, 0);
}

void frmSeek::showIt(const SeekRoads& roads) {
    auto* graph = loadedWindow<frmSeek>();
    if (graph == nullptr) {
        graph = new frmSeek(roads); // deletes itself after closing
        graph->load();
    }
    bringInFront(*graph);
}

void frmSeek::closeEvent(QCloseEvent* event) {
    event->accept();
    if (std::exchange(closed_, true)) return;
    placer_.unminimise();
    if (userCloses_) roads_.closedByUser();
    modChess.gSeekOn = false;
    poll_.stop();
    zSaveReg(roads_.store, SeekSection, place());
    modChess.gConsoleQuiet = false;
    openWindows.remove(this);
}

// The pointer

// The table is asked at this moment: while an answer comes in it may hold newer ads than the dots show.
void frmSeek::pressed(int dot, Qt::MouseButton button) {
    const SeekAd& ad = roads_.ads.SeekAds[dot];
    if (button == Qt::LeftButton) {
        play(ad.AdNumber);
        return;
    }
    PopupName_ = seekerOf(ad);
    boxes.popup(*mnuCmd_, [](QAction*) {});
}

void frmSeek::pointedAt(int dot) {
    const QString text = dot < 0 ? QString() : shownText(adText(roads_.ads.SeekAds[dot]));
    if (text == stbSeek_->text()) return;
    stbSeek_->setText(text);
    QToolTip::hideText(); // by itself it goes when the pointer leaves the whole graph
    plot_->setToolTip(tipText(text));
}

void frmSeek::play(int number) { roads_.zSendMsg("Play " + std::to_string(number)); }

void frmSeek::cmdSeekClick() {
    cmddummy_->setFocus();
    modChess.MatchMode = false;
    frmMatch::showIt(roads_.match);
}

void frmSeek::mnuMatch() {
    modChess.MatchMode = true;
    frmMatch::showIt(roads_.match).setOpponent(PopupName_);
}

// The keyboard

// A button would else keep the arrows and the blank for itself.
bool frmSeek::eventFilter(QObject*, QEvent* event) {
    return event->type() == QEvent::KeyPress && answerKey(*static_cast<QKeyEvent*>(event));
}

void frmSeek::keyPressEvent(QKeyEvent* event) {
    if (!answerKey(*event)) QWidget::keyPressEvent(event);
}

bool frmSeek::answerKey(const QKeyEvent& event) {
    const int key = event.key();
    if (isCharacter(event)) {
        roads_.typeInConsole(bytesOf(event.text()));
    } else if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) {
        return false;
    } else if (key == Qt::Key_Escape) {
        plot_->choose(-1);
        cmddummy_->setFocus();
    } else if (isEnter(event) && cmdSeek_->hasFocus()) {
        cmdSeek_->click();
    } else if (isEnter(event) && plot_->chosenDot() >= 0) {
        play(graph_.dots[plot_->chosenDot()].AdNumber);
    } else {
        return plot_->walk(key);
    }
    return true;
}
