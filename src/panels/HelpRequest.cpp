// Asks the server for a help page.
#include "panels/HelpRequest.h"

#include "common/CaptureState.h"
#include "common/modChess.h"

void zGo(const HelpRequestHooks& hooks) {
    if (!awaitTurn(hooks.turn)) return;
    hooks.zSetstate(HelpState);
    modChess.HelpCount = 0;
    hooks.zSendMsg("Help " + hooks.topic());
}
