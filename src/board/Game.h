// The state of one board and the rules of how positions, clocks and endings reach it.
#pragma once

#include "board/BoardClock.h"
#include "board/GameSurface.h"
#include "board/Holdings.h"
#include "board/MoveGridState.h"
#include "board/MoveInHand.h"
#include "board/PositionStore.h"
#include "common/GameRecord.h"
#include "common/Style12Record.h"
#include "records/PgnGames.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

// One game, owned by its frmChessBoard. Invariants:
// 1. idle: gameIndex 0, Relation -100, icsMode false; running: gameIndex and Relation as the server sent them.
// 2. a board that is up to date has ShownPly == NextPly - 2 and Turn == 1 - 2 * SideToMove.
// 3. nothing here runs the message loop, so no window closes within a call.
// Nothing grows: arrays are fixed, and a subscript past 200 moves or 400 plies faults.
struct Game {
    Game(GameSurface shownBy, MoveGridSurface grid) : surface(std::move(shownBy)), grdMoves(std::move(grid)) {}
    Game(const Game&) = delete;
    Game& operator=(const Game&) = delete;

    GameSurface surface;
    MoveGridState grdMoves;

    // The position
    struct Style12Record Style12Record; // the last position given to this board; its clocks are counted down here
    BoardSquares Board{};
    struct PositionStore PositionStore;
    MoveTexts MoveText;
    MoveUndos MoveUndo{};
    FixedArray<bool, 2> KingMoved{}; // by Turn + 1
    HoldingCounts Holdings{};
    bool HoldingsShown = false;

    // Which game
    std::int32_t id = 0;        // unique per board, from `beginLoad` on
    std::int16_t gameIndex = 0; // game number the board answers to; 0 idle
    bool icsMode = false;       // a server game is on this board
    bool GameLoaded = false;    // the moves came from a stored or reviewed game
    PgnTable PgnGames;          // the games of the file read last
    std::string currentGame;    // text of panel 2 while a game is on
    std::string InitialLine;    // the Style 12 line the game started from

    GameRecord BoardRecord; // the game as the move list said that was taken over last; what is saved

    // Where in the game
    std::int16_t MoveRow = 1; // row of MoveText the board stands at
    std::int16_t Turn = 1;    // 1 white, -1 black
    std::int32_t NextPly = 0; // 2 * MoveNumber + SideToMove of the newest position
    std::int32_t ShownPly = 0;
    std::int16_t LastRow = 0; // last move of the game held
    std::int16_t LastCol = 0; // 0 white, 1 black
    std::int16_t CurRow = 0;  // cell of an examined game: row, and column 1 white, 2 black
    std::int16_t CurCol = 0;
    std::int16_t Deviated = 0; // ply at which the user left the loaded game; 0 while on it
    bool CanForward = false;
    bool GridLightOn = false;
    bool Flipped = false;

    // The move in hand
    MoveInHand hand;
    std::int16_t FromSq = 0;
    std::int16_t ToSq = 0;
    bool PreMoveSet = false;
    std::int16_t PreFrom = 0;
    std::int16_t PreTo = 0;
    std::int16_t HiFrom = 0; // squares painted as the last move; outside 0..63 for none
    std::int16_t HiTo = 0;
    bool noPlay = false; // no piece can be lifted

    // The move being made
    std::int16_t EPGranted = 0;    // -1: a double pawn step beside an enemy pawn
    std::int16_t EPCapture = 0;    // -1: zMoveLegal found the move to be an en passant capture
    std::int16_t PromotePiece = 0; // 0 none; 2 queen, 3 rook, 4 bishop, 5 knight

    // The clock
    float LastSecond = 0; // whole second of the day at which the clock last counted
    FixedArray<std::uint32_t, 1> ClockBackground{};

    // Load, end and closing of the window

    // First step of the window's load: no game, an `id` of its own; raises modChess.SelfCheckOK.
    void beginLoad();
    // Last step: the start position, an empty grid at cell (1, 1), white to move.
    void finishLoad();
    // The game is over; squares, positions and move texts stay for review.
    void zEndParms();
    // Click of cmdUn: leaves an observed ("unob") or examined ("unex") game.
    void cmdUn();

