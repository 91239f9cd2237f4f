// The one-key answer to the server's "login:" and "password:".
#include "session/LogOn.h"

#include "common/modChess.h"

#include <utility>

bool LogOn::answer() {
    switch (std::exchange(pipeline.login, std::int16_t{0})) {
    case 1:
        enter(handle);
        return true;
    case 2:
        sendPassword();
        return true;
    default:
        return false;
    }
}

void LogOn::sendPassword() {
    if (road.hooks.socketState() != ServerRoad::Connected) return;
    road.zSendRaw(password);
    road.idleSeconds = 0;
    modChess.gLastCmd = password;
}
