// One Style 12 line of the server as a record.
#pragma once

#include <cstdint>
#include <string>

// Filled by the readers of board/Style12Line.h. 16-bit fields as the server's tokens give them.
struct Style12Record {
    std::string Position;        // 64 characters, a1 first, h1 eighth, h8 last; unchecked length
    std::int16_t SideToMove = 0; // 0 white, 1 black
    std::int16_t DoublePushFile = 0;
    bool WhiteShort = false;
    bool WhiteLong = false;
    bool BlackShort = false;
    bool BlackLong = false;
    std::int16_t Irreversible = 0;
    std::int16_t GameNumber = 0;
    std::string WhiteName;
    std::string BlackName;
    std::int16_t Relation = 0;    // 2, 1, 0, -1, -2, -3; -100 on a board with no game
    std::int16_t InitialTime = 0; // minutes
    std::int16_t Increment = 0;   // seconds
    std::int16_t WhiteStrength = 0;
    std::int16_t BlackStrength = 0;
    std::int16_t WhiteClock = 0; // seconds, may be negative
    std::int16_t BlackClock = 0; // seconds, may be negative
    std::int16_t MoveNumber = 0; // of the move about to be made
    std::string VerboseMove;     // "P/e2-e4", "o-o", "o-o-o", "none"
    std::string MoveTime;        // "(0:00)"
    std::string PrettyMove;      // "e4", "O-O", "none"
    bool Flip = false;           // black is to be shown at the bottom

    friend bool operator==(const Style12Record&, const Style12Record&) = default;
};
