// The session and its boards without windows: what fuzz_stream feeds.
#pragma once

#include "RigBoard.h"
#include "RigChat.h"
#include "Tape.h"
#include "board/GameRouting.h"
#include "platform/ArrivalCutter.h"
#include "session/BlockMode.h"
#include "session/ChatRouting.h"
#include "session/LineClassifier.h"
#include "session/LogOn.h"
#include "session/TextPipeline.h"
#include "session/TypingKeys.h"

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

// Leaves everything on the way to the end of the input: a fault has ended the program.
struct ProgramEnded {};

// Runs one tape. Wherever the program pumps the message loop, the segments that ask for it run inside the pump. A
// subscript fault is an end of the program that the rules provide for, and ends the input; any other is a finding.
class StreamRig {
public:
    explicit StreamRig(std::string_view bytes);
    ~StreamRig();
    StreamRig(const StreamRig&) = delete;
    StreamRig& operator=(const StreamRig&) = delete;

    void run();

private:
    static constexpr int MostPumps = 6; // that run inside each other

    // A menu that is up. The one that came up last takes the answers.
    struct Menu {
        long board = 0;                     // serial
        const DropEntries* drops = nullptr; // null in a promotion menu
        bool up = true;
    };

    // What a move that lands may change.
    struct BeforeLanding {
        BoardSquares squares;
        std::int16_t turn;
        std::int16_t row;
        std::int16_t mode;
        int from; // -1 when no move is in hand
        bool preMoveSet;
        long movesSent;
    };

    // Wiring, StreamWiring.cpp and BoardWiring.cpp
    void wirePipeline();
    void wireClassifier();
    void wireBoards();
    void wireChat();
    void wireRoad();
    void fillSurface(RigBoard& board);
    void fillLabels(RigBoard& board);
    void fillMouse(RigBoard& board);
    void fillGrid(RigBoard& board);

    // The outside world, StreamEvents.cpp
    void happen(const Tape::Segment& segment);
    void perform(const Tape::Segment& segment);
    void byHand(bool mayFault, const std::function<void()>& act);
    void receive(const std::string& text);
    void sessionEvent(int kind, std::size_t which);
    void boardEvent(int kind, RigBoard& board);
    void windowEvent(int kind, RigBoard& board);
    void setOptions(std::uint8_t bits);
    void fire(SessionTimer timer);
    void pressAutoLogonKey();
    void hangUp();
    void pump(const Menu* menu = nullptr);
    void loadPump();

    // The mouse, MouseEvents.cpp
    void mouseEvent(const Tape::Segment& segment, RigBoard& board);
    void press(RigBoard& board, int button, int position);
    void release(RigBoard& board, int button, int position);
    void movePointer(RigBoard& board, int position);
    void lift(RigBoard& board, int position);
    void land(RigBoard& board, int position);
    void fireSlip(RigBoard& board);
    void popup(Menu menu);
    void popupPromote(long board);
    void answerPromotion(RigBoard& board, int choice);
    void answerDrop(RigBoard& board, int choice);
    Menu* menuFor(const RigBoard& board, bool ofDrops) const;
    void closeMenus();

    // What has to hold of moves by hand, MoveChecks.cpp
    void landing(RigBoard& board, int position, const std::function<void()>& act);
    void checkQueued(const RigBoard& board, const BeforeLanding& before, int to) const;
    void checkPlayed(const RigBoard& board, const BeforeLanding& before, int to, bool legal) const;
    void receivePosition(int window);
    void checkPosition(const Game& game, bool preMovePlayed) const;
    void sendFromBoard(RigBoard& board, const std::string& text);
    void checkHand(RigBoard& board) const;
    void checkMarks(RigBoard& board) const;

    // Chat boxes and typing, ChatEvents.cpp
    void typingEvent(const Tape::Segment& segment);
    void chatEvent(const Tape::Segment& segment, RigChat& chat);
    void lineKey(int choice);
    void newChat();
    void showChat();
    void nameChat(long serial, std::string answer, bool proposal);
    void closeChat(long serial);
    void enterTell(RigChat& chat, const std::function<void()>& pressEnter);
    bool routeTell(const std::string& line);
    void checkTaken(const std::string& line, const RigChat* taker, const std::string& inserted) const;
    void setChatCaption(int window, const std::string& caption);
    void checkSent(const std::string& bytes);
    void checkChats() const;

    // Text and windows, StreamRig.cpp
    void deliver();
    void parseBatch(const std::string& batch);
    void checkConsole(const std::string& batch, std::size_t before, bool verbose, bool promptShown) const;
    std::string shown() const;
    const void* openBoard();
    RigBoard* boardOf(long serial) const;
    RigChat* chatOf(long serial) const;
    void closeBoard(RigBoard& board, bool destroyNow);
    void clearBoards();
    void finish();
    void checkRest();
    void checkBoard(const Game& game) const;

    Tape tape_;
    std::int64_t now_ = 0; // ms
    int pumps_ = 0;        // that run now
    int idlePumps_ = 0;    // of a board's load, in a row, in which nothing happened
    long events_ = 0;      // that happened inside pumps
    long serials_ = 0;     // of boards and boxes
    long tells_ = 0;       // that chat boxes took
    bool connected_ = true;
    bool relationFaked_ = false; // a record claimed the relation of a board without a game
    bool autoLogonDue_ = false;
    bool seekGraph_ = false;
    std::array<bool, 3> armed_{}; // by SessionTimer

    ArrivalCutter cutter_;
    std::string given_;   // all bytes the server sent
    std::string arrived_; // all bytes of all arrivals
    std::string waiting_; // of the arrival that GetData has not taken
    std::string console_;
    std::string promptCaption_;
    std::string lastSent_; // the latest line to the server, without its LF

    ServerLines lines_;
    TextPipeline pipeline_{lines_};
    Captures captures_;
    LineClassifier classifier_{lines_, captures_};
    ServerRoad road_;
    LogOn logOn_{pipeline_, road_};
    TypingKeys keys_{road_, logOn_};
    BlockMode blockMode_;
    GameRouting routing_;
    ChatRouting chatRouting_;
    std::string typed_;
    std::vector<Menu*> menus_;                      // that are up, the latest last
    std::vector<std::unique_ptr<RigBoard>> boards_; // open
    std::vector<std::unique_ptr<RigBoard>> closed_; // closed, destroyed when nothing runs
    std::vector<std::unique_ptr<RigChat>> chats_;   // open
};
