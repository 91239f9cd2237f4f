// What the closing of a board leads to: refusal, a question, a command to the server.
#pragma once

#include <string>
#include <string_view>

struct Game;

inline constexpr std::string_view CloseBoxTitle = "Game in progress";
inline constexpr std::string_view CloseBoxText = "Board will close.  Type 'ref' to re-open";

// What must be known from outside the board.
struct CloseFacts {
    int openBoards = 1;     // loaded frmChessBoard windows, this one included
    bool byProgram = false; // the closing was asked for by the program and not by the user
    bool pgnInUse = false;  // the shared flag of frmPGN
    bool appClosing = false;
};

// What the window does, in this order; a minimised window is restored before asking.
struct CloseDecision {
    bool enableBoardMenu = false; // the console's mnuBoard becomes available again
    bool closeChooser = false;    // unload frmPGN and clear its flag; goes with `refused`
    bool refused = false;         // the board stays open
    bool unloadPanels = false;    // unload frmBoardColors, frmMatch, frmPGN and frmExamine
    std::string send;             // command to the server, empty for none
    bool ask = false;             // OK-Cancel box of CloseBoxTitle and CloseBoxText; Cancel refuses the closing
};

// The rules of the window's QueryUnload.
CloseDecision queryUnload(const Game& game, const CloseFacts& facts);
