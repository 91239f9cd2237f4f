// Asks the server for its seeks while the graph is open.
#pragma once

#include "common/Needed.h"

#include <cstdint>
#include <string>

struct SeekPollHooks {
    // Starts tmrSeek anew; it repeats until it is stopped.
    Needed<void(int milliseconds)> startTimer;
    Needed<void()> stopTimer;
    Needed<std::int32_t()> millisecondsOfDay;
    // An answer of the server is being captured.
    Needed<bool()> BusyTest;
    // Arms the capture of this number.
    Needed<void(std::int16_t state)> zSetstate;
    Needed<void(const std::string& text)> zSendMsg;
    Needed<void()> enableSeek; // cmdSeek
};

// The life of tmrSeek: soon after the load, then 2 seconds behind each answer, and after 4 seconds without one. Keeps
// modChess.Deadlines[2], and modChess.gConsoleQuiet up from the first tick to the second.
struct SeekPoll {
    explicit SeekPoll(SeekPollHooks reachedOut) : hooks(std::move(reachedOut)) {}

    SeekPollHooks hooks;
    int interval = 0; // of tmrSeek, in milliseconds

    void start();
    void tmrSeek();
    // Asks again in 2 seconds: the answer is drawn, or there was no asking.
    void again();
    void stop();

private:
    void runFor(int milliseconds);
    void dueIn(int milliseconds) const;
};
