// Everything that goes on at the server: players, games, ads.
#include "practice/hall/Hall.h"

#include "practice/text/Text.h"

#include <algorithm>

namespace practice {

namespace {

void tellArrival(Hall& hall, const std::string& titled, bool arrived) {
    for (Player& other : hall.players) {
        if (other.variables.value("pin") == 0 || other.titled() == titled) continue;
        other.show("[" + titled + (arrived ? " has connected.]" : " has disconnected.]"));
    }
}

} // namespace

Player* Hall::find(const std::string& name) {
    const std::string wanted = lower(name);
    const auto at =
        std::find_if(players.begin(), players.end(), [&](const Player& p) { return lower(p.name) == wanted; });
    return at == players.end() ? nullptr : &*at;
}

Player* Hall::findByHead(const std::string& name) {
    if (Player* exact = find(name)) return exact;
    Player* found = nullptr;
    for (Player& player : players) {
        if (name.empty() || !startsWith(player.name, name)) continue;
        if (found) return nullptr;
        found = &player;
    }
    return found;
}

const Variables* Hall::settingsOf(const std::string& name) {
    if (const Player* player = find(name)) return &player->variables;
    const auto kept = remembered.find(lower(name));
    return kept == remembered.end() ? nullptr : &kept->second;
}

Game* Hall::game(int number) {
    const auto at = games.find(number);
    return at == games.end() ? nullptr : &at->second;
}

Game* Hall::gameBySerial(std::uint64_t serial) {
    const auto at = std::find_if(games.begin(), games.end(), [&](const auto& g) { return g.second.serial == serial; });
    return at == games.end() ? nullptr : &at->second;
}

Game* Hall::gameAtBoard(const Player& player) { return game(player.playing != 0 ? player.playing : player.examining); }

Game* Hall::gameAtHand(const Player& player) {
    if (Game* own = gameAtBoard(player)) return own;
    return player.observing.empty() ? nullptr : game(player.observing.back());
}

std::vector<Game*> Hall::gamesOf(const Player& player) {
    std::vector<Game*> result;
    for (auto& [number, game] : games) {
        if (game.sideOf(player.name) >= 0) result.push_back(&game);
    }
    return result;
}

Player& Hall::enter(const std::string& name, const std::string& title, const std::string& rating) {
    Player& player = players.emplace_back();
    player.name = name;
    player.title = title;
    player.rating = rating;
    if (player.isGuest()) player.variables.numbers["rated"] = 0;
    if (const auto kept = remembered.find(lower(name)); kept != remembered.end()) player.variables = kept->second;
    player.since = player.lastTyped = outside.now();
    tellArrival(*this, player.titled(), true);
    return player;
}

void Hall::remove(const Player& player) {
    if (player.title.empty()) remembered[lower(player.name)] = player.variables;
    const std::string titled = player.titled();
    players.remove_if([&](const Player& p) { return &p == &player; });
    tellArrival(*this, titled, false);
}

void Hall::show(const std::string& name, const std::string& text) {
    if (Player* player = find(name)) player->show(text);
}

int Hall::randomDelay(int low, int high) {
    if (high <= low) return low;
    return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
}

} // namespace practice
