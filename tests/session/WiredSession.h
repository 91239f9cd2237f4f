// A session with boards, whose server is the test.
#pragma once

#include "board/BoardRig.h"
#include "session/QuietSurface.h"
#include "session/Session.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

// A session whose server is the test, with boards that write down what they show.
struct WiredSession : testing::Test {
    static constexpr const char* Prompt = "fics% ";

    std::vector<std::string> events;
    std::vector<std::string> sent;
    std::string waiting;
    std::string console;
    std::string caption;
    std::int16_t socket = ServerRoad::Connected;
    std::map<SessionTimer, int> running;
    std::function<void()> inBox = [] {};
    std::vector<std::unique_ptr<BoardRig>> boards;
    Session session{surface()};

    WiredSession() {
        modChess = {};
        openWindows = {};
        modChess.gPrompt = Prompt;
        modChess.SeekOff = 0;
        session.routing.hooks.zNewBoard();
        events.clear();
    }
    ~WiredSession() override {
        openWindows = {};
        modChess = {};
    }

    SessionSurface surface() {
        SessionSurface outside = quietSurface();
        outside.socket.getData = [this] { return std::exchange(waiting, {}); };
        outside.socket.sendData = [this](const std::string& bytes) { sent.push_back(bytes); };
        outside.socket.state = [this] { return socket; };
        outside.socket.connectTo = [this](const std::string& host, std::int32_t) { events.push_back("to " + host); };
        outside.socket.close = [this] { socket = 0; };
        outside.timers.start = [this](SessionTimer timer, int milliseconds) { running[timer] = milliseconds; };
        outside.timers.stop = [this](SessionTimer timer) { running.erase(timer); };
        outside.console.insert = [this](const std::string& text) { console += text; };
        outside.client.setCaption = [this](const std::string& text) { caption = text; };
        outside.windows.openBoard = [this] { openBoard(); };
        outside.windows.zParseVars = [this] { events.emplace_back("variables"); };
        outside.windows.zParseNotes = [this] { events.emplace_back("notes"); };
        outside.windows.openChat = [this] { events.push_back("chat for " + modChess.NewBuddy); };
        outside.user.beep = [this] { events.emplace_back("beep"); };
        outside.user.message = [this](const std::string& text) {
            events.push_back("box " + text);
            std::exchange(inBox, [] {})();
            events.push_back("end of " + text);
        };
        return outside;
    }

    void openBoard() {
        const ModChess before = modChess; // which a rig of its own begins anew
        BoardRig& board = *boards.emplace_back(std::make_unique<BoardRig>());
        modChess = before;
        openWindows.add({.className = "frmChessBoard", .window = &board, .unload = {}, .content = &board.game});
        events.emplace_back("board");
    }

    void arrive(const std::string& text) {
        waiting = text;
        session.zDataArrival();
    }
    // A record as the server sends it, with the empty line before it and the prompt behind.
    void arriveRecord(const LineOf& line) { arrive("\n\r" + line.text(" 0 0\n\r") + Prompt); }
    Game& game(std::size_t board = 0) { return boards.at(board)->game; }
};
