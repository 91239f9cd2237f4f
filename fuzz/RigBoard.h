// A board window without a window: the game, the move in hand, and what a user would see of both.
#pragma once

#include "board/MoveInput.h"
#include "view/BoardGeometry.h"

#include <array>
#include <optional>
#include <vector>

class StreamRig;

struct RigBoard {
    // `rig` must outlive the board.
    explicit RigBoard(StreamRig& rig);

    Game game;
    MoveInput input;
    BoardGeometry geometry;
    bool clockRuns = false;
    bool noPlayRuns = false;

    // The mouse
    int slip = 0;               // interval of tmrSlip while it runs, ms
    int held = 0;               // buttons that are down, as a sum
    int pointer = OffBoard;     // display square under the pointer
    int heldPointer = OffBoard; // the same at the mouse-up that tmrSlip holds

    // The menus. One that a press closed tells so behind the press.
    struct Promotion {
        int from;
        int to;
        int pawn;
        int turn;
        int row;
        bool up = true;
        bool givenUp = false; // a new game has begun on the board
    };
    std::optional<Promotion> promotion; // not answered yet
    std::optional<DropEntries> drops;   // the drop menu while it is up
    bool dropping = false;              // an entry of it is being answered
    bool reviewed = false;              // a record stands on it, with the names of its players
    bool walking = false;               // a button or the list is being answered
    bool steppedBack = false;           // what a move granted to the next one may be back

    // What was seen
    std::vector<int> taken;      // squares from which pieces were taken up by hand whose move may still come
    std::array<int, 64> marks{}; // as each square was painted last
    long movesSent = 0;
    int lastFrom = -1; // of the latest move that went to the server
    int lastTo = -1;
    char lastPromotion = 0; // 0 for none

    // The board square under a display square; -1 beside the board.
    int squareAt(int position) const { return position == OffBoard ? -1 : geometry.DisplaySquare[position]; }

    // The window paints itself whole, as large as it always is here.
    void paint() {
        constexpr int FormHeight = (8 * 54 + BoardDesign::MinHeight) * TwipsPerPixelY;
        geometry.Flipped = game.Flipped;
        geometry.zBoardSetup({FormHeight, 0, 0}, 0);
        game.grdMoves.VisibleRows = 10;
        marks.fill(0);
        input.boardPainted();
    }
};
