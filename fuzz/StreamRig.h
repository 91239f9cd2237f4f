// The program without its windows: a session, its boards and chat boxes, and the world around them. What fuzz_stream
// feeds.
#pragma once

#include "RigBoard.h"
#include "RigChat.h"
#include "RigClock.h"
#include "RigHelp.h"
#include "RigHistory.h"
#include "RigPanel.h"
#include "RigSeek.h"
#include "RigSocket.h"
#include "Tape.h"
#include "session/Session.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

// Leaves everything on the way to the end of the input: a fault has ended the program.
struct ProgramEnded {};

// Runs one tape. Nothing runs in the middle of an event or of a batch; menus and questions stay up between events. A
// subscript or an overflow fault is an end of the program that the rules provide for, and ends the input; any other is
// a finding, and so is one in a check.
class StreamRig {
public:
    explicit StreamRig(std::string_view bytes);
    ~StreamRig();
    StreamRig(const StreamRig&) = delete;
    StreamRig& operator=(const StreamRig&) = delete;

    void run();

private:
    // What a move that lands may change.
    struct BeforeLanding {
        BoardSquares squares;
        std::int16_t turn;
        std::int16_t row;
        std::int16_t mode;
        int from; // -1 when no move is in hand
        bool preMoveSet;
        bool asking; // a promotion was asked for before
        long movesSent;
    };

    // What a batch is looked at with.
    struct Batch {
        std::size_t begin = 0;         // in the text that came
        bool behindLetThrough = false; // the batch before passed without its prompt
        std::vector<int> toBoards;     // lines that reached a board
        std::vector<int> toChats;      // lines that a chat box took
    };

    // What the session needs, RigSurface.cpp
    SessionSurface surface();
    SocketSurface socketSurface();
    TimerSurface timerSurface();
    ConsoleSurface consoleSurface();
    TypingSurface typingSurface();
    ClientSurface clientSurface();
    WindowSurface windowSurface();
    UserSurface userSurface();
    BridgeSurface bridgeSurface();
    void lookOn();
    void readCaptures();
    void mayWait() const;

    // What the boards need, BoardWiring.cpp
    friend struct RigBoard;
    GameSurface boardSurface(RigBoard& board);
    static MoveGridSurface gridSurface(RigBoard& board);
    MoveInputSurface mouseSurface(RigBoard& board);

    // The outside world, StreamEvents.cpp
    void happen(const Tape::Segment& segment);
    void perform(const Tape::Segment& segment);
    void byHand(const std::function<void()>& act) const;
    void receive(const Tape::Segment& segment);
    void sessionEvent(int kind, std::size_t which);
    void boardEvent(int kind, RigBoard& board);
    void windowEvent(int kind, RigBoard& board);
    void setOptions(std::uint8_t bits);

    // Time and the line, LineEvents.cpp
    void lineEvent(const Tape::Segment& segment);
    void setConnectionOptions(unsigned bits);
    void pass(std::int64_t milliseconds);
    bool takeStep(std::int64_t until);
    void fire(SessionTimer timer);
    void quietUntil(SessionTimer timer);
    void deliver();
    void hangUp();
    void failSocket(int choice);
    void checkLost() const noexcept;

    // The mouse, MouseEvents.cpp
    void mouseEvent(const Tape::Segment& segment, RigBoard& board);
    void press(RigBoard& board, int button, int position);
    void walk(int kind, RigBoard& board, int choice);
    void pressUnder(RigBoard& board, int button, int position);
    void release(RigBoard& board, int button, int position);
    void movePointer(RigBoard& board, int position);
    void lift(RigBoard& board, int position);
    void land(RigBoard& board, int position);
    void fireSlip(RigBoard& board);
    void popupPromote(RigBoard& board);
    void answerDrop(RigBoard& board, int choice);
    std::vector<RigBoard*> closeMenus();

    // What has to hold of moves by hand, MoveChecks.cpp
    void landing(RigBoard& board, int position, const std::function<void()>& act);
    void checkQueued(const RigBoard& board, const BeforeLanding& before, int to) const noexcept;
    void checkAsked(const RigBoard& board, const BeforeLanding& before, int to) const noexcept;
    void checkPlayed(const RigBoard& board, const BeforeLanding& before, int to, bool legal) const noexcept;
    void promote(RigBoard& board, int piece);
    void checkPromoted(const RigBoard& board, const RigBoard::Promotion& asked, int piece) const noexcept;
    void receivePosition(RigBoard& board, const std::function<void()>& act);
    void takeRecord(RigBoard& board, const std::function<void()>& act);
    void review(RigBoard& board, const std::function<void()>& act);
    void checkList(const Game& game) const noexcept;
    void checkPosition(const Game& game, bool preMovePlayed) const noexcept;
    void sendFromBoard(RigBoard& board, const std::string& text);
    void checkHand(RigBoard& board) const noexcept;
    void checkMarks(RigBoard& board) const noexcept;

