// The four colours of the boards.
#include "view/BoardColors.h"

#include "common/modChess.h"

BoardColors boardColors() {
    BoardColors colors;
    colors[WhiteSquares] = modChess.ColorWhite;
    colors[BlackSquares] = modChess.ColorBlack;
    colors[NormalMove] = modChess.ColorMove;
    colors[PreMove] = modChess.ColorPreMove;
    return colors;
}

void setBoardColors(const BoardColors& colors) {
    modChess.ColorWhite = colors[WhiteSquares];
    modChess.ColorBlack = colors[BlackSquares];
    modChess.ColorMove = colors[NormalMove];
    modChess.ColorPreMove = colors[PreMove];
}
