// Asking the server for a player's list of games.
#include "records/ListRequest.h"

namespace {

constexpr double Patience = 4; // seconds
constexpr std::int16_t HistoryState = 9;

// False when it gives up.
bool waitForOthers(const ListRequestHooks& hooks) {
    const double start = hooks.secondsOfDay();
    while (hooks.BusyTest()) {
        const double passed = hooks.secondsOfDay() - start;
        if (passed < 0 || passed >= Patience) return false;
        hooks.pump();
        if (!hooks.isOpen()) return false;
    }
    return true;
}

} // namespace

void zGo(const std::string& command, HistoryLists& lists, const ListRequestHooks& hooks) {
    if (!waitForOthers(hooks)) return;
    lists.HistCount = 0;
    lists.HistHandle.clear();
    const std::string player = hooks.player();
    hooks.setCaption((command == "Stored" ? "Stored games" : command) + " for " + player);
    hooks.zSetstate(HistoryState);
    hooks.zSendMsg(command + " " + player);
}