    // Chat boxes and typing, ChatEvents.cpp
    void typingEvent(const Tape::Segment& segment);
    void chatEvent(const Tape::Segment& segment, RigChat& chat);
    void lineKey(int choice);
    void openChat();
    void askForBuddy(RigChat& chat) const;
    void nameChat(RigChat& chat, const std::string& answer, bool proposal);
    void closeChat(RigChat& chat);
    void enterTell(RigChat& chat, const std::function<void()>& pressEnter);
    bool routeTell(const std::string& line, const std::function<bool()>& act);
    void checkTaken(const std::string& line, const RigChat* taker, const std::string& inserted) const noexcept;
    void checkChatCaption(int window, const std::string& caption) const noexcept;
    void checkSent(const std::string& bytes) noexcept;
    void checkChats() const noexcept;

    // The seek graph, SeekEvents.cpp
    void switchSeek(std::size_t size);
    void showSeek();
    void closeSeek();
    void drawSeeks();
    void checkSeek() const noexcept;

    // The lists of games, ListsEvents.cpp
    void listsEvent(int choice);
    void openHistory();
    void startHistory();
    void closeHistory();
    void tmrHist();
    void askForList(std::int16_t kind);
    void goFor(const std::string& command);
    TurnHooks turnOf(std::function<bool()> isOpen);
    void showList();
    void checkLists() const noexcept;

    // The help panel and the self check, HelpEvents.cpp
    void helpEvent(int choice);
    void openHelp();
    void startHelp();
    void closeHelp();
    void tmrHelp();
    void goForHelp();
    void askForHelp();
    void showHelp();
    void selfCheckEvent(int choice);
    void workBox(int choice);
    void openSelfCheck();
    void closeSelfCheck();
    void moveMade();
    void checkHelp() const noexcept;
    // The panels of variables and notes, PanelEvents.cpp
    void panelsEvent(int choice);
    void loadPanel(RigPanel& panel);
    static void closePanel(RigPanel& panel);
    bool panelAsks(std::int64_t at);
    void askFor(const RigPanel& panel);
    void changePanel(RigPanel& panel);
    void answerPanel(RigPanel& panel);

    // Batches and lines, BatchChecks.cpp
    void parseBatch(const std::string& batch, const std::function<void()>& act);
    void takeLine12(const std::string& line, bool delivered);
    int lineNumber(const std::string& line) const;
    void checkSize(const std::string& batch) const noexcept;
    void checkConsole(const std::string& batch, const std::string& added, bool promptShown) const noexcept;
    void checkBlanked(const std::string& batch, const std::string& added) const noexcept;
    void checkFront() const noexcept;

    // Windows, StreamRig.cpp
    std::string shown() const;
    void openBoard();
    RigBoard& boardWith(const Game& game) const;
    void closeBoard(RigBoard& board, bool destroyNow);
    void destroyClosed();
    void finish();
    void checkRest() noexcept;
    void checkBoard(const RigBoard& board) const noexcept;
    void checkPasswordKept() const noexcept;
    void checkPasswordShown() const noexcept;

    Tape tape_;
    RigClock clock_;
    RigSocket socket_;
    bool passwordInTape_ = false;
    bool relationFaked_ = false; // a record claimed the relation of a board without a game
    bool draining_ = false;
    std::size_t parsed_ = 0;     // how much of the text the classifier has read
    std::size_t letThrough_ = 0; // where the latest batch ended that passed without its prompt
    Batch batch_;                // that is being read, or was last
    std::string console_;
    std::string caption_;
    std::string promptCaption_;
    std::string typed_;
    std::string lastSent_; // the latest line to the server, without its LF
    bool userSaysYes_ = false;
    bool programFound_ = false; // the relay

    Session session_{surface()};
    std::vector<std::unique_ptr<RigBoard>> boards_; // open
    std::vector<std::unique_ptr<RigBoard>> closed_; // closed, destroyed when the event is over
    std::vector<std::unique_ptr<RigChat>> chats_;   // open
    std::unique_ptr<RigSeek> seek_;                 // while it is open
    std::shared_ptr<RigHistory> history_;           // while it is open
    std::shared_ptr<RigHelp> help_;                 // while it is open
    std::unique_ptr<RigSelfCheck> selfCheck_;       // while it is open
    RigPanel vars_{"frmICSVars", &askForVars};
    RigPanel notes_{"frmNotes", &askForNotes};
    ServerVars said_; // in the panel
};
