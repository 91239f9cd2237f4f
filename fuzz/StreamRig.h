// The session and its boards without windows: what fuzz_stream feeds.
#pragma once

#include "Tape.h"
#include "board/GameRouting.h"
#include "platform/ArrivalCutter.h"
#include "session/BlockMode.h"
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

// A board window without a window.
struct RigBoard {
    Game game;
    bool clockRuns = false;
    bool noPlayRuns = false;
};

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

    // Wiring, StreamWiring.cpp
    void wirePipeline();
    void wireClassifier();
    void wireRouting();
    void wireRoad();
    void fillSurface(RigBoard& board);
    void fillGrid(RigBoard& board);

    // The outside world, StreamEvents.cpp
    void happen(const Tape::Segment& segment);
    void sessionEvent(int kind, std::size_t which);
    void boardEvent(int kind, RigBoard& board);
    void windowEvent(int kind, RigBoard& board);
    void fire(SessionTimer timer);
    void pressAutoLogonKey();
    void reconnect();
    void pump();
    void loadPump();

    // Text and windows, StreamRig.cpp
    void deliver();
    void parseBatch(const std::string& batch);
    void checkConsole(const std::string& batch, std::size_t before, bool verbose, bool promptShown);
    std::string shown() const;
    const void* openBoard();
    void closeBoard(RigBoard& board, bool destroyNow);
    void clearBoards();
    void finish();
    void checkRest() const;
    void checkBoard(const Game& game) const;

    Tape tape_;
    std::int64_t now_ = 0; // ms
    int pumps_ = 0;        // that run now
    int idlePumps_ = 0;    // of a board's load, in a row, in which nothing happened
    long events_ = 0;
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

    ServerLines lines_;
    TextPipeline pipeline_{lines_};
    Captures captures_;
    LineClassifier classifier_{lines_, captures_};
    ServerRoad road_;
    LogOn logOn_{pipeline_, road_};
    TypingKeys keys_{road_, logOn_};
    BlockMode blockMode_;
    GameRouting routing_;
    std::string typed_;
    std::vector<std::unique_ptr<RigBoard>> boards_; // open
    std::vector<std::unique_ptr<RigBoard>> closed_; // closed, destroyed when nothing runs
};
