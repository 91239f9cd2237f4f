// How a clock reads, and the second by second countdown between two lines of the server.
#include "board/BoardClock.h"

#include "board/Game.h"
#include "common/Fault.h"
#include "common/Numbers.h"
#include "common/modChess.h"

#include <cmath>
#include <cstdlib>

int untilNextSecond(double secondsOfDay) {
    constexpr int Behind = 2; // milliseconds, so that a tick does not come just before the change that it is for
    const double left = std::floor(secondsOfDay) + 1.0 - secondsOfDay;
    return static_cast<int>(std::ceil(left * 1000.0)) + Behind;
}

std::string zTimeFix(int seconds) {
    const int whole = std::abs(seconds);
    const std::string rest = std::to_string(whole % 60);
    return (seconds < 0 ? "-" : "") + std::to_string(whole / 60) + (rest.size() < 2 ? ":0" : ":") + rest;
}

// A tick that comes late still counts one second: time lost is not made up.
void Game::tmrClock() {
    const float second = static_cast<float>(std::floor(surface.secondsOfDay()));
    if (second == LastSecond) return;
    LastSecond = second;
    passOver([this] { countSecond(); });
}

void Game::countSecond() {
    const int side = Style12Record.SideToMove == 0 ? 0 : 1;
    std::int16_t& clock = side == 0 ? Style12Record.WhiteClock : Style12Record.BlackClock;
    clock = toInt16(clock - 1);
    surface.setClock(side, " " + zTimeFix(clock));
    if (clock >= modChess.WarnTime) return;
    setClockColor(side, ClockBackground[side] == ClockColor::Running ? ClockColor::Warning : ClockColor::Running);
}

void Game::showClocks() {
    surface.setClock(0, " " + zTimeFix(Style12Record.WhiteClock));
    surface.setClock(1, " " + zTimeFix(Style12Record.BlackClock));
    const int running = Style12Record.SideToMove == 0 ? 0 : 1;
    setClockColor(running, ClockColor::Running);
    setClockColor(1 - running, ClockColor::Waiting);
}

void Game::setClockColor(int side, std::uint32_t background) {
    ClockBackground[side] = background;
    surface.setClockColor(side, background);
}
