// Reads the server's answer to "moves" and "smoves": one game, line by line, into a record.
#pragma once

#include "common/GameRecord.h"

#include <string_view>

// What became of a line.
struct MovesLine {
    bool taken = false; // it belongs to the answer, and the console does not show it
    bool done = false;  // it was the last one
};

// Reads one line, CR LF included, into `record`. What a line does not say keeps its value, also that of another game;
// so does what stands behind a bracket that is missing. Moves are read in fixed columns. Faults (subscript) on a move
// number outside 0..200, and (overflow) on a rating beyond 16 bits.
MovesLine zMovesLines(std::string_view line, GameRecord& record);
