// When a board is fitted anew to its window: once, after the last of a row of resizes.
#pragma once

#include <utility>

// The rules around tmrResize; the timer itself is the window's.
struct ResizeWatch {
    static constexpr int IntervalMs = 1000;

    bool Muted = false;   // no resize counts, as while the board loads
    bool Resized = false; // a resize came since the board was last fitted
    bool FirstFiringSeen = false;

    // The form was resized: true if tmrResize is to start over.
    bool formResized(bool minimised) {
        if (minimised || Muted) return false;
        Resized = true;
        return true;
    }

    // The timer fired and has been stopped: true if zBoardSetup(false) is to run, and `fitted` behind it. The very
    // first firing on a board only counts as seen.
    bool timerFired() { return std::exchange(FirstFiringSeen, true) && Resized; }

    // The board fits its window. To do so it gave the window another size, and that is no resize to be answered.
    void fitted() { Resized = false; }
};
