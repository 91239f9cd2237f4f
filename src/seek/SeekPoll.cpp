// Asks the server for its seeks while the graph is open.
#include "seek/SeekPoll.h"

#include "common/CaptureState.h"
#include "common/modChess.h"

namespace {

constexpr int FirstTick = 100; // milliseconds, as those below
constexpr int BetweenPolls = 2000;
constexpr int Watchdog = 4000;

} // namespace

void SeekPoll::start() { runFor(FirstTick); }

void SeekPoll::tmrSeek() {
    const bool first = interval < BetweenPolls;
    if (first) hooks.enableSeek();
    modChess.gConsoleQuiet = first; // the first answer stays off the console, whatever it says
    if (interval < Watchdog) {
        dueIn(Watchdog);
        runFor(Watchdog);
    }
    if (hooks.BusyTest()) {
        again();
        return;
    }
    hooks.zSetstate(SoughtState);
    hooks.zSendMsg("sought");
}

void SeekPoll::again() {
    dueIn(BetweenPolls);
    runFor(BetweenPolls);
}

void SeekPoll::stop() {
    hooks.stopTimer();
    modChess.Deadlines[2] = 0;
}

void SeekPoll::runFor(int milliseconds) {
    interval = milliseconds;
    hooks.startTimer(milliseconds);
}

void SeekPoll::dueIn(int milliseconds) const { modChess.Deadlines[2] = hooks.millisecondsOfDay() + milliseconds; }
