// Asking the server for what a panel shows.
#include "panels/PanelRequest.h"

#include "common/CaptureState.h"
#include "common/modChess.h"

void askForVars(const PanelRequestHooks& hooks) {
    if (!awaitTurn(hooks.turn)) return;
    hooks.zSetstate(VarsState);
    hooks.zSendMsg("Vars");
}

void askForNotes(const PanelRequestHooks& hooks) {
    if (!awaitTurn(hooks.turn)) return;
    modChess.NotesText.fill({});
    hooks.zSetstate(NotesState);
    hooks.zSendMsg("Fi");
}
