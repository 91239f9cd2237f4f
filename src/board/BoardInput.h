// How the mouse over a board's picChess, its popup menus and its anti-slip timer meet the move in hand.
#pragma once

#include "board/MoveInput.h"

struct BoardParts;
class QMenu;
class QTimer;
class QWidget;

// Part of a board window, which owns the menus and the timer; everything is decided in `moves`.
struct BoardInput {
    explicit BoardInput(Game& game) : moves(game) {}

    MoveInput moves;

    // Makes menus and timer as children of `window`, and fills in what the game and `moves` reach out with.
    void build(QWidget* window, const BoardParts& parts);
    // The window asks whether it may close, which takes a menu down: a promotion dismissed so waits until goOn.
    void hold() { held_ = true; }
    // The window stays.
    void goOn();
    // The window closes: no delay may end any more, and a menu that is up comes down.
    void stop();

private:
    void connectMouse(QWidget* window, const BoardParts& parts);
    void fillSurfaces(const BoardParts& parts);
    void makeMenus(QWidget* window);
    void popupDrop(const DropEntries& entries);
    void popupPromote();
    void dismissPromotion();

    bool held_ = false;
    bool dismissed_ = false; // while held
    QTimer* tmrSlip_ = nullptr;
    QMenu* mnuPromote_ = nullptr; // mnuQueen, mnuRook, mnuBishop, mnuKnight
    QMenu* mnuDrop_ = nullptr;    // mnuDQ, mnuDR, mnuDB, mnuDN, mnuDP
};
