// A board's repaints.
#include "board/Game.h"

void Game::zUpdate() { surface.keepPicture(); }

void Game::zBoardSetup(bool fresh) {
    surface.paintBoard();
    zUpdate();
    if (fresh) GridLightOn = false;
}

void Game::mnuInvert() {
    Flipped = !Flipped;
    zBoardSetup(false);
}

void Game::mnuClean() {
    zBoardSetup(false);
    noPlay = false;
}

void Game::zExitMove() {
    noPlay = true;
    surface.startNoPlay();
    hand.giveUp();
    zBoardSetup(false);
}

void Game::tmrNoPlay() {
    surface.stopNoPlay();
    if (noPlay) mnuClean();
}
