// The move in hand of one board: what the mouse, the arriving positions and the rules share of it.
#pragma once

#include <cstdint>
#include <optional>

// A move that waits for the user to name its promotion, and where it stood when it was made.
struct AskedPromotion {
    int from;
    int to;
    int pawn; // its code
    int turn;
    int row;
};

struct MoveInHand {
    std::int16_t FromSet = 0;  // 1 while a from-square has been chosen
    std::int16_t MoveMode = 0; // of the square last touched: -1 may move now, 1 may pre-move, 0 neither
    bool Dragging = false;     // a piece hangs on the pointer
    std::int16_t DragFrom = 0;
    std::uint8_t DragAlpha = 0; // 128 while dragging, 255 at the drop, 0 erases
    float MouseX = 0;           // pixels of picChess
    float MouseY = 0;
    float SlipX = 0; // the point at the mouse-up that tmrSlip holds
    float SlipY = 0;
    std::optional<AskedPromotion> promotion;
    bool promotionAnswered = false; // the move is being made with the answer, which may be none

    // No piece is lifted, no square chosen, and no answer makes a move any more.
    void giveUp() {
        Dragging = false;
        FromSet = 0;
        promotion.reset();
    }
};
