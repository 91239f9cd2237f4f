// Games of a file as lists of move texts: just enough of the format for the files in tests/data/games.
#pragma once

#include <string>
#include <vector>

struct GameText {
    std::string fen; // empty for the usual start position
    std::vector<std::string> moves;
};

// The games of tests/data/games/`file`: a line of moves for each, perhaps with a [FEN "..."] line in front of it. A
// game on two boards gives two, the moves of 1A. and 1a. and those of 1B. and 1b.; throws std::runtime_error without
// the file.
std::vector<GameText> gamesOf(const std::string& file);
