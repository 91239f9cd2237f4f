// The console window: what it gives the session to work with, and what it gives the boards.
#include "session/frmChessClient.h"

#include "common/modChess.h"
#include "platform/Boxes.h"
#include "platform/Clock.h"
#include "platform/ConsoleFont.h"
#include "platform/MessageLoop.h"
#include "platform/OpenWindows.h"
#include "platform/StreamText.h"
#include "records/MoveListRequest.h"
#include "view/frmBoardColors.h"

#include <QApplication>

SessionSurface frmChessClient::surface() {
    return {
        .socket = socketSurface(),
        .timers = timerSurface(),
        .console = consoleSurface(),
        .typing = typingSurface(),
        .client = clientSurface(),
        .windows = windowSurface(),
        .user = userSurface(),
        .bridge = bridgeSurface(),
    };
}

SocketSurface frmChessClient::socketSurface() {
    return {
        .getData = [this] { return tcpClient_.GetData(); },
        .sendData = [this](const std::string& bytes) { tcpClient_.SendData(bytes); },
        .state = [this] { return static_cast<std::int16_t>(tcpClient_.State()); },
        .connectTo =
            [this](const std::string& host, std::int32_t port) {
                tcpClient_.RemoteHost = host;
                tcpClient_.RemotePort = port;
                tcpClient_.Connect();
            },
        .close = [this] { tcpClient_.Close(); },
    };
}

TimerSurface frmChessClient::timerSurface() {
    return {
        .start = [this](SessionTimer timer, int milliseconds) { timerOf(timer).start(milliseconds); },
        .stop = [this](SessionTimer timer) { timerOf(timer).stop(); },
        .millisecondsOfDay = [] { return wallClock.msOfDay(); },
    };
}

ConsoleSurface frmChessClient::consoleSurface() {
    return {
        .setColor = [this](std::int32_t color) { txtOutput->setColor(color); },
        .setEmphasis = [this] { txtOutput->setEmphasis(); },
        .insert = [this](const std::string& text) { txtOutput->insert(text); },
        .moveToEnd = [this] { txtOutput->moveToEnd(); },
        .length = [this] { return txtOutput->length(); },
    };
}

TypingSurface frmChessClient::typingSurface() {
    return {
        .text = [this] { return txtSend->line(); },
        .setText = [this](const std::string& text) { txtSend->setLine(text); },
        .caretToEnd = [this] { txtSend->end(false); },
        .focus = [this] { txtSend->setFocus(); },
        .activate =
            [this] {
                if (QApplication::activeWindow()) activateWindow(); // of ours; another program keeps the keyboard
            },
        .mask = [this](bool masked) { txtSend->setEchoMode(masked ? QLineEdit::Password : QLineEdit::Normal); },
    };
}

ClientSurface frmChessClient::clientSurface() {
    return {
        .caption = [this] { return bytesOf(windowTitle()); },
        .setCaption = [this](const std::string& caption) { setWindowTitle(shownStart(caption)); },
        .promptCaption = [this] { return bytesOf(lblPrompt->text()); },
        .setPromptCaption = [this](const std::string& caption) { lblPrompt->setText(shownStart(caption)); },
        .ticksChanged = [this] { takeMenuTicks(); },
    };
}

WindowSurface frmChessClient::windowSurface() {
    return {
        .openBoard =
            [this] {
                menus.mnuBoard->setEnabled(false);
                roads_.openBoard();
            },
        .openChat = [this] { openChat(); },
        .showSeek = [this] { roads_.showSeek(); },
        .unloadSeek = [] { openWindows.unload("frmSeek"); },
        .startHistory = [this] { roads_.startHistory(); },
        .startHelp = [this] { roads_.doors.startHelp(); },
        .zParseVars = [this] { roads_.zParseVars(); },
        .zParseNotes = [this] { roads_.zParseNotes(); },
    };
}

UserSurface frmChessClient::userSurface() {
    return {
        .beep = [] { QApplication::beep(); },
        .playSound = [this](std::string_view name, std::int16_t mode) { roads_.playSound(name, mode); },
        .message =
            [this](const std::string& text) {
                QWidget* active = QApplication::activeWindow(); // which has the keyboard again behind the box
                boxes.message(active ? active : this, "Brightrank", text);
            },
        .yesNo = [this](const std::string& text) { return boxes.yesNo(this, "Brightrank", text); },
        .input =
            [this](const std::string& prompt, const std::string& title) {
                return boxes.input(this, prompt, title, std::string()).value_or(std::string());
            },
    };
}

BridgeSurface frmChessClient::bridgeSurface() {
    return {
        .wait = [](double seconds) { zWait(seconds); },
        .programFound = TimesealBridge::programFound,
        .startProgram = [this](const std::vector<std::string>& arguments) { bridge_.start(arguments); },
        .zTimeSealHandle = [this] { return bridge_.zTimeSealHandle(); },
        .requestEnd = [this](std::int32_t handle) { bridge_.requestEnd(handle); },
    };
}

