// The end of a move by mouse: queued as the pre-move, or played and written down.
#include "board/MoveInput.h"

bool MoveInput::zSqFinish(int square) {
    if (game.MoveMode == 1) {
        queuePreMove(square);
    } else if (!playMove(square)) {
        return false;
    }
    if (!game.icsMode && game.GridLightOn) game.zGridLight(game.CanForward ? game.grdMoves.currentText() : "No");
    return game.zUpdate();
}

// No rule is tested here: the position in which the pre-move will be played is not known yet.
void MoveInput::queuePreMove(int square) {
    game.FromSet = 0;
    if (game.PreMoveSet) unmarkPreMove();
    game.PreMoveSet = square != game.FromSq;
    if (!game.PreMoveSet) {
        game.drawSquare(game.FromSq, 0); // the piece is back on its square
        return;
    }
    game.ToSq = static_cast<std::int16_t>(square);
    game.drawSquare(game.FromSq, 1);
    game.drawSquare(game.ToSq, 1);
    game.PreFrom = game.FromSq;
    game.PreTo = game.ToSq;
}

void MoveInput::unmarkPreMove() {
    game.drawSquare(game.PreFrom, 0);
    game.drawSquare(game.PreTo, 0);
}

bool MoveInput::playMove(int square) {
    const int row = game.MoveRow;
    const int col = (1 - game.Turn) / 2;
    // A pre-move that a position played with this piece in hand has taken the from-square: both squares go back.
    if (game.FromSet != 1) game.ToSq = static_cast<std::int16_t>(square);
    const auto text = game.zMakeMove(square, true, true);
    if (!text) return false;
    if (text->empty()) {
        game.drawSquare(game.FromSq, 0);
        game.drawSquare(game.ToSq, 0);
    } else {
        keepMove(row, col, *text);
    }
    return true;
}

// A move that repeats the game held here walks along it; another one overwrites it and ends what lay ahead, but the
// moves of a loaded game stay.
void MoveInput::keepMove(int row, int col, const std::string& text) {
    if (game.GameLoaded) {
        if (game.Deviated != 0) return;
    } else {
        if (text == game.MoveText[row][col]) return;
        game.MoveText[row][col] = text;
        game.MoveText[row + col][1 - col].clear();
    }
    game.Deviated = game.zDevMove();
    game.zFor(false);
}
