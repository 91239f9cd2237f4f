// Waiting for one's turn to ask the server something whose answer is captured.
#include "common/TurnWait.h"

bool awaitTurn(const TurnHooks& hooks) {
    constexpr double Patience = 4; // seconds
    const double start = hooks.secondsOfDay();
    while (hooks.BusyTest()) {
        const double passed = hooks.secondsOfDay() - start;
        if (passed < 0 || passed > Patience) return false;
        hooks.pump();
        if (!hooks.isOpen()) return false;
    }
    return true;
}
