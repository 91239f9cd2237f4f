// A board window for benchmarks, with roads that lead nowhere.
#pragma once

#include "board/QuietRoads.h"
#include "board/Style12Line.h"
#include "board/frmChessBoard.h"
#include "common/modChess.h"
#include "settings/MemoryStore.h"

#include <memory>

// A game on which white is to move, its squares `side` pixels wide.
struct BenchBoard {
    explicit BenchBoard(int side) {
        board.load();
        auto* view = board.findChild<BoardView*>();
        board.resize(board.width(), board.height() + 8 * (side - view->geometry().SquarePixels));
        board.game.zBoardSetup(false);
        const auto line = cutStyle12(FixedStartLine, LineEnd::RestIsToken);
        readStyle12(line.value(), Style12Fields::All, modChess.Record);
        modChess.Record.Relation = 1;
        modChess.Record.Flip = false;
        modChess.NewGameFlag = true;
        board.game.zGS();
        board.game.zSetPosition(false);
        board.game.noPlay = false;
    }

    CommandHistory history;
    BoardRoads roads = quietBoardRoads(memoryStore(std::make_shared<MemoryValues>()), history);
    frmChessBoard board{roads};
};
