// The console: the main window, which owns the conversation with the server.
#pragma once

#include "board/BoardRoads.h"
#include "board/GameRouting.h"
#include "common/ServerRoad.h"
#include "platform/TypingLine.h"
#include "platform/tcpClient.h"
#include "session/BlockMode.h"
#include "session/Captures.h"
#include "session/ChatRouting.h"
#include "session/ClientMenus.h"
#include "session/CommandRow.h"
#include "session/Connection.h"
#include "session/Console.h"
#include "session/LineClassifier.h"
#include "session/LogOn.h"
#include "session/ServerLines.h"
#include "session/TextPipeline.h"
#include "session/TimesealBridge.h"
#include "session/TypingKeys.h"
#include "session/frmChat.h"
#include "settings/ClientSettings.h"
#include "settings/RegDump.h"
#include "settings/SettingsStore.h"
#include "settings/WindowPlacer.h"

#include <QMainWindow>
#include <QTimer>

#include <functional>
#include <string>
#include <string_view>

// What the console needs of the rest of the program; outlives the window. What is not filled in does nothing.
struct ClientRoads {
    SettingsStore store;
    // What the dump of the settings says of the other windows.
    RunningWindows runningWindows;
    std::function<void(std::string_view name, std::int16_t mode)> playSound = [](std::string_view, std::int16_t) {};
    // Creates, shows and loads a board window; gives its identity in openWindows.
    std::function<const void*()> openBoard = [] { return static_cast<const void*>(nullptr); };
    // Shows frmMatch as modChess.MatchMode says.
    std::function<void()> showMatch = [] {};
};

// Lives as long as the program. Its parts are window-free; the window carries events to them and their results to the
// screen. In openWindows from its construction on.
class frmChessClient : public QMainWindow {
    Q_OBJECT
public:
    explicit frmChessClient(const ClientRoads& roads);
    ~frmChessClient() override;

    // Start-up in its order: settings, place, look, the first board. Connecting is left to the first tick of tmrTCP.
    void load();
    // Close-down in its order; also what the desktop's request to end leads to. Nothing is written without it.
    void queryUnload();
    // Stops the socket and all timers; what remains of the program cannot be reached by events any more.
    void stopEverything();
    // What a board needs of the console; good as long as the window lives.
    BoardRoads boardRoads();
    // Opens a chat box, which proposes the sender of the latest tell.
    void zNewChat();
    // What a board's Shift+F9 leads to: the chat box of modChess.TellTarget comes up; where there is none, one opens.
    void showChat();

    ServerLines serverLines;
    TextPipeline pipeline{serverLines};
    Captures captures;
    LineClassifier classifier{serverLines, captures};
    ServerRoad road;
    LogOn logOn{pipeline, road};
    TypingKeys typingKeys{road, logOn};
    BlockMode blockMode;
    Connection connection;
    GameRouting routing;
    ChatRouting chatRouting;
    ClientSettings settings;
    ClientMenus menus;

Q_SIGNALS:
    // The close-down has run; nothing of the session is left.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    template <typename Answer>
    void on(QAction* entry, Answer answer) {
        connect(entry, &QAction::triggered, this, answer);
    }

    QWidget* buildInner();
    void fitMargins();
    void applySettings();
    void collectSettings();
    void loadPlace();
    void takeLook();

    void wirePipeline();
    void wireClassifier();
    void wireBoards();
    void wireRoad();
    void wireSocket();
    void wireConnection();
    void wireBridge();
    void wireTimers();
    void wireKeys();
    void wireRow();
    void wireMenus();
    void wireChat();
    void wireConsoleMenu();
    void takeMenuTicks();
    void dumpRegistry();

    const ClientRoads& roads_;
    ChatRoads chatRoads_;
    WindowPlacer placer_{this};
    tcpClient tcpClient_;
    TimesealBridge bridge_;
    Console* txtOutput = nullptr;
    CommandRow* row_ = nullptr;
    TypingLine* txtSend = nullptr; // of the row
    QLabel* lblPrompt = nullptr;   // of the row
    QTimer tmrArrival_;
    QTimer tmrPrompt_;
    QTimer tmrState_;
    QTimer tmrTCP_;
    QTimer tmrClose_;
    bool unloaded_ = false;
};
