// The hand on a board that nobody looks at; a test replaces what it looks at.
#pragma once

#include "board/MoveInput.h"

inline MoveInputSurface quietInput() {
    return {
        .zGetSqr = [](float, float) { return 0; },
        .DisplaySquare = [](int square) { return square; },
        .centreOf = [](int) { return BoardPoint{}; },
        .zYankPiece = [](int) {},
        .startSlip = [](int) {},
        .stopSlip = [] {},
        .popupDrop = [](const DropEntries&) {},
        .popupPromote = [] {},
        .focusTyping = [] {},
        .moveMade = [] {},
    };
}
