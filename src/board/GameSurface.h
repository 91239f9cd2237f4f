// Where a game shows itself: the board window fills these members in, a test records them.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

// Every member does nothing until it is filled in. None of them runs the message loop.
struct GameSurface {
    // picChess
    std::function<void(int square, int mode)> zDrawSquare = [](int, int) {}; // 0..63; mode 0 plain, -1 last move,
                                                                             // 1 pre-move
    std::function<void(float x, float y, int alpha)> zMovePiece = [](float, float, int) {}; // pixels; 0..255, 0 erases
    std::function<void()> paintBoard = [] {};  // fit to the window, paint whole, count the grid's visible rows
    std::function<void()> keepPicture = [] {}; // the image becomes the persistent picture
    std::function<void(int picture)> setPointerPicture = [](int) {}; // 0 the default pointer, 3 move, 4 pre-move

    // Labels, panels and buttons
    std::function<void(const std::string& text)> setLastMove = [](const std::string&) {};              // lblMove
    std::function<void(int side, const std::string& text)> setClock = [](int, const std::string&) {};  // lblTime(side)
    std::function<void(int side, std::uint32_t background)> setClockColor = [](int, std::uint32_t) {}; // ClockColor
    std::function<void(const std::string& white, const std::string& black)> showHoldings =
        [](const std::string&, const std::string&) {}; // lblBug(0) and (1)
    std::function<void()> hideHoldings = [] {};        // both lblBug
    std::function<void(int panel, const std::string& text)> setPanel = [](int, const std::string&) {}; // stbGame 1..3
    std::function<void(const std::string& text)> setTitle = [](const std::string&) {};                 // of the window
    std::function<void(bool shown)> showUn = [](bool) {};          // cmdUn; true goes through zSolveConflict
    std::function<void(bool enabled)> enableSavePGN = [](bool) {}; // mnuSavePGN
    std::function<void()> bringToFront = [] {};                    // Show and SetFocus of the window

    // Timers
    std::function<void()> startClock = [] {}; // tmrClock, 100 ms
    std::function<void()> stopClock = [] {};
    std::function<void()> startNoPlay = [] {}; // tmrNoPlay, 4000 ms
    std::function<void()> stopNoPlay = [] {};
    std::function<double()> secondsOfDay = [] { return 0.0; }; // since midnight, with a fraction

    // Sound, server, move input
    std::function<void(std::string_view name, std::int16_t mode)> playSound = [](std::string_view, std::int16_t) {};
    std::function<void(const std::string& text)> zSendMsg = [](const std::string&) {}; // one command to the server
    std::function<void(int square)> zSqFinish = [](int) {}; // finishes the move in hand on `square`
};
