// Asking the server for what a panel shows.
#include "panels/PanelRequest.h"

#include "common/modChess.h"

namespace {

constexpr std::int16_t VarsState = 3;
constexpr std::int16_t NotesState = 7;

} // namespace

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
