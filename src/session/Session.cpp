// The conversation with the server: how its parts are joined.
#include "session/Session.h"

#include "common/RaisedFlag.h"
#include "common/modChess.h"
#include "panels/FingerNotes.h"
#include "panels/ServerVars.h"
#include "platform/OpenWindows.h"
#include "records/ListCapture.h"
#include "records/MoveListCapture.h"
#include "records/MoveListRequest.h"
#include "records/PgnWriter.h"
#include "seek/SoughtCapture.h"
#include "session/ChatBox.h"

#include <cstdlib>

namespace {

constexpr int CloseTick = 550;    // milliseconds
constexpr double LoopTurn = 0.01; // seconds; lets the processor rest while a relay is waited for

template <typename Act>
void eachBoard(Act act) {
    for (const OpenWindow& open : openWindows.windows) {
        if (Game* game = gameOf(open)) act(*game);
    }
}

void clearBoard(Game& game) {
    for (int panel = 1; panel <= 3; ++panel) game.surface.setPanel(panel, std::string());
    game.surface.setTitle("Brightrank - Board");
    game.currentGame.clear();
}

} // namespace

Session::Session(SessionSurface surface)
    : outside(std::move(surface)), pipeline(serverLines, pipelineHooks()),
      classifier(serverLines, captures, classifierHooks()), road(roadHooks()), logOn(pipeline, road, logOnHooks()),
      typingKeys(road, logOn, typingHooks()), blockMode(blockModeHooks()), connection(connectionHooks(), bridgeHooks()),
      routing(routingHooks()), chatRouting{outside.console.length} {
    captures.sought = {[this](const std::string& line, int index) {
                           return zSoughtLines(seekAds, line, [&] { serverLines.zClearLines(index); });
                       },
                       answersTo("frmSeek")};
    captures.vars = {[](const std::string& line, int) { return zVarsLines(line); }, outside.windows.zParseVars};
    captures.notes = {[](const std::string& line, int) { return zNotesLines(line); }, outside.windows.zParseNotes};
    captures.history = {readerOf(zHistoryLines), answersTo("frmHistory")};
    captures.journal = {readerOf(zJournalLines), answersTo("frmHistory")};
    captures.stored = {readerOf(zStoredLines), answersTo("frmHistory")};
    readMoveLists();
    readHelp();
}

void Session::readMoveLists() {
    captures.zMovesLines = [this](const std::string& line, int index) {
        const MovesLine read = ::zMovesLines(line, modChess.MovesRecord);
        if (read.taken) serverLines.zClearLines(index);
        return read.done;
    };
    captures.writePgn = [this] { zWriteGame(modChess.MovesFile, modChess.MovesRecord); };
    captures.zFindReviewBoard = [this] { return routing.zFindReviewBoard(); };
    captures.zReviewGame = [](int board) { boardAt(board).zReviewGame(); };
    captures.zFindBoard = zFindBoard;
    captures.zParseMoves = [](int board) { boardAt(board).zParseMoves(); };
}

std::function<bool(std::string& line, int index)> Session::readerOf(bool (*lines)(HistoryLists& lists,
                                                                                  const std::string& line)) {
    return [this, lines](const std::string& line, int) { return lines(historyLists, line); };
}

void Session::readHelp() {
    const HelpHooks hooks{.zSendMsg = [this](const std::string& text) { road.zSendMsg(text); },
                          .zSetstate = [this](std::int16_t state) { pipeline.zSetstate(state); }};
    captures.help = {[this, hooks](const std::string& line, int) { return zHandleHelp(helpCapture, line, hooks); },
                     answersTo("frmChessHelp")};
}

PipelineHooks Session::pipelineHooks() {
    return {
        .getData = outside.socket.getData,
        .startTimer = outside.timers.start,
        .stopTimer = outside.timers.stop,
        .millisecondsOfDay = outside.timers.millisecondsOfDay,
        .clearMask = [this] { outside.typing.mask(false); },
        .textArrived = [this] { connection.textArrived(); },
        .showHandle =
            [](const std::string& handle) { eachBoard([&handle](Game& game) { game.surface.setPanel(1, handle); }); },
        .promptCaption = outside.client.promptCaption,
        .setPromptCaption = outside.client.setPromptCaption,
        .dataParse = [this](const std::string& batch) { readBatch(batch); },
    };
}

