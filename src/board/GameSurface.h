// Where a game shows itself: the board window gives these members, a test records them.
#pragma once

#include "common/Needed.h"

#include <cstdint>
#include <string>
#include <string_view>

// Every member must be given. None of them runs the message loop.
struct GameSurface {
    // picChess
    Needed<void(int square, int mode)> zDrawSquare;       // 0..63; mode 0 plain, -1 last move, 1 pre-move
    Needed<void(float x, float y, int alpha)> zMovePiece; // pixels; 0..255, 0 erases
    Needed<void()> paintBoard;                   // fit to the window, paint whole, count the grid's visible rows
    Needed<void()> keepPicture;                  // the image becomes the persistent picture
    Needed<void(int picture)> setPointerPicture; // 0 the default pointer, 3 move, 4 pre-move

    // Labels, panels and buttons
    Needed<void(const std::string& text)> setLastMove;                             // lblMove
    Needed<void(int side, const std::string& text)> setClock;                      // lblTime(side)
    Needed<void(int side, std::uint32_t background)> setClockColor;                // ClockColor
    Needed<void(const std::string& white, const std::string& black)> showHoldings; // lblBug(0) and (1)
    Needed<void()> hideHoldings;                                                   // both lblBug
    Needed<void(int panel, const std::string& text)> setPanel;                     // stbGame 1..3
    Needed<void(const std::string& text)> setTitle;                                // of the window
    Needed<void(bool shown)> showUn;          // cmdUn; true goes through zSolveConflict
    Needed<void(bool enabled)> enableSavePGN; // mnuSavePGN
    Needed<void()> bringToFront;              // Show and SetFocus of the window

    // Timers
    Needed<void()> startClock; // tmrClock, 100 ms, and then whenever the second changes
    Needed<void()> stopClock;
    Needed<void()> startNoPlay; // tmrNoPlay, 4000 ms
    Needed<void()> stopNoPlay;
    Needed<double()> secondsOfDay; // since midnight, with a fraction

    // Console, sound, server, move input
    Needed<void(const std::string& text)> print; // at the end of the console, with its own line ends
    Needed<void()> beep;
    Needed<void(std::string_view name, std::int16_t mode)> playSound;
    Needed<void(const std::string& text)> zSendMsg; // one command to the server
    Needed<void(int square)> zSqFinish;             // finishes the move in hand on `square`
};
