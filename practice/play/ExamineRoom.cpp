// Examined games: one player walks through the moves and may try others, anybody may watch.
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

// Game 1: Ada goes forward 2 moves.
std::string moved(Hall& hall, Game& game, const std::string& what, const std::string& behind = {}) {
    const std::string head = gameLabel(game) + game.examiner + " " + what + "\n\n";
    standStill(hall, game);
    const auto now = hall.outside.now();
    for (const std::string& name : game.observers) hall.show(name, head + boardLineFor(game, name, now) + behind);
    return head + boardLineFor(game, game.examiner, now) + behind;
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
    game.examiner = player.name;
    player.examining = game.number;
    standStill(hall, game);
    const std::string head = kept ? "" : "Starting a game in examine (scratch) mode.\n";
    return unobserved + (unobserved.empty() ? "" : "\n") + head + "\n" +
           boardLineFor(game, player.name, hall.outside.now());
}

std::string stopExamining(Hall& hall, Player& player) {
    const int number = player.examining;
    const Game* game = hall.game(number);
    player.examining = 0;
    if (game) {
        const auto observers = game->observers;
        for (const std::string& name : observers) {
            Player* observer = hall.find(name);
            if (!observer) continue;
            unobserveGame(hall, *observer, number);
            observer->show(player.name + " stopped examining game " + std::to_string(number) + ".\n" +
                           unobservedLine(number));
        }
        hall.games.erase(number);
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
    return moved(hall, game, "goes forward " + steps(halfmoves), atEnd ? "\n" + gameLabel(game) + game.mainEnd : "");
}

std::string goBackward(Hall& hall, Player& player, int halfmoves) {
    Game& game = examinedBy(hall, player);
    if (game.moves.empty()) return "You're at the beginning of the game.";
    const auto count = std::min(game.moves.size(), static_cast<std::size_t>(halfmoves));
    game.moves.resize(game.moves.size() - count);
    return moved(hall, game, "backs up " + steps(halfmoves));
}

std::string revertToMainLine(Hall& hall, Player& player) {
    Game& game = examinedBy(hall, player);
    const std::size_t common = movesInCommon(game);
    if (common == game.moves.size()) return gameLabel(game) + "Already at mainline.";
    game.moves.resize(common);
    return moved(hall, game, "reverts to main line move " + std::to_string(common) + ".");
}

} // namespace practice
