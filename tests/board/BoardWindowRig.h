// Real board windows over a settings store in memory; what they send and play is written down.
#pragma once

#include "board/BoardRig.h"
#include "board/QuietRoads.h"
#include "board/frmChessBoard.h"
#include "platform/Boxes.h"
#include "platform/ChosenEntry.h"
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
#include <string>
#include <vector>

class BoardWindowRig : public testing::Test {
protected:
    BoardWindowRig() {
        modChess = {};
        openWindows.windows.clear();
        boxes.okCancel = [this](QWidget*, const std::string& title, const std::string& text) {
            asked.push_back(title + "/" + text);
            return okay;
        };
        boxes.message = [this](QWidget*, const std::string&, const std::string& text) { asked.push_back(text); };
        joinRoads();
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

    // What the client does with a line that has reached the board.
    static void receive(Game& game, const LineOf& line, bool first = true) {
        modChess.NewGameFlag = first;
        modChess.Record = recordOf(line);
        game.zGS();
        game.zSetPosition(false);
        modChess.NewGameFlag = false;
    }

    // The same with a position of game 12: for "none" the one before the first move, for any other text that after e4.
    static void position(Game& game, int relation, const std::string& pretty = "e4", bool first = true) {
        LineOf line{.relation = relation, .blackClock = 754, .pretty = pretty};
        if (pretty != "none") {
            line.ranks = AfterE4;
            line.turn = "B";
            line.verbose = "P/e2-e4";
        }
        receive(game, line, first);
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

    void joinRoads() {
        roads.zSendMsg = [this](const std::string& text) { sent.push_back(text); };
        roads.zSend = [this](const std::string& text) {
            if (connected) typed.push_back(text);
            return connected;
        };
        roads.print = [this](const std::string& text) { printed.push_back(text); };
        roads.zWriteGame = [this](const std::string& fileName, const GameRecord& record) {
            written.emplace_back(fileName, record);
        };
        roads.tellText = [this](int index) { return index == 0 ? tell : std::string(); };
        roads.showExamine = [this](std::int32_t id) { examined.push_back(id); };
        roads.enableBoardMenu = [this] { ++menuEnabled; };
    }

    std::shared_ptr<MemoryValues> values = std::make_shared<MemoryValues>();
    CommandHistory history;
    BoardRoads roads = quietBoardRoads(memoryStore(values), history);
    std::vector<QPointer<frmChessBoard>> made;
    std::vector<std::string> sent;
    std::vector<std::string> typed;
    std::vector<std::string> printed;                        // at the console
    std::vector<std::pair<std::string, GameRecord>> written; // to PGN files
    std::vector<std::string> asked;
    std::vector<std::int32_t> examined; // ids for which the panel was asked for
    std::string tell = "finger";
    bool connected = true;
    bool okay = false;
    int menuEnabled = 0;
};