    // Positions from the server

    // Takes over the shared record (modChess.Record).
    void zGS();
    // Shows the record's position. `init` only changes squares, paints and runs the tail; `noShow` leaves out the
    // painting of each square. Faults (subscript) past row 200 or ply 400.
    void zSetPosition(bool init, bool noShow = false);
    // The same as zSetPosition(false); `x` is ignored.
    void zReceiveMove(std::int16_t x);
    // Marks the move of a text such as "P/e2-e4"; never faults.
    void zHighlightMove(std::string_view verbose);
    // Both holdings of a "<b1>" line.
    void zSetBughouse(std::string_view line);
    // A new game has opened here: the move in hand is given up and no piece can be lifted for four seconds.
    void zExitMove();
    // The timer of those four seconds.
    void tmrNoPlay();

    // Positions from a line or from the store

    // Parse into the board's own record, all fields when `icsMode`, else as zStyle12. False and nothing changed
    // without "<12> " or without a blank behind the flip token; faults on text that is no number.
    bool zParseStyle12(std::string_view line);
    // Parse of Position, SideToMove and Flip alone; false as above.
    bool zStyle12(std::string_view line);
    // Shows `line` as a fresh start, ply 0.
    void zLoadPosition(std::string_view line, bool noShow);
    // Squares 0 to 63 to the store; faults (subscript) outside 0..400.
    void zStorePos(std::int32_t ply);
    // Squares from the store: all when `thorough`, else those that differ; painted when `animate`. Faults (subscript).
    void zGetPos(std::int32_t ply, bool thorough, bool animate);

    // Asked from outside

    std::string xGame(); // sets panels 2 and 3 and the title; gives the text of panel 2
    std::int16_t xGameNum() const { return Style12Record.GameNumber; }
    std::string xMyRel() const { return std::to_string(Style12Record.Relation); }

    // Moves of the user and of stored games; what the rules leave out is told in MoveRules.h

    // Whether the piece on `square` (0..64) may be taken up: -1 now, 1 as a pre-move, 0 not.
    std::int16_t zMoveOK(int square) const;
    // The move in hand begins on `square`, 64 for a drop.
    void zSetFrom(int square);
    // Whether the piece on `from` may move to `to`; sets EPCapture. Never faults: a square that is not there gives
    // false.
    bool zMoveLegal(int from, int to);
    // Whether `side` (1 white, -1 black) attacks the other side's king.
    bool zCheckTest(int side);
    // The algebraic text of the move about to be made, without "+". Puts the promotion piece on `from`: PromotePiece
    // or, with AutoQueen, a queen; with neither the pawn goes and no piece comes.
    std::string zMoveText(int from, int to);
    // Whether the user has to be asked for PromotePiece before the move in hand can be made to `to`.
    bool asksPromotion(int to);
    // Makes the move from FromSq to `to`, tested by the rules if `check`, painted and listed if `display`; a live game
    // sends it. Gives its text, empty if no move was made. Faults (subscript) past row 200.
    std::string zMakeMove(int to, bool check, bool display);

    // Walking through the game. A local one is played and taken back move by move; in an examined one (live, Relation
    // 2) the server moves; any other live one shows its store, until the next position comes.

    // -2 to the start, -1 back, 1 forward, 2 to the end; 0 nothing.
    void zReposition(int step);
    // One half-move back in a local game; at its start nothing.
    void zStepBack();
    // Makes the stored move that is next; gives its text, empty if there was none or it could not be made. Faults as
    // zMakeMove does.
    std::string zStepForward(bool display);
    // A local game at its start, with its list filled anew.
    void zStart();
    // Makes all stored moves that lie ahead. With a last row, Board and list then go to the half-move before the last
    // one. Paints nothing. Faults as zMakeMove does.
    void zEnd();
    // The position behind the move in a cell, column 1 white's or 2 black's; nothing past the last row. Faults
    // (subscript).
    void zGoToPosition(std::int16_t row, std::int16_t col);
    // A click in grdMoves; the heading (row 0) and the numbers (column 0) have no position.
    void grdMovesClick(int row, int col);
    // A double click on lblMove: an examined game goes back to its own moves.
    void lblMoveDoubleClick();
    // Takes over the game that comes next in `file`, at its start. Nothing goes to the server. Faults (file) when the
    // file ends within it, (subscript) on a move past row 200, (overflow) on a number past 16 bits.
    void zReadPGNgame(LineFile& file);
    // The same with the text of its moves, in words with a blank behind each.
    void zParsePGN(std::string_view text);
    // The board, at its start, holds a stored game: what every taking over of one ends with.
    void holdStoredGame();

