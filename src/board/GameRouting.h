// Which board a game belongs to: the finders over the open windows, new boards, and the end of games.
#pragma once

#include "board/Game.h"
#include "common/Needed.h"
#include "platform/OpenWindows.h"

#include <cstdint>
#include <string_view>
#include <utility>

// A window number is a position in openWindows; it is good until a window opens or closes. The older board wins.

// First board whose gameIndex is `game`, or the first of all boards if `game` is negative; -1 if there is none.
int zFindBoard(std::int16_t game);

// zFindBoard; if that fails the first idle board or -1, and `game` becomes 0 whatever was found.
int zFindBoardOrFree(std::int16_t& game);

// First board with this `id`; -1 if there is none.
int zFindBoardById(std::int32_t id);

// The game of a window, null for one that is no board.
Game* gameOf(const OpenWindow& window);

// The game on the board with this window number; faults (subscript) if there is no such board, -1 included.
Game& boardAt(int windowNumber);

// What routing needs of the windows.
struct GameRoutingHooks {
    Needed<void()> zNewBoard; // opens one more frmChessBoard; loaded and in openWindows on return
    Needed<void()> beep;
    Needed<void(std::string_view name, std::int16_t mode)> playSound;
    Needed<bool()> seekGraphChecked; // mnuSeekGrf of the console
    Needed<void()> showSeek;         // frmSeek
};

// The routing of lines to boards; one instance, owned by whoever owns the console.
struct GameRouting {
    GameRoutingHooks hooks;

    explicit GameRouting(GameRoutingHooks reachedOut) : hooks(std::move(reachedOut)) {}

    // First loaded board with relation -100; opens one board if there is none, and gives -1 if that did not help.
    int zFindReviewBoard();

    // Reads a Style 12 line into the shared record and hands it to its board: the board that has the game, else an
    // idle one, else a new one; sets NewGameFlag. `full` false takes only Position, SideToMove and Flip. False when
    // it is no such line or no board can be had. Passes over faults.
    bool zStyle12Line(std::string_view line, bool full);

    // `free` becomes true when no board has the game of the shared record.
    void zGameParms(bool& free) const;

    // The end of one game, from a line such as "{Game 12 (a vs b) a resigns} 1-0". Faults (overflow) on a number past
    // 16 bits.
    void zEndGame(std::string_view line);

    // The end of every game: the connection is lost.
    void zEndAllGames();
};
