// The clocks of one game.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace practice {

// Clients hold the seconds of a clock in 16 bits with a sign: a clock never shows more, on either side of zero, and no
// game begins with more.
inline constexpr int mostClockSeconds = 32'767;
inline constexpr int mostMinutes = mostClockSeconds / 60;
inline constexpr int mostIncrement = 999; // seconds

// Two clocks in milliseconds, index 0 white and 1 black. They run from the third half-move on: each side's first
// move is free and earns no increment. All moments are milliseconds of one steady clock that the caller reads.
struct GameClock {
    std::array<std::int64_t, 2> left{};
    std::int64_t increment = 0;
    std::int64_t turnBegan = 0;
    int halfmoves = 0;
    bool timed = true; // false for a game without time control, whose clocks never run

    // Sets both clocks to `minutes`; "0 0" gives an untimed game and "0 n" starts with 10 seconds each.
    void start(int minutes, int incrementSeconds, std::int64_t now);

    // True once both sides have moved in a timed game.
    bool running() const;

    // What a side has left at `now`, below zero after its flag fell; `toMove` tells whose clock runs.
    std::int64_t remaining(int side, int toMove, std::int64_t now) const;

    // Books what the side to move has used of its time, and begins its turn anew: the clocks can be kept as they are.
    void settle(int toMove, std::int64_t now);

    // Books the move of `side` and gives the milliseconds it took: 0 for a free move. What goes past `mostClockSeconds`
    // is lost.
    std::int64_t press(int side, std::int64_t now);
};

// Milliseconds as rounded whole seconds, below zero for a fallen flag; `mostClockSeconds` at most on either side.
int roundedSeconds(std::int64_t milliseconds);

// Milliseconds as "(0:07)", hours counted in the minutes.
std::string moveTimeText(std::int64_t milliseconds);

// Milliseconds as "2:07"; a fallen flag shows "0:00".
std::string clockText(std::int64_t milliseconds);

} // namespace practice
