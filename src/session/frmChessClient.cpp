// The console window: its build, its load and its close-down.
#include "session/frmChessClient.h"

#include "common/Fault.h"
#include "common/modChess.h"
#include "platform/Colors.h"
#include "platform/OpenWindows.h"
#include "platform/StreamText.h"
#include "settings/Settings.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QVBoxLayout>

namespace {

constexpr QSize DesignedSize(760, 560); // pixels
constexpr int ConsolePointSize = 9;
constexpr int FirstTick = 1000; // milliseconds, of tmrTCP

// Pixels. What the console leaves of the window, and how that is shared out.
constexpr int Beside = 37;
constexpr int BelowAndAbove = 71;
constexpr int TallTitleBar = 9;
constexpr int TopMargin = 6;
constexpr int RowGap = 7;
constexpr int RowHeight = 24;
constexpr int TellWidth = 21;

QPushButton* commandButton(QWidget* parent, const char* name, const char* caption) {
    auto* button = new QPushButton(QString::fromLatin1(caption), parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setFocusPolicy(Qt::NoFocus);
    button->setFixedSize(button->fontMetrics().horizontalAdvance(button->text()) + 18, RowHeight);
    return button;
}

// The prescribed font is a bitmap font of old; where it is missing the system's fixed font stands in.
QFont consoleFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setFamilies({QStringLiteral("fixedsys"), font.family(), QStringLiteral("monospace")});
    font.setStyleHint(QFont::TypeWriter);
    font.setPointSize(ConsolePointSize);
    return font;
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
    openWindows.add({"frmChessClient", this, [this] { close(); }});
}

frmChessClient::~frmChessClient() { openWindows.remove(this); }

QWidget* frmChessClient::buildInner() {
    auto* inner = new QWidget(this);
    auto* column = new QVBoxLayout(inner);
    column->setSpacing(RowGap);
    txtOutput = new Console(inner);
    txtOutput->setMinimumHeight(60);
    column->addWidget(txtOutput, 1);
    column->addWidget(buildRow());
    return inner;
}

// The prompt, the command line and the buttons stand in one row below the console.
QWidget* frmChessClient::buildRow() {
    auto* bar = new QWidget(this);
    bar->setFixedHeight(RowHeight);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    lblPrompt = new QLabel(bar);
    lblPrompt->setObjectName(QStringLiteral("lblPrompt"));
    lblPrompt->setTextFormat(Qt::PlainText);
    lblPrompt->setMaximumWidth(140);
    txtSend = new TypingLine(bar);
    txtSend->setMinimumWidth(120);
    txtSend->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    row->addWidget(lblPrompt);
    row->addWidget(txtSend, 1);
    row->addLayout(buildTellButtons(bar));
    cmdAcc = commandButton(bar, "cmdAcc", "Accept");
    cmdDec = commandButton(bar, "cmdDec", "Decline");
    cmdChat = commandButton(bar, "cmdChat", "Chat");
    for (QPushButton* button : {cmdAcc, cmdDec, cmdChat}) row->addWidget(button);
    return bar;
}

QLayout* frmChessClient::buildTellButtons(QWidget* bar) {
    auto* row = new QHBoxLayout;
    row->setSpacing(1);
    for (std::size_t index = 0; index < cmdTell.size(); ++index) {
        cmdTell[index] = new QToolButton(bar);
        cmdTell[index]->setObjectName(QStringLiteral("cmdTell(%1)").arg(index));
        cmdTell[index]->setText(QString::number((index + 1) % 10));
        cmdTell[index]->setAccessibleName(tr("Button command %1").arg(index + 1));
        cmdTell[index]->setFocusPolicy(Qt::NoFocus);
        cmdTell[index]->setFixedSize(TellWidth, RowHeight);
        row->addWidget(cmdTell[index]);
    }
    return row;
}

// The console is the window less fixed margins; tall title bars take a little more of the height.
void frmChessClient::fitMargins() {
    const int below = BelowAndAbove + (menus.mnuXP->isChecked() ? TallTitleBar : 0);
    const int bottom = below - menuBar()->height() - TopMargin - RowGap - RowHeight;
    centralWidget()->layout()->setContentsMargins(Beside / 2, TopMargin, Beside - Beside / 2, std::max(4, bottom));
}

void frmChessClient::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    fitMargins();
}

void frmChessClient::load() {
    zStartValues();
    const QStringList arguments = QApplication::arguments().mid(1);
    if (arguments.join(u' ') == QStringLiteral("test")) QDir::setCurrent(QDir::tempPath());
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
    const Extent screenSize = screenOf(*this);
    if (!registryWritten()) placer_.moveTo(centred(designed, screenSize)); // the rule below moves it again
    const WindowPlace read{settings.Left, settings.Top, settings.Width, settings.Height};
    placer_.moveTo(placed(read, designed, screenSize, ClientLimit));
}

void frmChessClient::takeLook() {
    QFont font = consoleFont();
    txtOutput->setColor(modChess.ColorMain);
    txtOutput->setPaper(modChess.ColorBackground);
    txtSend->setColors(modChess.ColorBar, modChess.ColorType);
    if (!modChess.MainFont.empty()) font.setFamilies({shownText(modChess.MainFont)});
    txtOutput->setFont(font);
    txtSend->setFont(font);
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
    for (std::size_t index = 0; index < cmdTell.size(); ++index) {
        const QString command = shownText(settings.Tell[long(index)]);
        cmdTell[index]->setToolTip(command);
        cmdTell[index]->setEnabled(!command.isEmpty());
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
