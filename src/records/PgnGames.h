// The games of a file, as their tags tell of them.
#pragma once

#include "common/FixedArray.h"
#include "records/LineFile.h"

#include <cstdint>
#include <string>
#include <string_view>

// Values as they stand in the file, one character a byte.
struct PgnGame {
    std::string Event;
    std::string Site;
    std::string Round;
    std::string White;
    std::string Black;
    std::string Result;
    std::string WhiteElo;
    std::string BlackElo;
    std::string Date;
    std::string Time;
    std::string TimeControl;
    std::int16_t Line = 0; // number of the first line behind the tags, from 1
};

inline constexpr int LastPgnGame = 100;

// Rows 1 to 100; row 0 stays empty. Never cleared: what a file does not tell is what the file before told there.
using PgnTable = FixedArray<PgnGame, LastPgnGame, "games of a file">;

// Whether `line` is a tag, that is begins with "[" and ends with "]"; the value of one that has a name known here goes
// to row `game`. Faults (subscript) outside 0..100.
bool fQuote(std::string_view line, std::int16_t game, PgnTable& games);

// Reads the tags of up to 100 games from the front of `file`. Gives the number of games read plus 1: with 101 the file
// may have more of them. Tags that the end of the file follows are no game. Faults (file), and (overflow) when a game's
// moves begin past line 32767.
std::int16_t readPgnTags(LineFile& file, PgnTable& games);

// The lines with the moves of the game that comes next in `file`, a blank behind each. They end with an empty line:
// faults (file) when the file ends before that.
std::string readPgnMoves(LineFile& file);
