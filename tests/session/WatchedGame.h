// A running game as a server tells it to those who watch, and what a board of it has to show.
#pragma once

#include "board/frmChessBoard.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

// Walks through a recorded game from a place of its own, under a number, names and clocks of its own.
class WatchedGame {
public:
    // `start` is how many positions of the recorded game went before; there are 389.
    WatchedGame(int number, std::string white, std::string black, std::size_t start);

    // The next position as the server sends it, with its prompt.
    std::string next();
    // The game's last line, with its prompt.
    std::string end() const;

    // What its board shows after all of `next` so far: squares, clocks, last move, captions.
    std::string face() const;
    // Its move list: without the move of the first position, which stands there before the list is set up.
    std::string moves() const;

    int number() const { return number_; }

private:
    const std::vector<std::string>& words() const;

    int number_;
    std::string white_;
    std::string black_;
    std::size_t at_;
    int told_ = 0;
    std::map<std::pair<int, int>, std::string> moves_; // by row and side
};

// The same of a board window: from its squares, its labels and its move list.
std::string faceOf(const frmChessBoard& board);
std::string movesOf(const frmChessBoard& board);
