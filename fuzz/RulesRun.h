// One game of random moves on a random position: what fuzz_rules feeds.
#pragma once

#include "MoveModel.h"
#include "board/QuietGame.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// An input of fuzz_rules:
//
//   byte 0     bit 0 a game of the server, 1 queens without asking, 2 black to move, 3 the usual start position,
//              4 the king of the side to move has moved, 5 each step picks a move that the rules allow
//   byte 1     the row of the move list to begin at, 1 to 200
//   32 bytes   two squares each, from a1, unless bit 3 is set: 1 to 6 white, 7 to 12 black, else empty
//   2 bytes    a step, to the end: bits 0 to 5 the squares; bits 6 and 7 of the first which piece to promote to or
//              to drop; of the second 1 no promotion, 2 the latest move is taken back, 3 a drop
//
// A fault past row 200 is an end that the rules provide for; any other is a finding.
class RulesRun {
public:
    explicit RulesRun(std::string_view bytes);

    void run();

private:
    // The board before a move.
    struct Before {
        BoardSquares squares;
        std::int16_t turn;
        std::int16_t row;
    };

    std::uint8_t nextByte();
    void setUp();
    void step(std::uint8_t first, std::uint8_t second);
    void pickMove(int& from, int& to) const;
    std::string make(int from, int to, bool legal);
    void move(int from, int to);
    void drop(int kind, int to);
    void takeBack();

    void checkAnySquares(int from, int to);
    void checkMade(const Before& before, int from, int to, const std::string& text);
    void checkText(const Before& before, int from, int to, const std::string& text) const;
    void checkSent(int from, int to, const std::string& text) const;
    void checkUndo(const Before& before);
    void checkRecord(const Before& before) const;
    BoardSquares boardAfter(const Before& before, int from, int to) const;

    std::string_view rest_;
    bool picks_ = false;
    int promotion_ = 0;        // the answer of the menu; 0 none
    std::string sent_;         // by the last move
    std::vector<Before> past_; // of a local game
    ModelGrants grants_;
    FixedArray<bool, 2> kingMoved_; // as the game has it from the start
    std::unique_ptr<Game> game_ = quietGame();
};
