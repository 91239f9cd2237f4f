// How the mouse over a board's picChess, its popup menus and its anti-slip timer meet the move in hand.
#pragma once

#include "board/MoveInput.h"

struct BoardParts;
class QMenu;
class QTimer;
class QWidget;

// Part of a board window, which owns the menus and the timer; everything is decided in `moves`.
struct BoardInput {
    // `parts` may be built later, but before the first event.
    BoardInput(Game& game, const BoardParts& parts) : moves(game, surface()), parts_(parts) {}

    MoveInput moves;

    // Makes menus and timer as children of `window`, and takes up the mouse; the parts are built by then.
    void build(QWidget* window);
    // A piece in hand goes back to its square. False if there is none.
    bool putBack();
    // Shows the pointer of GameSurface::setPointerPicture.
    void showPointer(int picture) const;
    // The window asks whether it may close, which takes a menu down: a promotion dismissed so waits until goOn.
    void hold() { held_ = true; }
    // The window stays.
    void goOn();
    // The window closes: no delay may end any more, and a menu that is up comes down.
    void stop();

private:
    MoveInputSurface surface();
    void connectMouse(QWidget* window);
    void connectKeys(QWidget* window);
    void pressSquare(int button, int square);
    void makeMenus(QWidget* window);
    void popupDrop(const DropEntries& entries);
    void popupPromote();
    void dismissPromotion();

    const BoardParts& parts_;
    bool held_ = false;
    bool dismissed_ = false; // while held
    QTimer* tmrSlip_ = nullptr;
    QMenu* mnuPromote_ = nullptr; // mnuQueen, mnuRook, mnuBishop, mnuKnight
    QMenu* mnuDrop_ = nullptr;    // mnuDQ, mnuDR, mnuDB, mnuDN, mnuDP
};
