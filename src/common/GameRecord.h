// A played game as texts: what the server's move list says of it, and what a game file takes from it.
#pragma once

#include "common/FixedArray.h"

#include <cstdint>
#include <string>

// Move and time texts stand by move number, 1 to 200; entry 0 is not used by a game that counts from 1. The capture
// of a move list fills modChess.MovesRecord; a board that takes a game over keeps a copy of its own.
struct GameRecord {
    static constexpr int LastNumber = 200;
    using Texts = FixedArray<std::string, LastNumber, "moves of a game record">;

    std::string Header;    // the whole line, CR LF included
    std::string MatchLine; // the whole line, CR LF included
    std::string Site;
    std::string White; // handles
    std::string Black;
    std::int16_t WhiteElo = 0;
    std::int16_t BlackElo = 0;
    std::string DateText;    // "Thu Oct 14 1999", from which Date is made
    std::string Date;        // "1999.10.14"
    std::string Time;        // "20:36"
    std::string Event;       // "Rated blitz match"
    std::string TimeControl; // minutes and seconds: "5+0"
    float LastMove = 0;      // N with black's half of move N, N - 0.5 without; 0 for no moves
    Texts WhiteMoves;
    Texts BlackMoves;
    Texts WhiteTimes; // brackets included: "(0:05)"
    Texts BlackTimes;
    std::string ResultLine; // the whole line, CR LF included
};