    // Games as records

    // Takes over modChess.MovesRecord, for the game on this board or, if modChess.MovesTarget is negative, for review:
    // the list and the store get its moves, as far as they can be made from the start position, title, panel and
    // console say whose they are. A live game goes on where it stands. Faults as zMakeMove does.
    void zParseMoves();
    // The same from the start position, at which the board then stands as one that holds a stored game.
    void zReviewGame();

    // The texts of rows 1 to LastRow.
    void zFillMoveList();
    // lblMove shows the text of the current cell as the move of that number, side 1 white's; nothing for number 0.
    void zShowAnn(std::int16_t moveNumber, std::int16_t side);
    // The squares of a move's text for the side `colour`, see records/MoveDecoder.h. A drop puts its piece into the
    // hand, a promotion its piece into PromotePiece.
    void zdeAnn(std::string_view move, std::int16_t colour, std::int16_t& from, std::int16_t& to, bool& ok);

    // The view and the grid

    // Whether stored moves lie ahead.
    void zFor(bool flag) { CanForward = flag; }
    // The ply that the board stands at: 0 before white's first move.
    std::int16_t zDevMove() const { return static_cast<std::int16_t>(2 * (MoveRow - 1) + (1 - Turn) / 2); }
    void zGridSetup(); // grdMoves anew, MoveRow 1
    void zSetTop() { grdMoves.zSetTop(MoveRow); }
    void zGridLight(std::string_view text) { grdMoves.zGridLight(text); }
    // Tints the current cell as a move of the stored line while stored moves lie ahead, else as one off it.
    void lightCurrentMove() { zGridLight(CanForward ? grdMoves.currentText() : "No"); }
    // Paints a square as GameSurface::zDrawSquare does; the hand and numbers that name no square paint nothing.
    void drawSquare(int square, int mode) const;
    void zUpdate();               // the image becomes the persistent picture
    void zBoardSetup(bool fresh); // `fresh` also clears GridLightOn
    void mnuInvert();
    void mnuClean();
    void mnuNew();

    // The clock

    // Every 100 ms: counts one second when the second of the day has changed. An overflow ends this event only.
    void tmrClock();
    // One second off the clock of the side to move; faults (overflow) below -32768.
    void countSecond();

private:
    void putPosition(bool init, bool noShow);
    void listMove();
    void blankMoveAhead();
    void enterMove();
    void showLastMove();
    void beginGame();
    void soundMove();
    void showClocks();
    void finishMoveInHand();
    void setClockColor(int side, std::uint32_t background);
    void transferPiece(int from, int to, bool display);
    std::string moveRook(int from, int to, bool display);
    void takeEnPassant(int to, bool display);
    void grantEnPassant();
    void recordPromotion(bool drop);
    void listOwnMove(const std::string& text);
    void passTurn();
    void sendMove(int from, int to, const std::string& text);
    void setSquare(int square, int code, bool display);
    void showPlayers(bool reviewed);
    void takeMoves(int lastRow);
    void makeStoredMoves(int lastRow);
    void goOnLive();
    void localStep(int step);
    void goToLast();
    void viewStep(int step);
    void putDown();
    void takeBackRecord();
    void showCurrentMove() {
        zShowAnn(static_cast<std::int16_t>(grdMoves.row), static_cast<std::int16_t>(grdMoves.col));
    }
    bool examining() const { return icsMode && Style12Record.Relation == 2; }
    bool atStart() const { return MoveRow == 1 && Turn == 1; }
    FixedArray<std::int16_t, 7>& undo() { return MoveUndo[MoveRow][(1 - Turn) / 2]; }
};
