// The board line "<12> ..." that clients read.
#pragma once

#include "practice/chess/Position.h"

#include <string>

namespace practice {

// Everything one board line tells. Names stand without titles, times are whole seconds.
struct BoardLine {
    Position position;
    int doublePushFile = -1; // 0..7 for a..h, -1 when the last move was no pawn's double step
    int gameNumber = 0;
    std::string white;
    std::string black;
    int relation = 0; // 1 own move, -1 the opponent's move, 0 watching, 2 examining, -2 watching an examiner
    int minutes = 0;
    int increment = 0;  // seconds a move
    int whiteClock = 0; // seconds left, below zero after the flag fell
    int blackClock = 0;
    std::string verboseMove = "none";
    std::string moveTime = "(0:00)";
    std::string prettyMove = "none";
    bool flip = false;    // black at the bottom
    bool ticking = false; // a clock runs
};

// The line with its 33 tokens and without a line end.
std::string composeStyle12(const BoardLine& line);

// "<b1> game 12 white [PN] black []": what both sides may drop.
std::string composeHoldings(int gameNumber, const Position& position);

} // namespace practice
