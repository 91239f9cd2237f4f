// Taking over a game from a file.
#include "board/Game.h"

#include "board/Style12Line.h"
#include "records/PgnMoves.h"

#include <utility>

// A board with a game of the server on it makes the moves as any other does, and sends none. A pointer that rests on a
// piece of the user leaves a MoveMode under which the pre-move would be queued again.
void Game::zReadPGNgame(LineFile& file) {
    const std::string text = readPgnMoves(file);
    putDown();
    const bool live = std::exchange(icsMode, false);
    hand.MoveMode = 0;
    zLoadPosition(FixedStartLine, false); // a queued pre-move is used up before the start that is stored
    zParsePGN(text);
    icsMode = live;
    holdStoredGame();
}

// All moves are made once, which stores their positions.
void Game::zParsePGN(std::string_view text) {
    zBoardSetup(true);
    zLoadPosition(FixedStartLine, false);
    const PgnEnd end = cutPgnMoves(
        text, [this](std::int16_t number, int side, std::string_view move) { MoveText[number][side] = move; });
    makeStoredMoves(end.number);
    LastCol = static_cast<std::int16_t>(end.state - 1);
    zStart();
}
