// Examined games: one player or several walk through the moves and may try others, anybody may watch.
#include "practice/play/ExamineRoom.h"

#include "practice/games/GameTexts.h"
#include "practice/play/GameStart.h"
#include "practice/play/Moves.h"
#include "practice/play/Observing.h"
#include "practice/text/Text.h"

#include <algorithm>

namespace practice {

namespace {

// How many of the moves shown are those of the kept game.
std::size_t movesInCommon(const Game& game) {
    std::size_t count = 0;
    while (count < game.moves.size() && count < game.mainLine.size() &&
           game.moves[count].engineForm == game.mainLine[count].engineForm)
        ++count;
    return count;
}

void stopClock(Game& game, const GameClock& shown) {
    game.clock = shown;
    game.clock.timed = false;
}

// The board belongs to the last of the moves; its legal moves are asked for.
void standStill(Hall& hall, Game& game) {
    stopClock(game, game.moves.empty() ? game.firstClock : game.moves.back().clock);
    ++game.course;
    learnPosition(hall, game);
}

std::string steps(int count) { return counted(count, "move") + "."; }

// The examiners and observers but one.
std::vector<std::string> othersAt(const Game& game, const std::string& but) {
    std::vector<std::string> names = game.examiners;
    names.insert(names.end(), game.observers.begin(), game.observers.end());
    std::erase(names, but);
    return names;
}

// Game 1: Ada goes forward 2 moves.
std::string moved(Hall& hall, Game& game, const Player& by, const std::string& what, const std::string& behind = {}) {
    const std::string head = gameLabel(game) + by.name + " " + what + "\n\n";
    standStill(hall, game);
    const auto textFor = [&](const std::string& name) {
        return head + boardLineFor(game, name, hall.outside.now()) + behind;
    };
    for (const std::string& name : othersAt(game, by.name)) hall.show(name, textFor(name));
    return textFor(by.name);
}

Game& examinedBy(Hall& hall, const Player& player) { return *hall.game(player.examining); }

} // namespace

std::string startExamining(Hall& hall, Player& player, const KeptGame* kept) {
    const std::string unobserved = unobserveAll(hall, player);
    // An ad that somebody answers would put a second game on the same board.
    hall.seeks.removeOwner(player.name);
    Terms untimed;
    untimed.minutes = untimed.increment = 0;
    Game& game = openGame(hall, kept ? kept->game.terms : untimed);
    if (kept) {
        game.names = kept->game.names;
        game.ratings = kept->game.ratings;
        game.rules = kept->game.rules;
        game.startFen = kept->game.startFen;
        game.startedAt = kept->game.startedAt;
        game.firstClock = kept->game.firstClock;
        game.mainLine = kept->game.moves;
        game.mainEnd = kept->reason + " " + kept->result;
    } else {
        game.names = {player.name, player.name};
        game.ratings = {player.shortRating(), player.shortRating()};
    }
    game.examiners = {player.name};
    player.examining = game.number;
    standStill(hall, game);
    const std::string head = kept ? "" : "Starting a game in examine (scratch) mode.\n";
    return unobserved + (unobserved.empty() ? "" : "\n") + head + "\n" +
           boardLineFor(game, player.name, hall.outside.now());
}

std::string shareExamining(Hall& hall, const Player& player, Player& to) {
    Game& game = examinedBy(hall, player);
    if (!unobserveGame(hall, to, game.number)) return to.name + " is not observing the game you are examining.";
    const std::string unobserved = unobserveAll(hall, to);
    const std::string number = std::to_string(game.number);
    const std::string news = to.name + " is now an examiner of game " + number + ".";
    for (const std::string& name : othersAt(game, player.name)) hall.show(name, news);
    hall.seeks.removeOwner(to.name);
    game.examiners.push_back(to.name);
    to.examining = game.number;
    to.show(unobserved + (unobserved.empty() ? "" : "\n") + player.name + " has made you an examiner of game " +
            number + ".\n\n" + boardLineFor(game, to.name, hall.outside.now()));
    return news;
}

std::string stopExamining(Hall& hall, Player& player) {
    const int number = player.examining;
    player.examining = 0;
    if (Game* game = hall.game(number)) {
        std::erase(game->examiners, player.name);
        const bool goesOn = game->isExamined();
        const std::string news = player.name + " stopped examining game " + std::to_string(number) + ".";
        for (const std::string& name : othersAt(*game, player.name)) {
            Player* other = hall.find(name);
            if (!goesOn && other) unobserveGame(hall, *other, number);
            hall.show(name, news + (goesOn ? "" : "\n" + unobservedLine(number)));
        }
        if (!goesOn) hall.games.erase(number);
    }
    return "You are no longer examining game " + std::to_string(number) + ".";
}

std::string goForward(Hall& hall, Player& player, int halfmoves) {
    Game& game = examinedBy(hall, player);
    if (movesInCommon(game) != game.moves.size()) return "You cannot go forward unless you are on the main line.";
    if (game.moves.size() == game.mainLine.size()) return "You're at the end of the game.";
    const auto end = std::min(game.mainLine.size(), game.moves.size() + static_cast<std::size_t>(halfmoves));
    for (std::size_t at = game.moves.size(); at < end; ++at) game.moves.push_back(game.mainLine[at]);
    const bool atEnd = end == game.mainLine.size();
    return moved(hall, game, player, "goes forward " + steps(halfmoves),
                 atEnd ? "\n" + gameLabel(game) + game.mainEnd : "");
}

std::string goBackward(Hall& hall, Player& player, int halfmoves) {
    Game& game = examinedBy(hall, player);
    if (game.moves.empty()) return "You're at the beginning of the game.";
    const auto count = std::min(game.moves.size(), static_cast<std::size_t>(halfmoves));
    game.moves.resize(game.moves.size() - count);
    return moved(hall, game, player, "backs up " + steps(halfmoves));
}

std::string revertToMainLine(Hall& hall, Player& player) {
    Game& game = examinedBy(hall, player);
    const std::size_t common = movesInCommon(game);
    if (common == game.moves.size()) return gameLabel(game) + "Already at mainline.";
    game.moves.resize(common);
    return moved(hall, game, player, "reverts to main line move " + std::to_string(common) + ".");
}

} // namespace practice
