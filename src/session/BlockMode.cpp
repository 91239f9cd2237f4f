// Block Mode: console text piles up in modChess.BlockedText until the mode ends.
#include "session/BlockMode.h"

#include "common/modChess.h"

void BlockMode::toggle(bool& mnuBlocked) {
    if (mnuBlocked) {
        hooks.insertAtEnd(modChess.BlockedText);
        modChess.BlockedText.clear();
        mnuBlocked = false;
        hooks.setCaption(BlockedCaption);
    } else {
        BlockedCaption = hooks.caption();
        hooks.setCaption(BlockedCaption + " - Incomming Text Blocked");
        mnuBlocked = true;
    }
}
