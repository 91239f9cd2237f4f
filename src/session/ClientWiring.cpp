// The console window: how its parts reach each other, the socket, the boards and the screen.
#include "session/frmChessClient.h"

#include "common/modChess.h"
#include "platform/Boxes.h"
#include "platform/Clock.h"
#include "platform/MessageLoop.h"
#include "platform/OpenWindows.h"
#include "platform/StreamText.h"

#include <QApplication>

namespace {

constexpr double LoopTurn = 0.01; // seconds; lets the processor rest while a relay is waited for

template <typename Act>
void eachBoard(Act act) {
    for (const OpenWindow& open : openWindows.windows) {
        if (open.game != nullptr) act(*open.game);
    }
}

void clearBoard(Game& game) {
    for (int panel = 1; panel <= 3; ++panel) game.surface.setPanel(panel, std::string());
    game.surface.setTitle("Brightrank - Board");
    game.currentGame.clear();
}

} // namespace

void frmChessClient::wirePipeline() {
    PipelineHooks& hooks = pipeline.hooks;
    const auto timer = [this](SessionTimer which) -> QTimer& {
        return which == SessionTimer::tmrArrival  ? tmrArrival_
               : which == SessionTimer::tmrPrompt ? tmrPrompt_
                                                  : tmrState_;
    };
    hooks.getData = [this] { return tcpClient_.GetData(); };
    hooks.startTimer = [timer](SessionTimer which, int milliseconds) { timer(which).start(milliseconds); };
    hooks.stopTimer = [timer](SessionTimer which) { timer(which).stop(); };
    hooks.millisecondsOfDay = [] { return wallClock.msOfDay(); };
    hooks.clearMask = [this] { txtSend->setEchoMode(QLineEdit::Normal); };
    hooks.textArrived = [this] { connection.textArrived(); };
    hooks.showHandle = [](const std::string& handle) {
        eachBoard([&handle](Game& game) { game.surface.setPanel(1, handle); });
    };
    hooks.promptCaption = [this] { return bytesOf(lblPrompt->text()); };
    hooks.setPromptCaption = [this](const std::string& caption) { lblPrompt->setText(shownText(caption)); };
    hooks.dataParse = [this](const std::string& batch) { classifier.zDataParse(batch); };
}

void frmChessClient::wireClassifier() {
    ClassifierHooks& hooks = classifier.hooks;
    hooks.zStyle12Line = [this](const std::string& line) { return routing.zStyle12Line(line, true); };
    hooks.zFindBoard = [](std::int16_t game) { return zFindBoard(game); };
    hooks.zSetBughouse = [](int board, const std::string& line) { boardAt(board).zSetBughouse(line); };
    hooks.zSetPosition = [](int board) { boardAt(board).zSetPosition(false); };
    hooks.zExitMove = [](int board) { boardAt(board).zExitMove(); };
    hooks.showBoard = [](int board) { boardAt(board).surface.bringToFront(); };
    hooks.zEndGame = [this](const std::string& line) { routing.zEndGame(line); };
    hooks.setEmphasis = [this] { txtOutput->setEmphasis(); };
    hooks.setColor = [this](std::int32_t color) { txtOutput->setColor(color); };
    hooks.insert = [this](const std::string& text) { txtOutput->insert(text); };
    hooks.setLogin = [this](std::int16_t login) { pipeline.login = login; };
    hooks.maskTyping = [this] { txtSend->setEchoMode(QLineEdit::Password); };
    hooks.autoLogonKey = [this] {
        QTimer::singleShot(0, this, [this] {
            if (QApplication::activeWindow()) activateWindow(); // of ours; another program keeps the keyboard
            txtSend->setFocus();
            if (pipeline.login != 0) typingKeys.typingKeyDown(KeyUp, false);
        });
    };
    hooks.playSound = [this](const char* name, std::int16_t mode) { roads_.playSound(name, mode); };
    hooks.beep = [] { QApplication::beep(); };
    hooks.zSendMsg = [this](const std::string& text) { road.zSendMsg(text); };
}

void frmChessClient::wireBoards() {
    routing.hooks.openBoard = [this] {
        menus.mnuBoard->setEnabled(false);
        return roads_.openBoard();
    };
    routing.hooks.pump = pumpMessages;
    routing.hooks.beep = [] { QApplication::beep(); };
    routing.hooks.playSound = [this](std::string_view name, std::int16_t mode) { roads_.playSound(name, mode); };
    routing.hooks.seekGraphChecked = [this] { return menus.mnuSeekGrf->isChecked(); };
}

void frmChessClient::wireRoad() {
    RoadHooks& hooks = road.hooks;
    hooks.sendData = [this](const std::string& bytes) { tcpClient_.SendData(bytes); };
    hooks.socketState = [this] { return static_cast<std::int16_t>(tcpClient_.State()); };
    hooks.login = [this] { return pipeline.login; };
    hooks.handle = [this] { return logOn.handle; };
    hooks.echo = [this](const std::string& text) {
        txtOutput->moveToEnd();
        txtOutput->setColor(modChess.ColorCopy);
        txtOutput->insert(text);
        txtOutput->moveToEnd();
        txtOutput->setColor(modChess.ColorMain);
    };
    hooks.tell = [this](const std::string& text) {
        txtOutput->moveToEnd();
        txtOutput->setColor(modChess.ColorMain);
        txtOutput->insert(text);
    };
    hooks.showHelp = [this] { road.askInPlaceOfPanel("Help "); };
    hooks.showHistory = [this] { road.askInPlaceOfPanel("History "); };
}

