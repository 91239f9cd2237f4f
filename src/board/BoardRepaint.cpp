// A board's repaints: these let the message loop run, so the window may be gone when they return.
#include "board/Game.h"

bool Game::zUpdate() {
    if (!pumping(surface.pump)) return false;
    surface.keepPicture();
    return true;
}

bool Game::zBoardSetup(bool fresh) {
    surface.paintBoard();
    if (!zUpdate()) return false;
    if (fresh) GridLightOn = false;
    return true;
}

bool Game::mnuInvert() {
    Flipped = !Flipped;
    return zBoardSetup(false) && zUpdate();
}

bool Game::mnuClean() {
    if (!zBoardSetup(false) || !zUpdate()) return false;
    noPlay = false;
    return true;
}

bool Game::zExitMove() {
    noPlay = true;
    surface.startNoPlay();
    Dragging = false;
    FromSet = 0;
    return zBoardSetup(false) && zUpdate();
}

bool Game::tmrNoPlay() {
    surface.stopNoPlay();
    return !noPlay || mnuClean();
}
