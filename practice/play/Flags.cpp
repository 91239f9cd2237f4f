// Flags: whose time is over, and what that means.
#include "practice/play/Flags.h"

#include "practice/play/Endings.h"
#include "practice/play/GameEnd.h"

#include <vector>

namespace practice {

namespace {

bool flagIsDown(const Hall& hall, const Game& game, int side) {
    return game.clock.running() && game.clock.remaining(side, game.toMove(), hall.outside.now()) <= 0;
}

bool callsFlags(Hall& hall, const std::string& name) {
    const Player* player = hall.find(name);
    return player && (player->computer || player->variables.value("autoflag") != 0);
}

// Who cannot mate does not win on time either.
void endOnTime(Hall& hall, Game& game, int loser) {
    const auto position = readFen(game.facts.fen).value_or(Position{});
    const std::string& late = game.nameOf(loser);
    const std::string& other = game.nameOf(1 - loser);
    if (flagIsDown(hall, game, 1 - loser)) {
        endGame(hall, game, "Game drawn because both players ran out of time", "1/2-1/2");
    } else if (needsMaterial(game) && !hasMatingMaterial(position, loser == 1)) {
        endGame(hall, game, late + " ran out of time and " + other + " has no material to mate", "1/2-1/2");
    } else {
        endGame(hall, game, late + " forfeits on time", lossOf(loser));
    }
}

} // namespace

bool callFlag(Hall& hall, Game& game) {
    // While a move is judged its clock is already pressed, but the side to move is not yet the other one.
    if (game.pending) return false;
    const int late = game.toMove();
    if (!flagIsDown(hall, game, late) || !callsFlags(hall, game.nameOf(1 - late))) return false;
    endOnTime(hall, game, late);
    return true;
}

// An opponent may have moved with his flag down, and the clock that stands shows it still.
bool claimFlag(Hall& hall, Game& game, const Player& player) {
    const int late = 1 - game.sideOf(player.name);
    if (game.pending || !flagIsDown(hall, game, late)) return false;
    endOnTime(hall, game, late);
    return true;
}

void watchClocks(Hall& hall) {
    std::vector<int> numbers;
    for (const auto& [number, game] : hall.games) numbers.push_back(number);
    for (const int number : numbers) {
        if (Game* game = hall.game(number)) callFlag(hall, *game);
    }
}

} // namespace practice
