// Walking through a board's game: move by move in a local one, by commands in an examined one, in the store otherwise.
#include "board/Game.h"

#include "board/PieceCodes.h"
#include "common/Squares.h"
#include "records/MoveDecoder.h"

namespace {

enum Step : int { First = -2, Back, Stay, Forward, Last };

const char* commandOf(int step) {
    switch (step) {
    case First:
        return "Back 999";
    case Back:
        return "Back";
    case Forward:
        return "For";
    default:
        return "For 999";
    }
}

} // namespace

void Game::zdeAnn(std::string_view move, std::int16_t colour, std::int16_t& from, std::int16_t& to, bool& ok) {
    const MoveReading reading = readMoveText(move);
    if (reading.promotion) PromotePiece = *reading.promotion;
    if (reading.drop) Board[HandSquare] = static_cast<std::int16_t>(colour * reading.piece);
    const MoveSquares found =
        findMove(reading, colour, from, Board, [this](int square, int target) { return zMoveLegal(square, target); });
    from = found.from;
    to = found.to;
    ok = found.ok;
}

void Game::zShowAnn(std::int16_t moveNumber, std::int16_t side) {
    if (moveNumber == 0) {
        surface.setLastMove("");
        return;
    }
    surface.setLastMove(std::to_string(moveNumber) + (side == 1 ? ". " : ".. ") + grdMoves.currentText());
}

void Game::zReposition(int step) {
    if (step == Stay) return;
    if (examining()) {
        surface.zSendMsg(commandOf(step));
        return;
    }
    putDown();
    if (icsMode) {
        viewStep(step);
    } else {
        localStep(step);
    }
}

// At the start there is no step back, and the label stays empty.
void Game::localStep(int step) {
    if (step == First) {
        zStart();
    } else if (step == Back && !atStart()) {
        zStepBack();
        showCurrentMove();
    } else if (step == Forward && CanForward) {
        zStepForward(true);
        showCurrentMove();
    } else if (step == Last && CanForward) {
        goToLast();
        zSetTop();
    }
}

// A game from a file may end with the number of a move that is not there: its last move is in the row above.
void Game::goToLast() {
    if (LastCol < 0) {
        zGoToPosition(static_cast<std::int16_t>(LastRow - 1), 2);
    } else {
        zGoToPosition(LastRow, static_cast<std::int16_t>(LastCol + 1));
    }
}

void Game::viewStep(int step) {
    if (step == Back) {
        zStepBack();
        showCurrentMove();
        return;
    }
    const std::int32_t newest = NextPly - 2;
    if (step == Forward && ShownPly >= newest) return;
    ShownPly = step == First ? 0 : step == Forward ? ShownPly + 1 : newest;
    zGetPos(ShownPly, false, true);
}

// A piece in hand goes back to its square: the board that it was lifted from is left.
void Game::putDown() {
    if (!hand.Dragging) return;
    hand.Dragging = false;
    hand.FromSet = 0;
    surface.zMovePiece(0, 0, 0);
    drawSquare(hand.DragFrom, 0);
}

// A played game stays where it is: the step back of a live game turns whose move it is, until the next position comes.
void Game::zStepBack() {
    if (icsMode) {
        if (ShownPly <= 0) return;
        zGetPos(ShownPly, false, true);
        Turn = static_cast<std::int16_t>(-Turn);
        return;
    }
    if (atStart()) return;
    Turn = static_cast<std::int16_t>(-Turn);
    const int col = (1 - Turn) / 2;
    if (col == 1) --MoveRow;
    zGetPos(zDevMove(), false, true);
    takeBackRecord();
    if (zDevMove() < Deviated) {
        zFor(true);
        Deviated = 0;
    }
    if (GridLightOn) {
        if (col == 1) {
            grdMoves.goTo(MoveRow, 1);
        } else {
            grdMoves.goTo(MoveRow - 1, 2);
        }
        lightCurrentMove();
    } else {
        grdMoves.setCell(MoveRow, col + 1, "");
        if (col == 0) grdMoves.setCell(MoveRow, 0, "");
    }
    zSetTop();
    zUpdate();
}

void Game::takeBackRecord() {
    constexpr int NeverCaptured = 7;
    auto& record = undo();
    if (record[5] == NeverCaptured) KingMoved[Turn + 1] = false;
    EPGranted = record[6];
    for (int kind = 0; kind <= 5; ++kind) record[kind] = 0;
}

// Behind the last row no move can be stored. A text that is no move leaves no promotion piece, which the user's next
// pawn at the end would become without a question; a drop that was read as the move of a piece leaves none in the hand.
std::string Game::zStepForward(bool display) {
    std::int16_t from = 0;
    std::int16_t to = 0;
    bool ok = false;
    if (MoveRow <= LastMoveRow) zdeAnn(MoveText[MoveRow][(1 - Turn) / 2], Turn, from, to, ok);
    zSetFrom(from);
    if (asksPromotion(to)) PromotePiece = Piece::Queen; // a stored "e8" can ask nobody
    std::string text = zMakeMove(to, true, display);
    if (text.empty()) PromotePiece = 0;
    Board[HandSquare] = 0;
    if (!display) return text;
    if (GridLightOn) lightCurrentMove();
    if (!icsMode) zUpdate();
    return text;
}

void Game::zStart() {
    zLoadPosition(InitialLine, false);
    zFillMoveList();
    grdMoves.goTo(0, 2); // as behind the last step back: none of the moves is the current one
    zSetTop();
    zFor(true);
    Deviated = 0;
    Turn = 1;
    surface.setLastMove("");
}

void Game::zEnd() {
    while (!zStepForward(false).empty()) {
    }
    zSetTop();
    if (LastRow == 0) return;
    zGetPos(2 * LastRow + LastCol - 2, true, false);
    grdMoves.goTo(LastRow, LastCol + 1);
    zGridLight(grdMoves.currentText());
}

// Before the start there is no position: a board without moves has its last one there.
void Game::zGoToPosition(std::int16_t row, std::int16_t col) {
    const int ply = 2 * row + col - 2;
    if (row > LastRow || ply < 0) return;
    putDown();
    zGetPos(ply, true, true);
    grdMoves.goTo(row, col);
    zGridLight(grdMoves.currentText());
    zShowAnn(row, col);
    MoveRow = row;
    Turn = static_cast<std::int16_t>(2 * (col - 2) + 1);
    if (Turn == 1) ++MoveRow;
    mnuClean();
}

void Game::grdMovesClick(int row, int col) {
    if (row < 1 || col < 1) return;
    if (!examining()) {
        zGoToPosition(static_cast<std::int16_t>(row), static_cast<std::int16_t>(col));
        return;
    }
    const int ahead = 2 * (row - 1) + col - (2 * (CurRow - 1) + CurCol);
    if (ahead > 0) surface.zSendMsg("For " + std::to_string(ahead));
    if (ahead < 0) surface.zSendMsg("Back " + std::to_string(-ahead));
}

void Game::lblMoveDoubleClick() { surface.zSendMsg("Revert"); }

void Game::holdStoredGame() {
    GameLoaded = true;
    GridLightOn = true;
}

void Game::zFillMoveList() {
    for (int row = 1; row <= LastRow; ++row) {
        grdMoves.setCell(row, 0, std::to_string(row));
        grdMoves.setCell(row, 1, MoveText[row][0]);
        grdMoves.setCell(row, 2, MoveText[row][1]);
    }
}
