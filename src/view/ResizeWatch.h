// When a board is fitted anew to its window: once, after the last of a row of resizes.
#pragma once

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

    // The timer fired and has been stopped: true if zBoardSetup(false) is to run. The very first firing on a board
    // only counts as seen and keeps the mark.
    bool timerFired() {
        if (!FirstFiringSeen) {
            FirstFiringSeen = true;
            return false;
        }
        const bool fit = Resized;
        Resized = false;
        return fit;
    }
};