ClassifierHooks Session::classifierHooks() {
    return {
        .zStyle12Line = [this](const std::string& line) { return routing.zStyle12Line(line, true); },
        .zFindBoard = zFindBoard,
        .zSetBughouse = [](int board, const std::string& line) { boardAt(board).zSetBughouse(line); },
        .zSetPosition = [](int board) { boardAt(board).zSetPosition(false); },
        .zExitMove = [](int board) { boardAt(board).zExitMove(); },
        .zGetMoves =
            [this](int board) {
                const Game& game = boardAt(board);
                zGetMoves(game.Style12Record.Relation, std::to_string(game.xGameNum()));
            },
        .showBoard = [](int board) { boardAt(board).surface.bringToFront(); },
        .zEndGame = [this](const std::string& line) { routing.zEndGame(line); },
        .zSoughtLine = zSoughtLine,
        .showSeek = outside.windows.showSeek,
        .unloadSeek = outside.windows.unloadSeek,
        .zChatBox = [this](const std::string& line) { return chatRouting.zChatBox(line); },
        .findChat = findChat,
        .setChatCaption = [](int chat, const std::string& caption) { chatAt(chat).hooks.setCaption(caption); },
        .setEmphasis = outside.console.setEmphasis,
        .setColor = outside.console.setColor,
        .insert = outside.console.insert,
        .logOnPrompt = [this](std::int16_t login) { logOn.prompt(login); },
        .playSound = outside.user.playSound,
        .beep = outside.user.beep,
        .zSendMsg = [this](const std::string& text) { road.zSendMsg(text); },
    };
}

RoadHooks Session::roadHooks() {
    return {
        .sendData = outside.socket.sendData,
        .socketState = outside.socket.state,
        .login = [this] { return pipeline.login; },
        .handle = [this] { return logOn.handle; },
        .echo =
            [this](const std::string& text) {
                insertAtEnd(text, modChess.ColorCopy);
                outside.console.moveToEnd();
                outside.console.setColor(modChess.ColorMain);
            },
        .showHelp = outside.windows.startHelp,
        .showHistory = outside.windows.startHistory,
    };
}

LogOnHooks Session::logOnHooks() {
    return {
        .maskTyping = [this] { outside.typing.mask(true); },
        .mnuAutoLogon = [this] { return connection.mnuAutoLogon; },
        .takeKeyboard = [this] { takeKeyboard(); },
        .startTimer = [this](int milliseconds) { outside.timers.start(SessionTimer::AutoLogon, milliseconds); },
        .enter = [this](const std::string& text) { typingKeys.enter(text); },
    };
}

TypingHooks Session::typingHooks() {
    return {
        .text = outside.typing.text,
        .setText = outside.typing.setText,
        .caretToEnd = outside.typing.caretToEnd,
        .focus = outside.typing.focus,
        .zNewChat = [this] { zNewChat(); },
    };
}

BlockModeHooks Session::blockModeHooks() {
    return {
        .caption = outside.client.caption,
        .setCaption = outside.client.setCaption,
        .insertAtEnd =
            [this](const std::string& text) {
                outside.console.moveToEnd();
                outside.console.insert(text);
            },
    };
}

ConnectionHooks Session::connectionHooks() {
    return {
        .connectTo =
            [this](const std::string& host, std::int32_t port) {
                logOn.connectionChanges();
                outside.socket.connectTo(host, port);
            },
        .closeSocket =
            [this] {
                logOn.connectionChanges();
                outside.socket.close();
            },
        .socketState = outside.socket.state,
        .setCaption = outside.client.setCaption,
        .checksChanged = outside.client.ticksChanged,
        .setTickInterval = [this](int milliseconds) { outside.timers.start(SessionTimer::tmrTCP, milliseconds); },
        .enableCloseTimer =
            [this](bool on) {
                on ? outside.timers.start(SessionTimer::tmrClose, CloseTick)
                   : outside.timers.stop(SessionTimer::tmrClose);
            },
        .countIdle = [this](bool connected) { road.countIdle(connected); },
        .beep = outside.user.beep,
        .message = [this](const std::string& text) { tell(text); },
        .yesNo = outside.user.yesNo,
        .input = outside.user.input,
        .endAllGames = [this] { routing.zEndAllGames(); },
        .unloadSeek = outside.windows.unloadSeek,
        .clearBoards = [] { eachBoard(clearBoard); },
    };
}

