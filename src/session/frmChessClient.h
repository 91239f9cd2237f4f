// The console: the main window, which owns the conversation with the server.
#pragma once

#include "board/BoardRoads.h"
#include "common/Needed.h"
#include "panels/HelpRoads.h"
#include "panels/PanelRoads.h"
#include "platform/Console.h"
#include "platform/PanelDoors.h"
#include "platform/TypingLine.h"
#include "platform/tcpClient.h"
#include "records/HistoryRoads.h"
#include "records/frmExamine.h"
#include "seek/SeekRoads.h"
#include "session/ClientMenus.h"
#include "session/CommandRow.h"
#include "session/Session.h"
#include "session/TimesealBridge.h"
#include "session/frmChat.h"
#include "settings/ClientSettings.h"
#include "settings/OptionsRoads.h"
#include "settings/RegDump.h"
#include "settings/SettingsStore.h"
#include "settings/Sounds.h"
#include "settings/WindowPlacer.h"

#include <QMainWindow>
#include <QTimer>

#include <string>
#include <string_view>

// What the console needs of the rest of the program; outlives the window. Every member must be given.
struct ClientRoads {
    SettingsStore store;
    // What the dump of the settings says of the other windows.
    RunningWindows runningWindows;
    Needed<void(std::string_view name, std::int16_t mode)> playSound;
    // Creates, shows and loads a board window.
    Needed<void()> openBoard;
    // Shows frmMatch as modChess.MatchMode says.
    Needed<void()> showMatch;
    // Shows frmSeek.
    Needed<void()> showSeek;
    // Shows frmHistory.
    Needed<void()> showHistory;
    // The same, and has it start anew with modChess.gHelpTopic.
    Needed<void()> startHistory;
    // Shows frmExamine for the board with this id.
    Needed<void(std::int32_t id)> showExamine;
    PanelDoors doors;
    // Hand the complete answer to frmICSVars or frmNotes, which is loaded first, not shown, if it is not.
    Needed<void()> zParseVars;
    Needed<void()> zParseNotes;
};

// Lives as long as the program. Everything is decided in `session`; the window carries events to it and its results to
// the screen. In openWindows from its construction on.
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
    // The same of the seek graph; `match` outlives that.
    SeekRoads seekRoads(const MatchRoads& match);
    // The same of the lists of games.
    HistoryRoads historyRoads();
    // The same of the panels that ask the server.
    PanelRoads panelRoads();
    HelpRoads helpRoads();
    // The same of the options dialog, which tries out sounds on `sounds`.
    OptionsRoads optionsRoads(Sounds& sounds);
    // The same of the panel that evaluates a player; `board` gives the window of the board with an id, or null.
    ExamineRoads examineRoads(const Needed<QWidget*(std::int32_t id)>& board);

    Session session{surface()};
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
    void takeTells();
    void loadPlace();
    void takeLook();

    SessionSurface surface();
    SocketSurface socketSurface();
    TimerSurface timerSurface();
    ConsoleSurface consoleSurface();
    TypingSurface typingSurface();
    ClientSurface clientSurface();
    WindowSurface windowSurface();
    UserSurface userSurface();
    BridgeSurface bridgeSurface();
    QTimer& timerOf(SessionTimer timer) { return timers_.at(static_cast<std::size_t>(timer)); }
    void connectSocket();
    void connectTimers();
    void connectKeys();
    void typeOn(const std::string& characters);
    void connectRow();
    void connectMenus();
    void connectConsoleMenu();
    ChatRoads chatRoads();
    void connectChat();
    void openChat();
    void wantSeek();
    void tickSeek(bool wanted);
    void takeMenuTicks();
    void dumpRegistry();

    const ClientRoads& roads_;
    ChatRoads chatRoads_{chatRoads()};
    WindowPlacer placer_{this};
    tcpClient tcpClient_{this};
    TimesealBridge bridge_;
    Console* txtOutput = nullptr;
    CommandRow* row_ = nullptr;
    TypingLine* txtSend = nullptr;             // of the row
    QLabel* lblPrompt = nullptr;               // of the row
    std::array<QTimer, SessionTimers> timers_; // by SessionTimer
    bool unloaded_ = false;
};