SeekRoads frmChessClient::seekRoads(const MatchRoads& match) {
    return {
        .store = roads_.store,
        .ads = session.seekAds,
        .match = match,
        .zSendMsg = [this](const std::string& text) { session.road.zSendMsg(text); },
        .BusyTest = TextPipeline::BusyTest,
        .zSetstate = [this](std::int16_t state) { session.pipeline.zSetstate(state); },
        .typeInConsole =
            [this](const std::string& characters) {
                activateWindow();
                typeOn(characters);
            },
        .tallTitleBars = [this] { return menus.mnuXP->isChecked(); },
        .startHistory = roads_.startHistory,
        .closedByUser = [this] { tickSeek(false); },
    };
}

HistoryRoads frmChessClient::historyRoads() {
    return {
        .store = roads_.store,
        .lists = session.historyLists,
        .zSendMsg = [this](const std::string& text) { session.road.zSendMsg(text); },
        .BusyTest = TextPipeline::BusyTest,
        .zSetstate = [this](std::int16_t state) { session.pipeline.zSetstate(state); },
        .zGetMoves = [this](const std::string& arguments) { session.zGetMoves(ByHandle, arguments); },
        .handle = [this] { return session.logOn.handle; },
        .tell = [this](const std::string& text) { session.tell(text); },
    };
}

PanelRoads frmChessClient::panelRoads() {
    return {
        .store = roads_.store,
        .zSendMsg = [this](const std::string& text) { session.road.zSendMsg(text); },
        .BusyTest = TextPipeline::BusyTest,
        .zSetstate = [this](std::int16_t state) { session.pipeline.zSetstate(state); },
    };
}

HelpRoads frmChessClient::helpRoads() {
    return {
        .panel = panelRoads(),
        .capture = session.helpCapture,
    };
}

OptionsRoads frmChessClient::optionsRoads(Sounds& sounds) {
    return {
        .store = roads_.store,
        .account =
            [this] {
                return OptionsAccount{session.logOn.handle, session.logOn.password, settings.Tell};
            },
        .takeAccount =
            [this](const OptionsAccount& account) {
                settings.Tell = account.Tell;
                takeTells();
                session.logOn.handle = account.handle;
                session.logOn.password = account.password;
            },
        .testWave = [&sounds](std::string_view name) { sounds.testWave(name); },
        .testBeep = [&sounds] { sounds.testBeep(); },
        .showBoardColors = frmBoardColors::showAt,
    };
}

ExamineRoads frmChessClient::examineRoads(const Needed<QWidget*(std::int32_t id)>& board) {
    return {
        .board = board,
        .handle = [this] { return session.logOn.handle; },
        .zSendMsg = [this](const std::string& text) { session.road.zSendMsg(text); },
        .zGetMoves = [this](std::int16_t relation,
                            const std::string& arguments) { session.zGetMoves(relation, arguments); },
    };
}

void frmChessClient::connectSocket() {
    tcpClient_.onClose = [this] { session.socketClosed(); };
    tcpClient_.onError = [this](const std::string& description) { session.socketError(description); };
    tcpClient_.onDataArrival = [this](std::int32_t) { session.zDataArrival(); };
    tcpClient_.prompt = [] { return modChess.gPrompt; };
}

void frmChessClient::connectTimers() {
    for (int index = 0; index < SessionTimers; ++index) {
        const auto which = static_cast<SessionTimer>(index);
        QTimer& timer = timerOf(which);
        timer.setSingleShot(which != SessionTimer::tmrTCP && which != SessionTimer::tmrClose);
        if (timer.isSingleShot()) timer.setTimerType(Qt::PreciseTimer); // others may fire 5% early
        connect(&timer, &QTimer::timeout, this, [this, which] { session.timerFired(which); });
    }
}

BoardRoads frmChessClient::boardRoads() {
    return {
        .store = roads_.store,
        .history = session.road.history,
        .zSendMsg = [this](const std::string& text) { session.road.zSendMsg(text); },
        .zSend =
            [this](const std::string& text) {
                if (session.outside.socket.state() != ServerRoad::Connected) return false;
                session.road.zSend(text);
                return true;
            },
        .print = [this](const std::string& text) { session.print(text); },
        .zWriteGame = [this](const std::string& fileName,
                             const GameRecord& record) { session.zWriteGame(fileName, record); },
        .playSound = [this](std::string_view name, std::int16_t mode) { roads_.playSound(name, mode); },
        .tellText = [this](int index) { return settings.Tell[index]; },
        .showMatch = roads_.showMatch,
        .showSeek = [this] { wantSeek(); },
        .showExamine = roads_.showExamine,
        .doors = roads_.doors,
        .consoleFrame = [this] { return frameGeometry(); },
        .enableBoardMenu = [this] { menus.mnuBoard->setEnabled(true); },
    };
}
