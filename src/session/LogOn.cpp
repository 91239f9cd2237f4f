// The answers to the server's "login:" and "password:": by one key, or by themselves.
#include "session/LogOn.h"

#include "common/modChess.h"

#include <algorithm>

namespace {

constexpr int FirstPause = 1000; // milliseconds
constexpr int MostDoublings = 12;

} // namespace

void LogOn::prompt(std::int16_t login) {
    pipeline.login = login;
    if (login == 2) hooks.maskTyping();
    if (!hooks.mnuAutoLogon()) return;
    hooks.takeKeyboard();
    keyWaits_ = true;
    hooks.startTimer(pause(keysAt(login)));
}

// A server that refuses the answer asks again at once.
int LogOn::pause(int keysBefore) { return keysBefore == 0 ? 0 : FirstPause << std::min(keysBefore - 1, MostDoublings); }

// A key counts when it is pressed: a server may write the word twice before that.
void LogOn::timer() {
    if (!std::exchange(keyWaits_, false) || !hooks.mnuAutoLogon()) return;
    if (pipeline.login != 0) ++keysAt(pipeline.login);
    answer();
}

void LogOn::connectionChanges() {
    keys_ = {};
    keyWaits_ = false;
}

bool LogOn::answer() {
    switch (std::exchange(pipeline.login, std::int16_t{0})) {
    case 1:
        hooks.enter(handle);
        return true;
    case 2:
        road.sendPassword(password);
        return true;
    default:
        return false;
    }
}
