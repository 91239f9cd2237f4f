// A whole console window with its boards, a settings store in memory, and a server on the loopback address.
#pragma once

#include "board/frmChessBoard.h"
#include "common/modChess.h"
#include "platform/Boxes.h"
#include "platform/ChosenEntry.h"
#include "platform/OpenWindows.h"
#include "platform/WaitUntil.h"
#include "session/QuietRoads.h"
#include "session/ScriptedServer.h"
#include "session/frmChessClient.h"
#include "settings/MemoryStore.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

class ClientRig : public testing::Test {
protected:
    ClientRig() {
        modChess = {};
        openWindows.windows.clear();
        boxes.message = [this](QWidget*, const std::string&, const std::string& text) { messages.push_back(text); };
        boxes.input = [this](QWidget*, const std::string& prompt, const std::string& title, const std::string&) {
            messages.push_back(title + ": " + prompt);
            return answer;
        };
        boxes.okCancel = [this](QWidget*, const std::string& title, const std::string& text) {
            messages.push_back(title + ": " + text);
            return okay;
        };
        boxes.yesNo = [this](QWidget*, const std::string&, const std::string& text) {
            messages.push_back(text);
            return okay;
        };
        boxes.confirm = boxes.yesNo;
        roads.openBoard = [this] {
            auto* board = new frmChessBoard(*boardRoads);
            board->load();
        };
        set("Use_Timeseal", "False");
        set("IP", "127.0.0.1");
        set("Port", std::to_string(loopback.port()));
    }

    ~ClientRig() override {
        client.reset();
        for (frmChessBoard* board : boards()) delete board;
        boxes = Boxes();
        modChess = {};
        openWindows.windows.clear();
    }

    void set(const std::string& key, const std::string& text) { values->texts[{"Client", key}] = text; }
    std::string stored(const std::string& section, const std::string& key) const {
        const auto found = values->texts.find({section, key});
        return found == values->texts.end() ? "(absent)" : found->second;
    }

    // Builds and loads the window; the first board with it.
    frmChessClient& start() {
        client = std::make_unique<frmChessClient>(roads);
        boardRoads.emplace(client->boardRoads());
        boardRoads->consoleFrame = [] { return QRect(); }; // the first board stands at the corner of the screen
        client->load();
        return *client;
    }

    // The same, connected to the loopback server.
    void connected() {
        start();
        chooseEntry(*client->menus.mnuConnect[1]);
        ASSERT_TRUE(waitUntil([this] { return loopback.hasClient() && socketState() == 7; }));
        client->session.connection.tmrTCPTimer();
    }

    int socketState() const { return client->session.road.hooks.socketState(); }
    Console& txtOutput() const { return *client->findChild<Console*>(QStringLiteral("txtOutput")); }
    TypingLine& txtSend() const { return *client->findChild<TypingLine*>(QStringLiteral("txtSend")); }
    QLabel& lblPrompt() const { return *client->findChild<QLabel*>(QStringLiteral("lblPrompt")); }
    QAction& entry(const char* name) const { return *client->findChild<QAction*>(QString::fromLatin1(name)); }
    QAbstractButton& button(const QString& name) const { return *client->findChild<QAbstractButton*>(name); }
    std::string title() const { return client->windowTitle().toStdString(); }
    std::string console() const { return txtOutput().text(); }
    bool consoleHas(const std::string& text) const {
        return waitUntil([&] { return console().find(text) != std::string::npos; });
    }
    bool serverGot(const std::string& text) {
        return waitUntil([&] { return loopback.received.find(text) != std::string::npos; });
    }
    void type(const char* text, bool enter = true) const {
        QTest::keyClicks(&txtSend(), QString::fromLatin1(text));
        if (enter) QTest::keyClick(&txtSend(), Qt::Key_Return);
    }

    static std::vector<frmChessBoard*> boards() {
        std::vector<frmChessBoard*> found;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* board = qobject_cast<frmChessBoard*>(window)) found.push_back(board);
        }
        return found;
    }
    static Game& firstGame() {
        for (const OpenWindow& open : openWindows.windows) {
            if (Game* game = gameOf(open)) return *game;
        }
        throw std::logic_error("no board is open");
    }

    std::shared_ptr<MemoryValues> values = std::make_shared<MemoryValues>();
    ClientRoads roads = quietClientRoads(memoryStore(values));
    std::optional<BoardRoads> boardRoads; // of `client`
    ScriptedServer loopback;
    std::unique_ptr<frmChessClient> client;
    std::vector<std::string> messages;
    std::optional<std::string> answer;
    bool okay = false;
};
