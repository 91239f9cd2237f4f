// The packaged chess engine as a process, asked in turn about positions.
#pragma once

#include "practice/chess/Position.h"

#include <string>
#include <sys/types.h>
#include <vector>

// The engine program: fairy-stockfish of PATH, /usr/games or /usr/bin; empty if there is none.
std::string findEngineProgram();

// Starts the engine; ends it when it goes. Every answer is waited for; throws std::runtime_error when the engine ends.
class EngineTalk {
public:
    explicit EngineTalk(const std::string& program);
    ~EngineTalk();
    EngineTalk(const EngineTalk&) = delete;
    EngineTalk& operator=(const EngineTalk&) = delete;

    // The game that is played from now on, standard chess at first: its name with the engine, and whether castling is
    // told as the king taking his rook.
    void play(const std::string& variant, bool chess960) const;

    // The legal moves of a position and whether its side to move stands in check.
    practice::PositionFacts facts(const std::string& fen);

    // The same of the position behind a move.
    practice::PositionFacts factsBehind(const std::string& fen, const std::string& move);

    // The position behind each of the moves, in their order; their legal moves are left out.
    std::vector<practice::PositionFacts> behind(const std::string& fen, const std::vector<std::string>& moves);

private:
    void write(const std::string& text) const;
    std::string line();
    practice::PositionFacts readFacts();

    pid_t process_ = -1;
    int input_ = -1; // of the engine
    int output_ = -1;
    std::string unread_;
};
