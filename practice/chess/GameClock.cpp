// The clocks of one game.
#include "practice/chess/GameClock.h"

#include <algorithm>

namespace practice {

void GameClock::start(int minutes, int incrementSeconds, std::int64_t now) {
    const std::int64_t first = minutes > 0 ? std::int64_t{minutes} * 60'000 : 10'000;
    timed = minutes > 0 || incrementSeconds > 0;
    left = timed ? std::array<std::int64_t, 2>{first, first} : std::array<std::int64_t, 2>{};
    increment = std::int64_t{incrementSeconds} * 1000;
    turnBegan = now;
    halfmoves = 0;
}

bool GameClock::running() const { return timed && halfmoves >= 2; }

std::int64_t GameClock::remaining(int side, int toMove, std::int64_t now) const {
    const std::int64_t stored = left[static_cast<std::size_t>(side)];
    return running() && side == toMove ? stored - (now - turnBegan) : stored;
}

void GameClock::settle(int toMove, std::int64_t now) {
    left[static_cast<std::size_t>(toMove)] = remaining(toMove, toMove, now);
    turnBegan = now;
}

std::int64_t GameClock::press(int side, std::int64_t now) {
    const std::int64_t taken = running() ? now - turnBegan : 0;
    std::int64_t& own = left[static_cast<std::size_t>(side)];
    if (running()) own = std::min<std::int64_t>(own + increment - taken, std::int64_t{mostClockSeconds} * 1000);
    turnBegan = now;
    ++halfmoves;
    return taken;
}

// Rounded and not cut: half a second on the clock is no fallen flag.
int roundedSeconds(std::int64_t milliseconds) {
    const std::int64_t half = milliseconds < 0 ? -500 : 500;
    return static_cast<int>(
        std::clamp<std::int64_t>((milliseconds + half) / 1000, -mostClockSeconds, mostClockSeconds));
}

std::string clockText(std::int64_t milliseconds) {
    const std::int64_t seconds = std::max<std::int64_t>(0, milliseconds / 1000);
    const std::string rest = std::to_string(seconds % 60);
    return std::to_string(seconds / 60) + ":" + (rest.size() < 2 ? "0" + rest : rest);
}

std::string moveTimeText(std::int64_t milliseconds) { return "(" + clockText(milliseconds) + ")"; }

} // namespace practice
