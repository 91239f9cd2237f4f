// A session without windows: a recording console, boards and chat boxes by number, timers that a test fires.
#pragma once

#include "board/BoardRig.h"
#include "common/modChess.h"
#include "session/QuietSurface.h"
#include "session/Session.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

// Colours that tell themselves apart.
inline constexpr std::int32_t MainColor = 1;
inline constexpr std::int32_t TellColor = 2;
inline constexpr std::int32_t ShoutColor = 3;

// A Style 12 line for `game`, without its line ending.
inline std::string style12Line(int game) {
    const auto line = LineOf{.ranks = AfterE4, .turn = "B", .game = game, .verbose = "P/e2-e4", .pretty = "e4"};
    return line.text(" 0 0");
}

// One line inserted at the console.
struct Printed {
    std::string text;
    std::int32_t color;

    friend bool operator==(const Printed&, const Printed&) = default;
    friend void PrintTo(const Printed& printed, std::ostream* out) {
        *out << '"' << printed.text << "\" in " << printed.color;
    }
};

// The session under test. `events` records every effect but printing in order; games 12 and 13 have boards 0 and 1.
struct SessionRig : testing::Test {
    Session session{quietSurface()};
    ServerLines& lines = session.serverLines;
    Captures& captures = session.captures;
    LineClassifier& classifier = session.classifier;
    TextPipeline& pipeline = session.pipeline;

    std::vector<Printed> printed;
    std::vector<std::string> events;
    std::map<int, int> boardOfGame{{12, 0}, {13, 1}};
    std::vector<std::string> chatBuddies; // the open boxes; an exact match takes the tell
    std::vector<std::string> chatTexts;
    bool newGame = false;
    std::string waiting; // what getData gives
    std::map<SessionTimer, int> running;
    std::string promptLabel;
    std::int32_t clock = 1000;

    SessionRig() {
        modChess = ModChess{};
        modChess.gPrompt = "fics% ";
        modChess.ColorMain = MainColor;
        modChess.ColorTell = TellColor;
        modChess.ColorShout = ShoutColor;
        modChess.SoundTell = 7;
        modChess.SeekOff = 0;
        captures.help = {[](std::string&, int) { return false; }, [] {}}; // an answer that never ends
        hookBoards();
        hookConsole();
        hookPipeline();
    }

    void event(std::string text) { events.push_back(std::move(text)); }

    bool happened(const std::string& text) const { return std::ranges::count(events, text) > 0; }

    int times(const std::string& front) const {
        return static_cast<int>(
            std::ranges::count_if(events, [&](const std::string& event) { return event.starts_with(front); }));
    }

    void hookBoards() {
        auto& hooks = classifier.hooks;
        hooks.zStyle12Line = [this](const std::string& line) {
            const auto tokens = cutStyle12(line, LineEnd::RestIsToken);
            if (!tokens) return false;
            readStyle12PassingOver(*tokens, Style12Fields::All, modChess.Record);
            modChess.NewGameFlag = newGame;
            return boardOfGame.contains(modChess.Record.GameNumber);
        };
        hooks.zFindBoard = [this](std::int16_t game) { return boardOfGame.contains(game) ? boardOfGame.at(game) : -1; };
        hooks.zSetBughouse = [this](int board, const std::string& line) {
            event("bughouse " + std::to_string(board) + " " + line.substr(0, line.find('\r')));
        };
        hooks.zSetPosition = [this](int board) { event("position " + std::to_string(board)); };
        hooks.zExitMove = [this](int board) { event("exit move " + std::to_string(board)); };
        hooks.zGetMoves = [this](int board) { event("get moves " + std::to_string(board)); };
        hooks.showBoard = [this](int board) { event("show board " + std::to_string(board)); };
        hooks.zEndGame = [this](const std::string& line) { event("end " + line); };
    }

    void hookConsole() {
        auto& hooks = classifier.hooks;
        hooks.showSeek = [this] { event("show seek"); };
        hooks.unloadSeek = [this] { event("unload seek"); };
        hooks.zChatBox = [this](const std::string& line) {
            if (std::ranges::count(chatBuddies, modChess.TellTarget) == 0) return false;
            chatTexts.push_back(line);
            return true;
        };
        hooks.findChat = [this](const std::string& buddy) {
            const auto place = std::ranges::find(chatBuddies, buddy);
            return place == chatBuddies.end() ? -1 : static_cast<int>(place - chatBuddies.begin());
        };
        hooks.setChatCaption = [this](int chat, const std::string& caption) {
            event("caption " + std::to_string(chat) + " " + caption);
        };
        hooks.setEmphasis = [this] { event("emphasis"); };
        hooks.setColor = [this](std::int32_t value) { insertionColor = value; };
        hooks.insert = [this](const std::string& text) { printed.push_back({text, insertionColor}); };
        hooks.logOnPrompt = [this](std::int16_t login) {
            event("login " + std::to_string(login));
            session.logOn.prompt(login);
        };
        session.logOn.hooks.maskTyping = [this] { event("mask"); };
        session.logOn.hooks.takeKeyboard = [this] { event("keyboard"); };
        session.logOn.hooks.startTimer = [this](int milliseconds) { event("key in " + std::to_string(milliseconds)); };
        hooks.playSound = [this](std::string_view name, std::int16_t mode) {
            event("sound " + std::string(name) + " " + std::to_string(mode));
        };
        hooks.beep = [this] { event("beep"); };
        hooks.zSendMsg = [this](const std::string& text) { event("send " + text); };
    }

    void hookPipeline() {
        auto& hooks = pipeline.hooks;
        hooks.getData = [this] { return std::exchange(waiting, {}); };
        hooks.startTimer = [this](SessionTimer timer, int milliseconds) { running[timer] = milliseconds; };
        hooks.stopTimer = [this](SessionTimer timer) { running.erase(timer); };
        hooks.millisecondsOfDay = [this] { return clock; };
        hooks.promptCaption = [this] { return promptLabel; };
        hooks.setPromptCaption = [this](const std::string& caption) { promptLabel = caption; };
    }

    // One batch through both passes.
    void batch(const std::string& text) { classifier.zDataParse(text); }

    // One arrival at the socket.
    void arrive(const std::string& text) {
        waiting += text;
        pipeline.zDataArrival();
    }

    std::string console() const {
        std::string text;
        for (const Printed& line : printed) text += line.text;
        return text;
    }

    std::int32_t insertionColor = 0;
};
