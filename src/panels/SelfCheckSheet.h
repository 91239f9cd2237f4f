// The sheet of the self check: ten tallies that a player fills in before each move, or the board refuses it.
#pragma once

#include "common/FixedArray.h"

#include <cstdint>
#include <functional>
#include <optional>

// Ways to a check that is done: all ten boxes hold a number, or the move was forced.
struct SelfCheckSheet {
    static constexpr int LastRow = 4;
    using Tally = std::optional<std::int32_t>; // none: an empty box; never below 0
    using Tallies = FixedArray<Tally, LastRow, "rows of the self check">;

    // Pieces on take, pawn threats, possible pins, forks and checks.
    Tallies txtAgainst;
    Tallies txtBy;
    bool chkForced = false;

    // zReset has changed what the sheet shows.
    std::function<void()> shownAnew = [] {};

    // The sheet comes, and the board waits for it; it goes, and the board is free.
    static void load();
    static void unload();

    // The mouse went down on a box: an empty one gets 0; then the left button counts up, any other down.
    void press(Tally& box, bool left);
    // A digit was typed, 0 to 9: it goes behind the number, up to 999.
    void type(Tally& box, int digit);
    // The whole number was given; one below 0 changes nothing.
    void take(Tally& box, std::int32_t number);
    // The number's last digit goes, or all of it.
    void eraseDigit(Tally& box);
    void empty(Tally& box);
    // A click on chkForced.
    void force(bool ticked);

    // Raises modChess.SelfCheckOK if the check is done; never lowers it.
    void zEval() const;
    // An empty sheet, and the board waits for it.
    void zReset();
};

// A piece was dropped on a board: the sheet of the open panel, if there is one, starts anew.
void resetSelfCheck();
