// The setting up and the ending of the TimeSeal bridge: the order of its steps and how long each waits.
#pragma once

#include "common/Needed.h"

#include <cstdint>
#include <string>
#include <vector>

inline constexpr std::int32_t BridgePort = 6000;

// How the bridge reaches its surroundings. `wait` and `pump` run the message loop.
struct BridgeHooks {
    Needed<void(double seconds)> wait; // zWait
    Needed<void()> pump;               // once, for a moment
    Needed<void(const std::string& caption)> setCaption;
    Needed<bool()> programFound; // "timeseal.exe" in the current directory
    // Starts the program, hidden, with these arguments: host, port, "-p", "6000".
    Needed<void(const std::vector<std::string>& arguments)> startProgram;
    Needed<std::int32_t()> zTimeSealHandle; // of a running bridge, 0 for none
    Needed<void(std::int32_t handle)> requestEnd;
};

// A relay on this machine through which a connection goes. All waits run the message loop, so the caller looks after
// each of them whether the user has changed his mind.
struct Bridge {
    BridgeHooks hooks;

    explicit Bridge(BridgeHooks reachedOut) : hooks(std::move(reachedOut)) {}

    // Ends an old bridge, and waits until nothing of it stands in the way.
    void makeRoom();
    // Starts the program for this target, and waits until it has opened its port.
    void start(const std::string& host, std::int32_t port);
    // Gives a running bridge up to seven seconds to end by itself, the caption saying so, and then asks it once to end.
    // A bridge that is started in the wait ends it and is left alone.
    void zTerminateTimeSeal();

private:
    int started_ = 0; // so far
};
