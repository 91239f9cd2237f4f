// Real board windows over a settings store in memory; what they send and play is written down.
#pragma once

#include "board/Style12Line.h"
#include "board/frmChessBoard.h"
#include "common/modChess.h"
#include "platform/Boxes.h"
#include "platform/OpenWindows.h"
#include "platform/WaitUntil.h"
#include "settings/MemoryStore.h"

#include <QAction>
#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <QStatusBar>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

class BoardWindowRig : public testing::Test {
protected:
    BoardWindowRig() {
        modChess = {};
        openWindows.windows.clear();
        roads.store = memoryStore(values);
        roads.history = &history;
        roads.zSendMsg = [this](const std::string& text) { sent.push_back(text); };
        roads.zSend = [this](const std::string& text) {
            if (connected) typed.push_back(text);
            return connected;
        };
        roads.tellText = [this](int index) { return index == 0 ? tell : std::string(); };
        roads.enableBoardMenu = [this] { ++menuEnabled; };
        boxes.okCancel = [this](QWidget*, const std::string& title, const std::string& text) {
            asked.push_back(title + "/" + text);
            return okay;
        };
        boxes.message = [this](QWidget*, const std::string&, const std::string& text) { asked.push_back(text); };
    }
    ~BoardWindowRig() override {
        for (const QPointer<frmChessBoard>& board : made) delete board.data();
        boxes = Boxes();
        modChess = {};
        openWindows.windows.clear();
    }

    frmChessBoard& open() {
        made.emplace_back(new frmChessBoard(roads));
        made.back()->load();
        return *made.back();
    }

    void keep(const char* key, const char* text) { values->texts[{"Board", key}] = text; }
    std::string stored(const char* key) const {
        const auto found = values->texts.find({"Board", key});
        return found == values->texts.end() ? "(absent)" : found->second;
    }
    void savedPlace(const char* left, const char* top, const char* width, const char* height) {
        modChess.RegistryState = "Yes";
        keep("Left", left);
        keep("Top", top);
        keep("Width", width);
        keep("Height", height);
    }

    // What the client does with a Style 12 line that has reached the board. "none" is the position before the first
    // move, any other text the one after e4.
    static bool position(Game& game, int relation, const std::string& pretty = "e4", bool first = true) {
        const bool start = pretty == "none";
        const std::string ranks = start ? "-------- PPPPPPPP RNBQKBNR W -1" : "----P--- -------- PPPP-PPP RNBQKBNR B 4";
        const std::string line = "<12> rnbqkbnr pppppppp -------- -------- " + std::string(start ? "-------- " : "") +
                                 ranks + " 1 1 1 1 0 12 Anders Berta " + std::to_string(relation) +
                                 " 5 2 39 39 300 754 1 " + (start ? "none" : "P/e2-e4") + " (0:00) " + pretty +
                                 " 0 1 0 0\r\n";
        readStyle12(cutStyle12(line, LineEnd::RestIsToken).value(), Style12Fields::All, modChess.Record);
        modChess.NewGameFlag = first;
        game.zGS();
        const bool open = game.zSetPosition(false);
        modChess.NewGameFlag = false;
        return open;
    }

    template <typename Widget = QWidget>
    static Widget& part(frmChessBoard& board, const char* name) {
        return *board.findChild<Widget*>(QString::fromLatin1(name));
    }
    static std::string label(frmChessBoard& board, const char* name) {
        return part<QLabel>(board, name).text().toLatin1().toStdString();
    }
    static std::string clock(frmChessBoard& board, int side) {
        return static_cast<ClockFace&>(part(board, side == 0 ? "lblTime(0)" : "lblTime(1)")).text();
    }
    static QAction& entry(frmChessBoard& board, const char* name) { return part<QAction>(board, name); }
    static std::string title(const frmChessBoard& board) { return board.windowTitle().toStdString(); }
    static QWidget& inner(frmChessBoard& board) { return *part(board, "picChess").parentWidget(); }

    std::shared_ptr<MemoryValues> values = std::make_shared<MemoryValues>();
    CommandHistory history;
    BoardRoads roads;
    std::vector<QPointer<frmChessBoard>> made;
    std::vector<std::string> sent;
    std::vector<std::string> typed;
    std::vector<std::string> asked;
    std::string tell = "finger";
    bool connected = true;
    bool okay = false;
    int menuEnabled = 0;
};
