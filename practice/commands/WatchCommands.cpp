// Commands of those who look on: games, observing, boards and move lists.
#include "practice/commands/Subjects.h"
#include "practice/games/GameTexts.h"
#include "practice/play/Observing.h"
#include "practice/text/Text.h"

#include <algorithm>

namespace practice {

namespace {

// The game that a word names by number or by a player's handle; null if there is none.
Game* gameNamed(Hall& hall, const std::string& word) {
    if (const auto which = number(word)) return hall.game(*which);
    const Player* player = hall.findByHead(word);
    if (!player) return nullptr;
    const auto games = hall.gamesOf(*player);
    return games.empty() ? hall.gameAtBoard(*player) : games.front();
}

const Answer noSuchGame{"There is no such game."};

// The game meant by the first word, or the one at hand.
Game* gameMeant(Hall& hall, const Player& player, const Arguments& arguments) {
    return arguments.words.empty() ? hall.gameAtHand(player) : gameNamed(hall, arguments.word(0));
}

const Answer& complaintFor(const Arguments& arguments) { return arguments.words.empty() ? noGameAtHand : noSuchGame; }

// Game 1: Ada (1711) Bert (++++) unrated blitz 5 0, an empty line, and the board line.
std::string boardBlock(const Game& game, const Player& player, std::int64_t now) {
    return gameTitle(game) + "\n\n" + boardLineFor(game, player.name, now);
}

Answer games(Hall& hall, Player&, const Arguments& arguments) {
    if (hall.games.empty()) return {"There are no games in progress."};
    const auto now = hall.outside.now();
    std::string text;
    int count = 0;
    for (const auto& [number, game] : hall.games) {
        const std::string& wanted = arguments.word(0);
        if (!startsWith(game.names[0], wanted) && !startsWith(game.names[1], wanted)) continue;
        text += gamesRow(game, now) + "\n";
        ++count;
    }
    return {text + "\n" + counted(count, "game", 3) + " displayed (of " +
            padLeft(static_cast<int>(hall.games.size()), 3) + " in progress)."};
}

// Who plays or examines does not watch: his client has one board in front of him.
Answer observe(Hall& hall, Player& player, const Arguments& arguments) {
    if (player.playing != 0) return {"You are still playing a game."};
    if (player.examining != 0) return {"You are still examining a game."};
    if (arguments.words.empty() && hall.games.empty()) return {"There are no games in progress."};
    Game* game = arguments.words.empty() ? &hall.games.begin()->second : gameNamed(hall, arguments.word(0));
    if (!game) return noSuchGame;
    const std::string number = std::to_string(game->number);
    if (game->isPrivate) return {"Game " + number + " is private."};
    if (std::count(player.observing.begin(), player.observing.end(), game->number) > 0) {
        return {"You are already observing game " + number + "."};
    }
    observeGame(*game, player);
    return {"You are now observing game " + number + ".\n" + boardBlock(*game, player, hall.outside.now())};
}

Answer unobserve(Hall& hall, Player& player, const Arguments& arguments) {
    if (player.observing.empty()) return {"You are not observing any games."};
    if (arguments.words.empty()) return {unobserveAll(hall, player)};
    const Game* game = gameNamed(hall, arguments.word(0));
    if (!game || !unobserveGame(hall, player, game->number)) return {"You are not observing that game."};
    return {unobservedLine(game->number)};
}

Answer refresh(Hall& hall, Player& player, const Arguments& arguments) {
    const Game* game = gameMeant(hall, player, arguments);
    return game ? Answer{boardBlock(*game, player, hall.outside.now())} : complaintFor(arguments);
}

Answer moves(Hall& hall, Player& player, const Arguments& arguments) {
    const Game* game = gameMeant(hall, player, arguments);
    // The list begins with an empty line, whatever stands before it.
    return game ? Answer{"\n" + moveList(*game)} : complaintFor(arguments);
}

Answer time(Hall& hall, Player& player, const Arguments& arguments) {
    const Game* game = gameMeant(hall, player, arguments);
    if (!game) return complaintFor(arguments);
    const auto left = [&](int side) {
        return clockText(game->clock.remaining(side, game->toMove(), hall.outside.now()));
    };
    return {gameTitle(*game) + "\nWhite Clock : " + left(0) + "\nBlack Clock : " + left(1)};
}

Answer allObservers(Hall& hall, Player&, const Arguments&) {
    std::string text;
    int count = 0;
    for (const auto& [number, game] : hall.games) {
        if (game.observers.empty()) continue;
        text += "Observing " + std::to_string(number) + " [" + game.names[0] + " vs. " + game.names[1] + "]:";
        for (const std::string& name : game.observers) {
            const Player* player = hall.find(name);
            text += " " + (player ? player->titled() : name);
        }
        text += " (" + counted(static_cast<int>(game.observers.size()), "user") + ")\n";
        ++count;
    }
    return {text + counted(count, "game", 3) + " displayed (of " + std::to_string(hall.games.size()) +
            " in progress)."};
}

} // namespace

const CommandTable& watchCommands() {
    static const CommandTable routines{
        {"allobservers", allObservers}, {"games", games}, {"moves", moves},         {"observe", observe},
        {"refresh", refresh},           {"time", time},   {"unobserve", unobserve},
    };
    return routines;
}

} // namespace practice