BridgeHooks Session::bridgeHooks() {
    return {
        .wait = outside.bridge.wait,
        .pump = [this] { outside.bridge.wait(LoopTurn); },
        .setCaption = outside.client.setCaption,
        .programFound = outside.bridge.programFound,
        .startProgram = outside.bridge.startProgram,
        .zTimeSealHandle = outside.bridge.zTimeSealHandle,
        .requestEnd = outside.bridge.requestEnd,
    };
}

GameRoutingHooks Session::routingHooks() {
    return {
        .zNewBoard = outside.windows.openBoard,
        .beep = outside.user.beep,
        .playSound = outside.user.playSound,
        .seekGraphChecked = [this] { return classifier.menu.mnuSeekGrf; },
        .showSeek = outside.windows.showSeek,
    };
}

void Session::readBatch(const std::string& batch) {
    const RaisedFlag reading(reading_);
    classifier.zDataParse(batch);
    road.forgetPassword();
}

void Session::tell(const std::string& text) {
    messages_.push_back(text);
    if (reading_) {
        outside.timers.start(SessionTimer::Messages, 0);
    } else {
        showMessages();
    }
}

// A program that closes asks for no more clicks.
void Session::showMessages() {
    if (telling_) return;
    const RaisedFlag telling(telling_);
    while (!messages_.empty() && !modChess.AppClosing) {
        const std::string text = std::move(messages_.front());
        messages_.pop_front();
        outside.user.message(text);
    }
}

void Session::takeKeyboard() {
    outside.typing.activate();
    outside.typing.focus();
}

void Session::insertAtEnd(const std::string& text, std::int32_t color) {
    outside.console.moveToEnd();
    outside.console.setColor(color);
    outside.console.insert(text);
}

void Session::timerFired(SessionTimer timer) {
    switch (timer) {
    case SessionTimer::tmrArrival:
        return pipeline.tmrArrival();
    case SessionTimer::tmrPrompt:
        return pipeline.tmrPrompt();
    case SessionTimer::tmrState:
        return pipeline.tmrState();
    case SessionTimer::tmrTCP:
        return connection.tmrTCPTimer();
    case SessionTimer::tmrClose:
        return connection.tmrCloseTimer();
    case SessionTimer::AutoLogon:
        return logOn.timer();
    case SessionTimer::Messages:
        return showMessages();
    }
}

void Session::zGetMoves(std::int16_t relation, const std::string& gameOrArguments) {
    ::zGetMoves(relation, gameOrArguments,
                {.zSendMsg = [this](const std::string& text) { road.zSendMsg(text); },
                 .zSetstate = [this](std::int16_t state) { pipeline.zSetstate(state); }});
}

void Session::zWriteGame(const std::string& fileName, const GameRecord& record) {
    ::zWriteGame(fileName, record,
                 {.print = [this](const std::string& text) { print(text); },
                  .tell = [this](const std::string& text) { tell(text); }});
}

// What comes next goes behind it.
void Session::print(const std::string& text) {
    insertAtEnd(text, modChess.ColorMain);
    outside.console.moveToEnd();
}

void Session::zNewChat() {
    if (modChess.AppClosing) return;
    proposeBuddy();
    outside.windows.openChat();
}

void Session::showChat() {
    const int open = modChess.TellTarget.empty() ? -1 : findChat(modChess.TellTarget);
    if (open == -1) {
        zNewChat();
        return;
    }
    const ChatBox& box = chatAt(open);
    box.hooks.bringToFront();
    box.hooks.focus();
}
