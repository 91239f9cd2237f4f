// How a game goes: the end line, what is kept, and players who leave theirs.
#include "practice/play/GameEnd.h"

#include "practice/games/GameTexts.h"
#include "practice/play/Endings.h"
#include "practice/play/Observing.h"

namespace practice {

namespace {

constexpr std::size_t fewMoves = 2; // a game with fewer half-moves is aborted, not lost

// Observers get the end line first and then the word that they observe no more.
void showEnd(Hall& hall, const Game& game, const std::string& line) {
    for (const std::string& name : game.names) hall.show(name, line);
    for (const std::string& name : game.observers) {
        hall.show(name, line);
        hall.show(name, unobservedLine(game.number));
    }
    for (Player& other : hall.players) {
        const bool concerned = game.sideOf(other.name) >= 0 || game.isObserver(other.name);
        if (!concerned && other.variables.value("gin") != 0) other.show(line);
    }
}

void releasePlayers(Hall& hall, const Game& game) {
    for (const int side : {0, 1}) {
        Player* player = hall.find(game.nameOf(side));
        if (!player) continue;
        player->playing = 0;
        player->lastOpponent = game.nameOf(1 - side);
        player->lastTerms = game.terms;
        player->lastTerms.colour = side == 1 ? WantedColour::White : WantedColour::Black; // for the next game
    }
    for (const std::string& name : game.observers) {
        if (Player* player = hall.find(name)) std::erase(player->observing, game.number);
    }
}

} // namespace

void endGame(Hall& hall, Game& game, const std::string& reason, const std::string& result) {
    showEnd(hall, game, endLine(game, reason, result));
    releasePlayers(hall, game);
    if (result != "*") hall.archive.keep(keptGame(game, reason, result, hall.outside.wallClock()));
    hall.offers.dropWithinGame(game.names[0], game.names[1]);
    const auto names = game.names;
    hall.games.erase(game.number);
    for (const std::string& name : names) {
        if (const Player* player = hall.find(name)) player->reactions.gameOver();
    }
}

void abandonGame(Hall& hall, Player& player) {
    for (Game* game : hall.gamesOf(player)) {
        const int side = game->sideOf(player.name);
        const std::string word = gameLabel(*game) + player.name + " disconnected.";
        hall.show(game->opponentOf(player.name), word);
        showObservers(hall, *game, word);
        if (game->moves.size() < fewMoves) {
            endGame(hall, *game, player.name + " lost connection and too few moves; game aborted", "*");
        } else {
            endGame(hall, *game, player.name + " forfeits by disconnection", lossOf(side));
        }
    }
}

} // namespace practice
