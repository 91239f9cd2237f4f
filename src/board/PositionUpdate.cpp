// How a position reaches the board: squares, move list, sound, marks, clocks, and last the queued pre-move.
#include "board/Game.h"

#include "board/PieceCodes.h"
#include "common/Text.h"
#include "common/modChess.h"

#include <cstdlib>

void Game::zSetPosition(bool init, bool noShow) {
    hand.DragAlpha = 0;
    if (hand.Dragging) surface.zMovePiece(0, 0, 0); // squares paint on a clean surface
    putPosition(init, noShow);
    zUpdate();
    if (init) {
        finishMoveInHand();
        return;
    }

    listMove();
    zSetTop();
    if (Style12Record.Relation == 2) zGridLight(Style12Record.PrettyMove);
    showLastMove();
    NextPly = 2 * Style12Record.MoveNumber + Style12Record.SideToMove;
    ShownPly = NextPly - 2;
    MoveRow = Style12Record.MoveNumber;
    Turn = static_cast<std::int16_t>(1 - 2 * Style12Record.SideToMove);
    if (modChess.NewGameFlag) beginGame();
    soundMove();
    zHighlightMove(Style12Record.VerboseMove);
    zStorePos(NextPly - 2);
    showClocks();
    finishMoveInHand();
}

void Game::zReceiveMove(std::int16_t) { zSetPosition(false, false); }

void Game::putPosition(bool init, bool noShow) {
    const std::string& position = Style12Record.Position;
    for (int square = 0; square < 64; ++square) {
        const auto place = static_cast<std::size_t>(square);
        const std::int16_t code = place < position.size() ? pieceCode(position[place]) : std::int16_t{0};
        if (code == Board[square]) continue;
        if (!init && code == 0) FromSq = static_cast<std::int16_t>(square);
        Board[square] = code;
        if (!noShow) surface.zDrawSquare(square, 0);
    }
}

// An examined game whose whole list was fetched keeps its list; only the current cell follows. A click counts from the
// move last played, whether there is a list or not.
void Game::listMove() {
    const auto& record = Style12Record;
    MoveRow = static_cast<std::int16_t>(record.SideToMove == 1 ? record.MoveNumber : record.MoveNumber - 1);
    if (record.Relation == 2) {
        CurRow = MoveRow;
        CurCol = static_cast<std::int16_t>(2 - record.SideToMove);
    }
    if (record.Relation == 2 && !modChess.ExamineNoMoves) {
        grdMoves.goTo(CurRow, CurCol);
    } else if (2 * record.MoveNumber + record.SideToMove <= NextPly) {
        blankMoveAhead();
    } else {
        enterMove();
    }
}

// The game went back, or the position came again. MoveText keeps its texts.
void Game::blankMoveAhead() {
    const int row = Style12Record.MoveNumber;
    if (Style12Record.SideToMove == 1) {
        grdMoves.setCell(row, 2, "");
    } else {
        grdMoves.setCell(row, 1, "");
        grdMoves.setCell(row, 0, "");
    }
}

void Game::enterMove() {
    const int side = Style12Record.SideToMove;
    grdMoves.setCell(MoveRow, 0, std::to_string(MoveRow));
    grdMoves.setCell(MoveRow, 2 - side, Style12Record.PrettyMove);
    MoveText[MoveRow][1 - side] = Style12Record.PrettyMove;
    zStorePos(2 * MoveRow - side);
    LastRow = MoveRow;
    LastCol = static_cast<std::int16_t>(1 - side);
}

void Game::showLastMove() {
    if (MoveRow == 0) {
        surface.setLastMove("");
        return;
    }
    const char* const points = Style12Record.SideToMove != 0 ? ". " : ".. ";
    surface.setLastMove(std::to_string(MoveRow) + points + Style12Record.PrettyMove);
}

void Game::beginGame() {
    currentGame = xGame();
    icsMode = true;
    if (std::abs(Style12Record.Relation) >= 2) {
        surface.stopClock();
        modChess.GameRunning = false;
    } else {
        surface.startClock();
        modChess.GameRunning = true;
    }
    if (Style12Record.Flip != Flipped) mnuInvert();
    zGridSetup();
}

void Game::soundMove() {
    const std::string& move = Style12Record.PrettyMove;
    std::string_view name = "move.wav";
    if (lower(move) == "none") {
        HoldingsShown = false;
        surface.hideHoldings();
        name = "fitebell.wav";
    } else if (contains(move, "x")) {
        name = "capture.wav";
    } else if (contains(move, "O-O")) {
        name = "castle.wav";
    }
    surface.playSound(name, modChess.SoundMove);
}

// MoveMode is cleared only after the pre-move was played: zSqFinish reads what the last hover left in it.
void Game::finishMoveInHand() {
    if (PreMoveSet) {
        PreMoveSet = false;
        FromSq = PreFrom;
        hand.FromSet = 1;
        surface.zSqFinish(PreTo);
    } else {
        FromSq = hand.DragFrom;
    }
    hand.MoveMode = 0;
    hand.DragAlpha = 128;
    if (hand.Dragging) {
        surface.keepPicture();
        surface.zMovePiece(hand.MouseX, hand.MouseY, hand.DragAlpha);
    }
}
