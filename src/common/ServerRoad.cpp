// The one road to the server: every line that goes out passes here.
#include "common/ServerRoad.h"

#include "common/Abbrev.h"
#include "common/Fault.h"
#include "common/modChess.h"

#include <utility>

void ServerRoad::zSendRaw(const std::string& text) {
    hooks.sendData(text + '\n');
    ++modChess.LinesSent;
}

void ServerRoad::zSendMsg(const std::string& text) {
    if (hooks.socketState() != Connected) return;
    passOver([&] { zSendRaw(text); });
    idleSeconds = 0;
    forgetPassword();
    modChess.gLastCmd = text;
    txtOld = text;
}

void ServerRoad::zSend(const std::string& text) {
    if (!localCommand(text)) {
        zSendRaw(text);
        idleSeconds = 0;
    }
    modChess.gLastCmd = text;
    modChess.gLastTyped = text;
    const std::int16_t prompt = hooks.login();
    passwordSent_ = prompt == 2;
    if (prompt != 0) return; // what keeps a typed password off the console and out of the history
    history.zPushCommand(text);
    hooks.echo(text + "\r\n");
    txtOld = text;
}

void ServerRoad::sendPassword(const std::string& password) {
    if (hooks.socketState() != Connected) return;
    zSendRaw(password);
    idleSeconds = 0;
    modChess.gLastCmd = password;
    passwordSent_ = true;
}

void ServerRoad::forgetPassword() {
    if (!std::exchange(passwordSent_, false)) return;
    if (modChess.gLastTyped == modChess.gLastCmd) modChess.gLastTyped.clear();
    modChess.gLastCmd.clear();
}

void ServerRoad::countIdle(bool connected) {
    constexpr std::int32_t Round = 20;
    const std::int32_t next = connected ? idleSeconds + 1 : -1;
    idleSeconds = next > Round ? 0 : next;
}

bool ServerRoad::localCommand(const std::string& text) {
    std::string rest = text;
    if (zAbbrev(rest, "help", 2)) {
        modChess.gHelpTopic = rest;
        hooks.showHelp();
        return true;
    }
    if (zAbbrev(rest, "history", 2)) {
        modChess.gHelpTopic = rest.empty() ? hooks.handle() : rest;
        hooks.showHistory();
        return true;
    }
    return false;
}
