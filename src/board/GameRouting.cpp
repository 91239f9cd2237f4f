// Which board a game belongs to: the finders over the open windows, new boards, and the end of games.
#include "board/GameRouting.h"

#include "board/Style12Line.h"
#include "common/Fault.h"
#include "common/Numbers.h"
#include "common/Text.h"
#include "common/modChess.h"

#include <cstdlib>

namespace {

// The first board that fits, the oldest since the list is in order of creation.
template <typename Test>
int firstBoard(Test fits) {
    for (std::size_t number = 0; number < openWindows.windows.size(); ++number) {
        const Game* game = gameOf(openWindows.windows[number]);
        if (game && fits(*game)) return static_cast<int>(number);
    }
    return -1;
}

bool hasNoGame(const Game& game) { return game.Style12Record.Relation == -100; }

// "{Game 12 (a vs b) ...": the number four characters behind the place of "ame". Faults (overflow) past 16 bits.
std::int16_t gameNumberIn(std::string_view line) {
    const long place = find(1, line, "ame");
    if (place == 0) return 0;
    return toInt16(leadingNumber(mid(line, place + 4)));
}

} // namespace

int zFindBoard(std::int16_t game) {
    return firstBoard([game](const Game& board) { return game < 0 || board.gameIndex == game; });
}

int zFindBoardOrFree(std::int16_t& game) {
    const int found = zFindBoard(game);
    if (found >= 0) return found;
    game = 0;
    return zFindBoard(0);
}

int zFindBoardById(std::int32_t id) {
    return firstBoard([id](const Game& board) { return board.id == id; });
}

Game* gameOf(const OpenWindow& window) {
    Game* const* game = std::any_cast<Game*>(&window.content);
    return game ? *game : nullptr;
}

Game& boardAt(int windowNumber) {
    const auto number = static_cast<std::size_t>(windowNumber);
    Game* game =
        windowNumber >= 0 && number < openWindows.windows.size() ? gameOf(openWindows.windows[number]) : nullptr;
    if (!game) throw Fault(FaultKind::Subscript, "window " + std::to_string(windowNumber) + " is no board");
    return *game;
}

int GameRouting::zFindReviewBoard() {
    const int found = firstBoard(hasNoGame);
    if (found >= 0) return found;
    hooks.zNewBoard();
    return firstBoard(hasNoGame);
}

bool GameRouting::zStyle12Line(std::string_view line, bool full) {
    const auto tokens = cutStyle12(line, LineEnd::RestIsToken);
    if (!tokens) return false;
    readStyle12PassingOver(*tokens, full ? Style12Fields::All : Style12Fields::PositionOnly, modChess.Record);

    std::int16_t game = modChess.Record.GameNumber;
    int board = zFindBoardOrFree(game);
    modChess.NewGameFlag = game == 0;
    if (board < 0) {
        passOver(hooks.zNewBoard);
        board = zFindBoardOrFree(game);
    }
    if (board < 0) return false;
    passOver([board] { boardAt(board).zGS(); });
    return true;
}

void GameRouting::zGameParms(bool& free) const {
    free = firstBoard([](const Game& board) { return board.gameIndex == modChess.Record.GameNumber; }) < 0;
}

void GameRouting::zEndGame(std::string_view line) {
    std::int16_t number = gameNumberIn(line);
    const int found = zFindBoardOrFree(number);
    if (found < 0) return;
    Game& board = boardAt(found);
    const int relation = board.Style12Record.Relation;
    if (std::abs(relation) < 4) {
        if (relation != 0) {
            hooks.playSound("fitebell.wav", modChess.SoundMove);
            if (hooks.seekGraphChecked()) hooks.showSeek();
        } else {
            hooks.beep();
        }
        board.zEndParms();
    }
    modChess.GameRunning = false;
}

void GameRouting::zEndAllGames() {
    for (const OpenWindow& window : openWindows.windows) {
        Game* game = gameOf(window);
        if (!game) continue;
        game->zEndParms();
        modChess.GameRunning = false;
    }
}
