// Writes a game to a PGN file.
#pragma once

#include "common/GameRecord.h"
#include "common/Needed.h"

#include <string>

// Where the user hears of a save.
struct PgnWriterHooks {
    Needed<void(const std::string& text)> print; // at the end of the console, with its line feeds
    Needed<void(const std::string& text)> tell;  // in a box
};

// The game as the file has it: ten tags, an empty line, the moves in lines, the result, an empty line; CR LF ends each
// line, and values stand as they are. A game without any move is empty. Faults (subscript) where the last move's number
// is beyond 200.
std::string pgnText(const GameRecord& record);

// Adds the game at the end of the file at `fileName` (in the file system's own bytes), which is created if it is not
// there, and tells the user. On a failure, such as a game file that is open already, the file is as it was before and
// none is open any more. Never faults.
void zWriteGame(const std::string& fileName, const GameRecord& record, const PgnWriterHooks& hooks);
