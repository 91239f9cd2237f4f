// The program without its windows: how a board reaches its user and the server.
#include "StreamRig.h"

#include "Require.h"
#include "common/modChess.h"
#include "settings/MouseSlips.h"

#include <cmath>

RigBoard::RigBoard(StreamRig& rig)
    : game(rig.boardSurface(*this), StreamRig::gridSurface(*this)), input(game, rig.mouseSurface(*this)) {}

GameSurface StreamRig::boardSurface(RigBoard& board) {
    return {
        .zDrawSquare =
            [&board](int square, int mode) {
                require(square >= 0 && square < 64, "a square that is drawn is on the board");
                require(mode >= -1 && mode <= 1, "a square is drawn plain or marked");
                require(std::abs(board.game.Board[square]) <= 6, "what is drawn is a piece or nothing");
                board.marks[static_cast<std::size_t>(square)] = mode;
            },
        .zMovePiece =
            [](float x, float y, int alpha) {
                require(std::isfinite(x) && std::isfinite(y), "a piece is moved to a point");
                require(alpha >= 0 && alpha <= 255, "a piece is blended in 8 bits");
            },
        .paintBoard = [&board] { board.paint(); },
        .keepPicture = [] {},
        .setPointerPicture =
            [](int picture) { require(picture == 0 || picture == 3 || picture == 4, "there are three pointers"); },
        .setLastMove = [](const std::string&) {},
        .setClock =
            [](int side, const std::string& text) {
                require((side == 0 || side == 1) && text.find(':') != text.npos, "a clock shows a time");
            },
        .setClockColor = [](int, std::uint32_t) {},
        .showHoldings = [](const std::string&, const std::string&) {},
        .hideHoldings = [] {},
        .setPanel = [](int panel, const std::string&) { require(panel >= 1 && panel <= 3, "there are three panels"); },
        .setTitle = [](const std::string&) {},
        .showUn = [](bool) {},
        .enableSavePGN = [](bool) {},
        .bringToFront = [] {},
        .startClock = [&board] { board.clockRuns = true; },
        .stopClock = [&board] { board.clockRuns = false; },
        .startNoPlay =
            [&board] {
                board.noPlayRuns = true;
                if (board.promotion) board.promotion->givenUp = true;
            },
        .stopNoPlay = [&board] { board.noPlayRuns = false; },
        .secondsOfDay = [this] { return static_cast<double>(clock_.millisecondsOfDay()) / 1000; },
        .print = [](const std::string&) {},
        .beep = [] {},
        .playSound = [](std::string_view, std::int16_t) {},
        .zSendMsg = [this, &board](const std::string& text) { sendFromBoard(board, text); },
        .zSqFinish = [&board](int square) { board.input.zSqFinish(square); },
    };
}

MoveInputSurface StreamRig::mouseSurface(RigBoard& board) {
    return {
        .zGetSqr = [&board](float x, float y) { return board.geometry.zGetSqr(x, y); },
        .DisplaySquare = [&board](int square) { return board.geometry.DisplaySquare[square]; },
        .centreOf =
            [&board](int position) {
                BoardPoint point;
                board.geometry.zGetXY(static_cast<std::int16_t>(position), point.x, point.y);
                const float half = static_cast<float>(board.geometry.SquarePixels) / 2;
                return BoardPoint{point.x + half, point.y + half};
            },
        .zYankPiece = [](int square) { require(square >= 0 && square < 64, "a piece is taken from the board"); },
        .startSlip =
            [&board](int milliseconds) {
                require(milliseconds == slipDelay(modChess.MouseSlip) && milliseconds > 0,
                        "a delay is that of the setting");
                board.slip = milliseconds;
            },
        .stopSlip = [&board] { board.slip = 0; },
        .popupDrop = [&board](const DropEntries& entries) { board.drops = entries; },
        .popupPromote = [this, &board] { popupPromote(board); },
        .focusTyping = [] {},
        .moveMade = [this] { moveMade(); },
    };
}

// The grid's window reads the cell that it is told to show.
MoveGridSurface StreamRig::gridSurface(RigBoard& board) {
    const MoveGridState& grid = board.game.grdMoves;
    return {
        .showCell = [&grid](int row, int col) { static_cast<void>(grid.text(row, col).size()); },
        .scrollTo = [&grid](int row) { static_cast<void>(grid.text(row, 0).size()); },
        .setUp = [] {},
        .showCurrent = [&grid] { static_cast<void>(grid.currentText().size()); },
        .zFindBottomRow = [] {},
    };
}