void frmChessClient::wireSocket() {
    tcpClient_.onClose = [this] { connection.socketClosed(); };
    tcpClient_.onError = [this](const std::string& description) { connection.socketError(description); };
    tcpClient_.onDataArrival = [this](std::int32_t) {
        pipeline.zDataArrival();
        tcpClient_.resume();
    };
    tcpClient_.backlog = [this] { return pipeline.PendingText.size(); };
    // The rest of a long answer is here and has no room. Silence, which would let its front go, is now of our own
    // making.
    tcpClient_.onWithheld = [this] {
        if (pipeline.ParseBusy) return;
        pipeline.tmrArrival();
        tcpClient_.resume();
    };
    tcpClient_.busy = [this] { return pipeline.ParseBusy; };
    tcpClient_.prompt = [] { return modChess.gPrompt; };
}

void frmChessClient::wireConnection() {
    ConnectionHooks& hooks = connection.hooks;
    hooks.connectTo = [this](const std::string& host, std::int32_t port) {
        tcpClient_.RemoteHost = host;
        tcpClient_.RemotePort = port;
        tcpClient_.Connect();
    };
    hooks.closeSocket = [this] { tcpClient_.Close(); };
    hooks.socketState = [this] { return tcpClient_.State(); };
    hooks.setCaption = [this](const std::string& caption) { setWindowTitle(shownText(caption)); };
    hooks.checksChanged = [this] { takeMenuTicks(); };
    hooks.setTickInterval = [this](int milliseconds) { tmrTCP_.start(milliseconds); };
    hooks.enableCloseTimer = [this](bool on) { on ? tmrClose_.start() : tmrClose_.stop(); };
    hooks.beep = [] { QApplication::beep(); };
    hooks.message = [this](const std::string& text) { boxes.message(this, "Brightrank", text); };
    hooks.yesNo = [this](const std::string& text) { return boxes.yesNo(this, "Brightrank", text); };
    hooks.input = [this](const std::string& prompt, const std::string& title) {
        return boxes.input(this, prompt, title, std::string()).value_or(std::string());
    };
    hooks.countIdle = [this](bool isConnected) { road.countIdle(isConnected); };
    hooks.endAllGames = [this] { routing.zEndAllGames(); };
    hooks.clearBoards = [] { eachBoard(clearBoard); };
    wireBridge();
}

void frmChessClient::wireBridge() {
    ConnectionHooks& hooks = connection.hooks;
    hooks.wait = [](double seconds) { zWait(seconds); };
    hooks.pump = [] { zWait(LoopTurn); };
    hooks.bridgeProgramFound = TimesealBridge::programFound;
    hooks.startBridge = [this](const std::vector<std::string>& arguments) { bridge_.start(arguments); };
    hooks.zTimeSealHandle = [this] { return bridge_.zTimeSealHandle(); };
    hooks.closeTimeSeal = [this](std::int32_t handle) { bridge_.requestEnd(handle); };
}

void frmChessClient::wireTimers() {
    for (QTimer* once : {&tmrArrival_, &tmrPrompt_, &tmrState_}) {
        once->setSingleShot(true);
        once->setTimerType(Qt::PreciseTimer); // others may fire 5% early
    }
    tmrTCP_.setInterval(1000);
    tmrClose_.setInterval(550);
    connect(&tmrArrival_, &QTimer::timeout, this, [this] {
        pipeline.tmrArrival();
        tcpClient_.resume();
    });
    connect(&tmrPrompt_, &QTimer::timeout, this, [this] { pipeline.tmrPrompt(); });
    connect(&tmrState_, &QTimer::timeout, this, [this] { pipeline.tmrState(); });
    connect(&tmrTCP_, &QTimer::timeout, this, [this] { connection.tmrTCPTimer(); });
    connect(&tmrClose_, &QTimer::timeout, this, [this] { connection.tmrCloseTimer(); });
}

BoardRoads frmChessClient::boardRoads() {
    BoardRoads roads;
    roads.store = roads_.store;
    roads.history = &road.history;
    roads.zSendMsg = [this](const std::string& text) { road.zSendMsg(text); };
    roads.zSend = [this](const std::string& text) {
        if (road.hooks.socketState() != ServerRoad::Connected) return false;
        road.zSend(text);
        return true;
    };
    roads.playSound = [this](std::string_view name, std::int16_t mode) { roads_.playSound(name, mode); };
    roads.tellText = [this](int index) { return settings.Tell[index]; };
    roads.showMatch = roads_.showMatch;
    roads.typingFont = [this] { return txtSend->font(); };
    roads.enableBoardMenu = [this] { menus.mnuBoard->setEnabled(true); };
    return roads;
}
