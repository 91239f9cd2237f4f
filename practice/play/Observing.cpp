// Observing games: who watches, and what watchers are shown.
#include "practice/play/Observing.h"

namespace practice {

void observeGame(Game& game, Player& player) {
    game.observers.push_back(player.name);
    player.observing.push_back(game.number);
}

bool unobserveGame(Hall& hall, Player& player, int number) {
    if (std::erase(player.observing, number) == 0) return false;
    if (Game* game = hall.game(number)) std::erase(game->observers, player.name);
    return true;
}

std::string unobservedLine(int number) { return "Removing game " + std::to_string(number) + " from observation list."; }

std::string unobserveAll(Hall& hall, Player& player) {
    std::string text;
    while (!player.observing.empty()) {
        const int number = player.observing.front();
        text += (text.empty() ? "" : "\n") + unobservedLine(number);
        unobserveGame(hall, player, number);
    }
    return text;
}

void showObservers(Hall& hall, const Game& game, const std::string& text) {
    for (const std::string& name : game.observers) hall.show(name, text);
}

} // namespace practice
