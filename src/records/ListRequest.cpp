// Asking the server for a player's list of games.
#include "records/ListRequest.h"

#include "common/CaptureState.h"

void zGo(const std::string& command, HistoryLists& lists, const ListRequestHooks& hooks) {
    if (!awaitTurn(hooks.turn)) return;
    lists.HistCount = 0;
    lists.HistHandle.clear();
    const std::string player = hooks.player();
    hooks.setCaption((command == "Stored" ? "Stored games" : command) + " for " + player);
    hooks.zSetstate(HistoryState);
    hooks.zSendMsg(command + " " + player);
}
