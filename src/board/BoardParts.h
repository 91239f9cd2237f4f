// The parts of a board window and where they stand.
#pragma once

#include "board/ClockFace.h"
#include "board/MoveGrid.h"
#include "board/StepButton.h"
#include "common/FixedArray.h"
#include "platform/ElidedLabel.h"
#include "platform/TypingLine.h"
#include "view/BoardView.h"

#include <QLabel>
#include <QPushButton>
#include <QToolButton>

#include <array>

class QStatusBar;
struct Game;

// Everything between the menus and the window's edge, except the status bar. The window's height decides the size of a
// square; all else follows from it.
struct BoardParts {
    static constexpr int StatusHeight = 22; // pixels; the other figures are those of BoardDesign

    BoardView* picChess = nullptr;
    MoveGrid* grdMoves = nullptr;
    FixedArray<ClockFace*, 1> lblTime;
    FixedArray<QLabel*, 1> lblBug; // holdings: 0 white's, 1 black's
    ElidedLabel* lblMove = nullptr;
    QPushButton* cmdUn = nullptr;
    QPushButton* cmdDraw = nullptr;
    QPushButton* cmdRes = nullptr;
    std::array<StepButton*, 5> cmdScroll{};
    std::array<QToolButton*, 10> cmdTell{};
    TypingLine* txtSend = nullptr;
    FixedArray<QLabel*, 2> panels; // of stbGame: own handle, players, game

    // Makes all parts as children of `inner`, the panels as parts of `stbGame`. `game` must outlive them.
    void build(QWidget* inner, QStatusBar* stbGame, Game& game);
    // Places them for a square of `square` pixels in an inner window of this size, status bar included.
    void place(QSize inner, int square, bool flipped);
    // Shows `control` only if it clears the command line.
    void zSolveConflict(QWidget* control) const;

private:
    void buildLabels(QWidget* inner);
    void buildButtons(QWidget* inner);
    void orderTabs() const;
    void placeFoot(QSize inner, int foot, int board, bool flipped);
    void placePanel(QSize inner);
};
