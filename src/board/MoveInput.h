// Moves by mouse: a piece lifted, dragged and dropped, the anti-slip delay, the queued pre-move, the drop menu.
#pragma once

#include "board/Game.h"
#include "common/Needed.h"

#include <array>
#include <cstdint>
#include <string>
#include <utility>

// One entry of the drop menu.
struct DropEntry {
    std::string caption; // "Queen 2", or the bare word when there is none to drop
    bool enabled = false;
};

// Queen, rook, bishop, knight, pawn.
using DropEntries = std::array<DropEntry, 5>;

// A point of picChess in pixels from the top left corner of the top left square.
struct BoardPoint {
    float x = 0;
    float y = 0;
};

// What move input needs beside the game's own surface. Every member must be given, and none runs the message loop.
struct MoveInputSurface {
    Needed<int(float x, float y)> zGetSqr;              // position in the view; 64 beside
    Needed<int(int position)> DisplaySquare;            // to a square and back
    Needed<BoardPoint(int position)> centreOf;          // of a view position
    Needed<void(int square)> zYankPiece;                // onto the pointer
    Needed<void(int milliseconds)> startSlip;           // tmrSlip from now on
    Needed<void()> stopSlip;                            // tmrSlip ends nothing
    Needed<void(const DropEntries& entries)> popupDrop; // mnuDrop; drop() answers
    Needed<void()> popupPromote;                        // mnuPromote; promote() answers, from the message loop
    Needed<void()> focusTyping;                         // txtSend
    Needed<void()> moveMade;                            // a piece was dropped, wherever it went; resetSelfCheck
};

// The move in hand of one board, whose state is in its game: no move (FromSet 0, Dragging false); lifted (FromSet 1,
// Dragging true); released in delay (tmrSlip running, Dragging still true); finished by zSqFinish. Two styles, by
// modChess.DragMode: drag and drop, or click and click. Lives and dies with its game. Buttons are 1 left, 2 right, in a
// move their sum, 0 none.
struct MoveInput {
    MoveInput(Game& ofGame, MoveInputSurface needs) : game(ofGame), surface(std::move(needs)) {}
    MoveInput(const MoveInput&) = delete;
    MoveInput& operator=(const MoveInput&) = delete;

    Game& game;
    MoveInputSurface surface;
    std::string DropSquare; // name of the square on which the drop menu was opened

    // The mouse over picChess

    void mouseDown(int button, float x, float y);
    void mouseMoved(int button, float x, float y);
    void mouseUp(int button, float x, float y);
    // The delay has run out: the piece lands at the held point, except at EndlessSlip.
    void tmrSlip();

    // Lands the piece that hangs on the pointer in the square at a point; one let go beside the board goes back to
    // where it was lifted.
    void zMouseUp(float x, float y);
    // Finishes the move in hand on `square`: queued as the pre-move while MoveMode is 1, else played. A pawn that
    // needs its promotion named goes when promote() is called. Faults (subscript) past row 200.
    void zSqFinish(int square);
    // The answer of mnuPromote: 2 queen, 3 rook, 4 bishop, 5 knight, 0 for a menu that was dismissed. No move is made
    // if the pawn or its turn has gone meanwhile. Faults as zSqFinish.
    void promote(int piece);
    // Entry 0 to 4 of the drop menu: "Q@", "R@", "B@", "N@" or "P@" with DropSquare goes to the server; nothing once
    // the window has closed.
    void drop(int entry);
    // The board was painted whole: the piece in hand comes back to the pointer and leaves its square again.
    void boardPainted();
    // The window closes: the move in hand is given up.
    void stop();

private:
    bool inDelay() const { return slipping_ && game.hand.Dragging; }
    bool follows(int button) const;
    void pressWhileDragging(int button, float x, float y);
    void lift(int square, float x, float y);
    void openDropMenu(int square);
    void pointTo(float x, float y);
    void hover(int position);
    void rest(bool beside);
    void startSlip(int milliseconds);
    void stopSlip();
    void queuePreMove(int square);
    void unmarkPreMove();
    void playMove(int square);
    void askPromotion(int square);
    void putBack(const AskedPromotion& asked) const;
    void showFinished();
    void keepMove(int row, int col, const std::string& text);

    bool slipping_ = false;  // tmrSlip runs
    int slipInterval_ = 165; // of tmrSlip, milliseconds
    int liftedCode_ = 0;     // the piece on the pointer
    int liftedMode_ = 0;     // how its square was marked
};
