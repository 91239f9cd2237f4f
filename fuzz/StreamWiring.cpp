// The session and its boards without windows: how the parts reach each other, as the console window wires them.
#include "StreamRig.h"

#include "Require.h"
#include "common/modChess.h"
#include "platform/OpenWindows.h"

#include <utility>

void StreamRig::wirePipeline() {
    PipelineHooks& hooks = pipeline_.hooks;
    hooks.getData = [this] { return std::exchange(waiting_, {}); };
    hooks.startTimer = [this](SessionTimer timer, int ms) {
        require(ms > 0, "a timer has an interval");
        armed_[static_cast<std::size_t>(timer)] = true;
    };
    hooks.stopTimer = [this](SessionTimer timer) { armed_[static_cast<std::size_t>(timer)] = false; };
    hooks.millisecondsOfDay = [this] { return static_cast<std::int32_t>(now_ % 86'400'000); };
    hooks.promptCaption = [this] { return promptCaption_; };
    hooks.setPromptCaption = [this](const std::string& caption) { promptCaption_ = caption; };
    hooks.dataParse = [this](const std::string& batch) { parseBatch(batch); };
}

void StreamRig::wireClassifier() {
    ClassifierHooks& hooks = classifier_.hooks;
    hooks.zStyle12Line = [this](const std::string& line) {
        const bool delivered = routing_.zStyle12Line(line, true);
        relationFaked_ = relationFaked_ || modChess.Record.Relation == -100;
        return delivered;
    };
    hooks.zFindBoard = [](std::int16_t game) { return zFindBoard(game); };
    hooks.zSetBughouse = [](int board, const std::string& line) { boardAt(board).zSetBughouse(line); };
    hooks.zSetPosition = [this](int board) { receivePosition(board); };
    hooks.zExitMove = [](int board) { boardAt(board).zExitMove(); };
    hooks.showBoard = [](int board) { boardAt(board).surface.bringToFront(); };
    hooks.zEndGame = [this](const std::string& line) { routing_.zEndGame(line); };
    hooks.insert = [this](const std::string& text) {
        require(!text.empty(), "nothing empty goes to the console");
        console_ += text;
    };
    hooks.setLogin = [this](std::int16_t login) { pipeline_.login = login; };
    hooks.autoLogonKey = [this] { autoLogonDue_ = true; };
    hooks.zSendMsg = [this](const std::string& text) { road_.zSendMsg(text); };
    captures_.zFindBoard = hooks.zFindBoard;
    captures_.zFindReviewBoard = [this] { return routing_.zFindReviewBoard(); };
    captures_.zParseMoves = [](int board) { boardAt(board); };
    captures_.zReviewGame = captures_.zParseMoves;
    // An answer ends with a line that holds its end word.
    const auto takesLine = [](std::string& line, int) { return line.find("end") != line.npos; };
    captures_.zMovesLines = takesLine;
    for (CaptureConsumer* each : {&captures_.help, &captures_.history, &captures_.journal, &captures_.stored,
                                  &captures_.sought, &captures_.vars, &captures_.notes}) {
        each->line = takesLine;
    }
}

void StreamRig::wireBoards() {
    routing_.hooks.openBoard = [this] { return openBoard(); };
    routing_.hooks.pump = [this] { loadPump(); };
    routing_.hooks.seekGraphChecked = [this] { return seekGraph_; };
}

void StreamRig::wireChat() {
    chatRouting_.consoleLength = [this] { return console_.size(); };
    ClassifierHooks& hooks = classifier_.hooks;
    hooks.zChatBox = [this](const std::string& line) { return routeTell(line); };
    hooks.findChat = findChat;
    hooks.setChatCaption = [this](int window, const std::string& caption) { setChatCaption(window, caption); };
    keys_.hooks.zNewChat = [this] { newChat(); };
}

void StreamRig::wireRoad() {
    road_.hooks.sendData = [this](const std::string& bytes) { checkSent(bytes); };
    road_.hooks.socketState = [this] { return connected_ ? ServerRoad::Connected : std::int16_t{0}; };
    road_.hooks.login = [this] { return pipeline_.login; };
    road_.hooks.handle = [this] { return logOn_.handle; };
    road_.hooks.echo = [this](const std::string& text) { console_ += text; };
    road_.hooks.tell = [this](const std::string& text) { console_ += text; };
    road_.hooks.showHelp = [this] { road_.askInPlaceOfPanel("Help "); };
    road_.hooks.showHistory = [this] { road_.askInPlaceOfPanel("History "); };
    keys_.hooks.text = [this] { return typed_; };
    keys_.hooks.setText = [this](const std::string& text) { typed_ = text; };
    blockMode_.hooks.insertAtEnd = [this](const std::string& text) { console_ += text; };
}
