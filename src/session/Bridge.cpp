// The setting up and the ending of the TimeSeal bridge: the order of its steps and how long each waits.
#include "session/Bridge.h"

#include "platform/Clock.h"

namespace {

constexpr double StopWait = 0.55; // seconds
constexpr double PortWait = 1.1;  // seconds
constexpr double EndWait = 7;     // seconds

} // namespace

void Bridge::makeRoom() {
    zTerminateTimeSeal();
    hooks.wait(StopWait);
}

void Bridge::start(const std::string& host, std::int32_t port) {
    ++started_;
    hooks.startProgram({host, std::to_string(port), "-p", std::to_string(BridgePort)});
    hooks.wait(PortWait);
}

// A clock that stands before the noted time has passed midnight.
void Bridge::zTerminateTimeSeal() {
    const int before = started_;
    const double noted = wallClock.secondsOfDay();
    hooks.setCaption("Brightrank - Client  Closing Timeseal");
    std::int32_t handle = 0;
    double passed = 0;
    do {
        handle = hooks.zTimeSealHandle();
        hooks.pump();
        if (before != started_) return;
        passed = wallClock.secondsOfDay() - noted;
    } while (handle != 0 && passed >= 0 && passed < EndWait);
    hooks.setCaption("Brightrank - Client");
    if (handle != 0) hooks.requestEnd(handle);
}
