// The console window: its build, its load and its close-down.
#include "session/frmChessClient.h"

#include "common/Fault.h"
#include "common/modChess.h"
#include "platform/ConsoleFont.h"
#include "platform/OpenWindows.h"
#include "platform/OwnFiles.h"
#include "platform/StreamText.h"
#include "platform/TipText.h"
#include "platform/UserFolder.h"
#include "settings/Settings.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QMenuBar>
#include <QVBoxLayout>

namespace {

constexpr QSize DesignedSize(760, 560); // pixels
constexpr int FirstTick = 1000;         // milliseconds, of tmrTCP

// Pixels. What the console leaves of the window, and how that is shared out.
constexpr int Beside = 37;
constexpr int BelowAndAbove = 71;
constexpr int TallTitleBar = 9;
constexpr int TopMargin = 6;
constexpr int RowGap = 7;
constexpr int LeastMargin = 2;

// Where the program works with the argument "test". No folder that others share: a relay, sounds and files are looked
// for there.
std::string testFolder() {
    return QFile::encodeName(userFolder("XDG_CACHE_HOME", ".cache")).toStdString() + "/Brightrank/test";
}

} // namespace

frmChessClient::frmChessClient(const ClientRoads& roads) : roads_(roads) {
    setObjectName(QStringLiteral("frmChessClient"));
    setWindowTitle(QStringLiteral("Brightrank - Client"));
    menus.build(*menuBar());
    setCentralWidget(buildInner());
    resize(DesignedSize);
    connectSocket();
    connectTimers();
    connectKeys();
    connectMenus();
    connectChat();
    openWindows.add({.className = "frmChessClient",
                     .window = this,
                     .unload = [this] { close(); },
                     .takeLook = [this] { takeLook(); }});
}

frmChessClient::~frmChessClient() { openWindows.remove(this); }

QWidget* frmChessClient::buildInner() {
    auto* inner = new QWidget(this);
    auto* column = new QVBoxLayout(inner);
    txtOutput = new Console(inner);
    txtOutput->setMinimumHeight(60);
    row_ = new CommandRow(inner);
    txtSend = row_->txtSend;
    lblPrompt = row_->lblPrompt;
    connect(row_, &CommandRow::fitted, this, &frmChessClient::fitMargins);
    column->addWidget(txtOutput, 1);
    column->addWidget(row_);
    return inner;
}

// The console is the window less fixed margins, in which menus and row stand; tall title bars take a little more of the
// height, and so do more rows and larger letters than there is room for.
void frmChessClient::fitMargins() {
    const int below = BelowAndAbove + (menus.mnuXP->isChecked() ? TallTitleBar : 0);
    const int rest = std::max(3 * LeastMargin, below - menuBar()->height() - row_->height());
    const int top = std::min(TopMargin, rest / 3);
    const int gap = std::min(RowGap, rest / 3);
    QLayout* column = centralWidget()->layout();
    column->setSpacing(gap);
    column->setContentsMargins(Beside / 2, top, Beside - Beside / 2, rest - top - gap);
}

void frmChessClient::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    fitMargins();
}

void frmChessClient::load() {
    zStartValues();
    const QStringList arguments = QApplication::arguments().mid(1);
    if (arguments.join(u' ') == QStringLiteral("test")) goToOwnFolder(testFolder());
    session.connection.StartDirectory = QDir::currentPath().toLocal8Bit().toStdString();
    settings.Width = twipsOf(DesignedSize).Width;
    settings.Height = twipsOf(DesignedSize).Height;
    zGetReg(roads_.store, settings);
    applySettings();
    loadPlace();
    takeLook();
    session.classifier.LineColor = modChess.ColorMain;
    session.connection.ClosedByUser = true;
    show();
    txtSend->setFocus();
    passOver([this] { session.routing.hooks.zNewBoard(); });
    timerOf(SessionTimer::tmrTCP).start(FirstTick);
}

void frmChessClient::loadPlace() {
    const Extent designed = twipsOf(DesignedSize);
    if (!registryWritten()) placer_.moveTo(centred(designed, screenOf(*this))); // the rule below moves it again
    const WindowPlace read{settings.Left, settings.Top, settings.Width, settings.Height};
    placer_.moveTo(placed(read, designed, screensFor(read), ClientLimit));
}

void frmChessClient::takeLook() {
    txtOutput->setPaper(modChess.ColorBackground);
    txtOutput->setFont(consoleFont());
    txtOutput->setAllColor(modChess.ColorMain);
    txtSend->setColors(modChess.ColorBar, modChess.ColorType);
    txtSend->setFont(consoleFont());
}

void frmChessClient::closeEvent(QCloseEvent* event) {
    queryUnload();
    event->accept();
}

void frmChessClient::queryUnload() {
    if (std::exchange(unloaded_, true)) return;
    modChess.AppClosing = true;
    const auto another = [this] { return openWindows.windows.front().window == this ? 1U : 0U; };
    while (openWindows.windows.size() > 1) {
        const OpenWindow next = openWindows.windows[another()];
        next.unload();
        openWindows.remove(next.window); // one that refused is taken down with the program
    }
    placer_.unminimise();
    tcpClient_.Close();
    collectSettings();
    zSaveReg(roads_.store, settings);
    session.connection.bridge.zTerminateTimeSeal();
    stopEverything();
    Q_EMIT closed();
}

void frmChessClient::stopEverything() {
    tcpClient_.Close();
    for (QTimer& timer : timers_) timer.stop();
}

void frmChessClient::applySettings() {
    session.connection.LastServer = settings.LastServer;
    session.connection.mnuUseTS = settings.mnuUseTS;
    session.connection.mnuAutoCon = settings.mnuAutoCon;
    session.connection.mnuAutoLogon = settings.mnuAutoLogon;
    session.logOn.handle = settings.Handle;
    session.logOn.password = settings.Password;
    menus.mnuSeekGrf->setChecked(settings.mnuSeekGrf);
    menus.mnuXP->setChecked(settings.mnuXP);
    takeMenuTicks();
    takeTells();
}

void frmChessClient::takeTells() {
    for (std::size_t index = 0; index < row_->cmdTell.size(); ++index) {
        const QString command = shownText(settings.Tell[long(index)]);
        row_->cmdTell[index]->setToolTip(tipText(command));
        row_->cmdTell[index]->setEnabled(!command.isEmpty());
    }
}

void frmChessClient::collectSettings() {
    const WindowPlace at = placer_.place();
    settings.Left = at.Left;
    settings.Top = at.Top;
    settings.Width = at.Width;
    settings.Height = at.Height;
    settings.mnuUseTS = session.connection.mnuUseTS;
    settings.mnuAutoCon = session.connection.mnuAutoCon;
    settings.mnuAutoLogon = session.connection.mnuAutoLogon;
    settings.mnuSeekGrf = menus.mnuSeekGrf->isChecked();
    settings.mnuXP = menus.mnuXP->isChecked();
    settings.LastServer = session.connection.LastServer;
    settings.Handle = session.logOn.handle;
    settings.Password = session.logOn.password;
}
