// The program without its windows: what the session has for surroundings, and where it is looked at on the way.
#include "StreamRig.h"

#include "Require.h"
#include "common/modChess.h"
#include "platform/OpenWindows.h"
#include "records/PgnWriter.h"

SessionSurface StreamRig::surface() {
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

SocketSurface StreamRig::socketSurface() {
    return {
        .getData = [this] { return socket_.GetData(); },
        .sendData = [this](const std::string& bytes) { checkSent(bytes); },
        .state = [this] { return socket_.state(); },
        .connectTo = [this](const std::string&, std::int32_t) { socket_.connect(clock_.now); },
        .close = [this] { socket_.close(); },
    };
}

TimerSurface StreamRig::timerSurface() {
    return {
        .start = [this](SessionTimer timer, int milliseconds) { clock_.start(timer, milliseconds); },
        .stop = [this](SessionTimer timer) { clock_.stop(timer); },
        .millisecondsOfDay = [this] { return clock_.millisecondsOfDay(); },
    };
}

ConsoleSurface StreamRig::consoleSurface() {
    return {
        .setColor = [](std::int32_t) {},
        .setEmphasis = [] {},
        .insert = [this](const std::string& text) { console_ += text; },
        .moveToEnd = [] {},
        .length = [this] { return console_.size(); },
    };
}

TypingSurface StreamRig::typingSurface() {
    return {
        .text = [this] { return typed_; },
        .setText = [this](const std::string& text) { typed_ = text; },
        .caretToEnd = [] {},
        .focus = [] {},
        .activate = [] {},
        .mask = [](bool) {},
    };
}

ClientSurface StreamRig::clientSurface() {
    return {
        .caption = [this] { return caption_; },
        .setCaption = [this](const std::string& caption) { caption_ = caption; },
        .promptCaption = [this] { return promptCaption_; },
        .setPromptCaption = [this](const std::string& caption) { promptCaption_ = caption; },
        .ticksChanged = [] {},
    };
}

WindowSurface StreamRig::windowSurface() {
    return {
        .openBoard = [this] { openBoard(); },
        .openChat = [this] { openChat(); },
        .showSeek = [this] { showSeek(); },
        .unloadSeek = [] { openWindows.unload("frmSeek"); },
        .startHistory = [this] { startHistory(); },
        .startHelp = [this] { startHelp(); },
        .zParseVars = [this] { answerPanel(vars_); },
        .zParseNotes = [this] { answerPanel(notes_); },
    };
}

UserSurface StreamRig::userSurface() {
    return {
        .beep = [] {},
        .playSound = [](std::string_view name, std::int16_t) { require(name.ends_with(".wav"), "a sound is a file"); },
        .message = [this](const std::string&) { mayWait(); },
        .yesNo =
            [this](const std::string&) {
                mayWait();
                return userSaysYes_;
            },
        .input =
            [this](const std::string&, const std::string&) {
                mayWait();
                return std::string("127.0.0.1,5000");
            },
    };
}

BridgeSurface StreamRig::bridgeSurface() {
    constexpr int Second = 1000; // ms
    return {
        .wait =
            [this](double seconds) {
                mayWait();
                pass(static_cast<std::int64_t>(seconds * Second));
            },
        .programFound = [this] { return programFound_; },
        .startProgram = [](const std::vector<std::string>&) {},
        .zTimeSealHandle = [] { return 0; },
        .requestEnd = [](std::int32_t) { require(false, "a relay that does not run is not asked to end"); },
    };
}

// What runs the message loop.
void StreamRig::mayWait() const { require(!draining_, "nothing waits for the user in the middle of a batch"); }

void StreamRig::lookOn() {
    auto& dataParse = session_.pipeline.hooks.dataParse;
    dataParse = [this, own = dataParse](const std::string& batch) { parseBatch(batch, [&] { own(batch); }); };
    ClassifierHooks& hooks = session_.classifier.hooks;
    hooks.zStyle12Line = [this, own = hooks.zStyle12Line](const std::string& line) {
        const bool delivered = own(line);
        takeLine12(line, delivered);
        return delivered;
    };
    hooks.zSetPosition = [this, own = hooks.zSetPosition](int board) {
        receivePosition(boardWith(boardAt(board)), [&] { own(board); });
    };
    hooks.zChatBox = [this, own = hooks.zChatBox](const std::string& line) {
        return routeTell(line, [&] { return own(line); });
    };
    hooks.setChatCaption = [this, own = hooks.setChatCaption](int chat, const std::string& caption) {
        checkChatCaption(chat, caption);
        own(chat, caption);
    };
    hooks.insert = [own = hooks.insert](const std::string& text) {
        require(!text.empty(), "nothing empty goes to the console");
        own(text);
    };
}

void StreamRig::readCaptures() {
    Captures& captures = session_.captures;
    captures.writePgn = [] { pgnText(modChess.MovesRecord); }; // no file is touched
    captures.zParseMoves = [this, own = captures.zParseMoves](int board) {
        takeRecord(boardWith(boardAt(board)), [&] { own(board); });
    };
    captures.zReviewGame = [this, own = captures.zReviewGame](int board) {
        review(boardWith(boardAt(board)), [&] { own(board); });
    };
}
