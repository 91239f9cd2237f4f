// The program without its windows: how a board reaches its user and the server.
#include "StreamRig.h"

#include "Require.h"
#include "common/modChess.h"
#include "settings/MouseSlips.h"

#include <cmath>

void StreamRig::fillSurface(RigBoard& board) {
    GameSurface& surface = board.game.surface;
    surface.zDrawSquare = [&board](int square, int mode) {
        require(square >= 0 && square < 64, "a square that is drawn is on the board");
        require(mode >= -1 && mode <= 1, "a square is drawn plain or marked");
        require(std::abs(board.game.Board[square]) <= 6, "what is drawn is a piece or nothing");
        board.marks[static_cast<std::size_t>(square)] = mode;
    };
    surface.zMovePiece = [](float x, float y, int alpha) {
        require(std::isfinite(x) && std::isfinite(y), "a piece is moved to a point");
        require(alpha >= 0 && alpha <= 255, "a piece is blended in 8 bits");
    };
    surface.paintBoard = [&board] { board.paint(); };
    surface.startClock = [&board] { board.clockRuns = true; };
    surface.stopClock = [&board] { board.clockRuns = false; };
    surface.startNoPlay = [&board] {
        board.noPlayRuns = true;
        if (board.promotion) board.promotion->givenUp = true;
    };
    surface.stopNoPlay = [&board] { board.noPlayRuns = false; };
    surface.secondsOfDay = [this] { return static_cast<double>(clock_.millisecondsOfDay()) / 1000; };
    surface.zSendMsg = [this, &board](const std::string& text) { sendFromBoard(board, text); };
    fillLabels(board);
    fillMouse(board);
    fillGrid(board);
}

void StreamRig::fillLabels(RigBoard& board) {
    GameSurface& surface = board.game.surface;
    surface.setClock = [](int side, const std::string& text) {
        require((side == 0 || side == 1) && text.find(':') != text.npos, "a clock shows a time");
    };
    surface.setPanel = [](int panel, const std::string&) {
        require(panel >= 1 && panel <= 3, "there are three panels");
    };
    surface.setPointerPicture = [](int picture) {
        require(picture == 0 || picture == 3 || picture == 4, "there are three pointers");
    };
}

void StreamRig::fillMouse(RigBoard& board) {
    GameSurface& surface = board.game.surface;
    surface.zSqFinish = [&board](int square) { board.input.zSqFinish(square); };
    MoveInputSurface& input = board.input.surface;
    input.zGetSqr = [&board](float x, float y) { return board.geometry.zGetSqr(x, y); };
    input.DisplaySquare = [&board](int square) { return board.geometry.DisplaySquare[square]; };
    input.centreOf = [&board](int position) {
        BoardPoint point;
        board.geometry.zGetXY(static_cast<std::int16_t>(position), point.x, point.y);
        const float half = static_cast<float>(board.geometry.SquarePixels) / 2;
        return BoardPoint{point.x + half, point.y + half};
    };
    input.zYankPiece = [](int square) { require(square >= 0 && square < 64, "a piece is taken from the board"); };
    input.startSlip = [&board](int milliseconds) {
        require(milliseconds == slipDelay(modChess.MouseSlip) && milliseconds > 0, "a delay is that of the setting");
        board.slip = milliseconds;
    };
    input.stopSlip = [&board] { board.slip = 0; };
    input.popupDrop = [&board](const DropEntries& entries) { board.drops = entries; };
    input.popupPromote = [this, &board] { popupPromote(board); };
}

// The grid's window reads the cell that it is told to show.
void StreamRig::fillGrid(RigBoard& board) {
    MoveGridState& grid = board.game.grdMoves;
    grid.surface.showCell = [&grid](int row, int col) { static_cast<void>(grid.text(row, col).size()); };
    grid.surface.scrollTo = [&grid](int row) { static_cast<void>(grid.text(row, 0).size()); };
}
