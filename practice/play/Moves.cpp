// Moves in a game: judged by the rules engine, shown to everybody, and the end that one may bring.
#include "practice/play/Moves.h"

#include "practice/chess/MoveText.h"
#include "practice/chess/Style12.h"
#include "practice/games/GameTexts.h"
#include "practice/play/Endings.h"
#include "practice/play/GameEnd.h"
#include "practice/play/Observing.h"
#include "practice/text/Text.h"

#include <algorithm>
#include <utility>

namespace practice {

namespace {

// Players or examiners. Their lines wait while a position of the game is judged.
std::vector<std::string> atTheBoard(const Game& game) {
    if (game.isExamined()) return game.examiners;
    return {game.names[0], game.names[1]};
}

void showEverybody(Hall& hall, const Game& game, const std::string& text) {
    for (const std::string& name : atTheBoard(game)) hall.show(name, text);
    showObservers(hall, game, text);
}

// <b1> game 1 white [P] black [] <- WP: sent ahead of the board when a hand grew.
void showTaken(Hall& hall, const Game& game, const std::string& fenBefore) {
    const auto before = readFen(fenBefore);
    const auto after = readFen(game.facts.fen);
    if (!before || !after || after->hand.size() <= before->hand.size()) return;
    for (const char piece : std::string_view("PNBRQpnbrq")) {
        if (std::count(after->hand.begin(), after->hand.end(), piece) <=
            std::count(before->hand.begin(), before->hand.end(), piece))
            continue;
        const bool white = piece < 'a';
        showEverybody(hall, game, composeHoldings(game.number, *after) + " <- " + (white ? "W" : "B") + upperOf(piece));
    }
}

void resumePlayers(Hall& hall, const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        if (const Player* player = hall.find(name)) {
            // A copy, as the lines that are read now may log the player out.
            const auto resume = player->resume;
            resume();
        }
    }
}

// Whoever is to move may do it of himself. In an examined game nobody is.
void callToMove(Hall& hall, Game& game) {
    if (game.isExamined()) return;
    const Player* player = hall.find(game.nameOf(game.toMove()));
    if (player) player->reactions.toMove(game);
}

void moveWasJudged(Hall& hall, std::uint64_t serial, PlayedMove move, PositionFacts facts) {
    Game* game = hall.gameBySerial(serial);
    if (!game) return;
    game->pending = false;
    if (facts.check) move.pretty += facts.legal.empty() ? "#" : "+";
    const std::string before = game->facts.fen;
    game->facts = std::move(facts);
    move.fen = game->facts.fen;
    move.clock = game->clock;
    game->moves.push_back(std::move(move));
    ++game->course;
    ++game->seen[repetitionKey(game->facts.fen)];
    showTaken(hall, *game, before);
    showBoard(hall, *game);
    if (game->isExamined()) return;
    if (const auto ending = endingOf(hall, *game)) {
        endGame(hall, *game, ending->reason, ending->result);
    } else {
        callToMove(hall, *game);
    }
}

void takePosition(Hall& hall, Game& game, PositionFacts facts) {
    game.pending = false;
    game.facts = std::move(facts);
    if (game.moves.empty()) {
        // In the engine's words, so that the start is known again when it is repeated after an adjournment.
        game.startFen = game.facts.fen;
        game.seen = {{repetitionKey(game.startFen), 1}};
    }
    callToMove(hall, game);
}

// Game 1: Ada moves: e4
std::string triedText(const Game& game) {
    if (game.moves.empty() || game.moves.back().triedBy.empty()) return {};
    return "\n" + gameLabel(game) + game.moves.back().triedBy + " moves: " + game.moves.back().pretty;
}

} // namespace

void learnPosition(Hall& hall, Game& game) {
    const std::string fen = game.moves.empty() ? game.startFen : game.moves.back().fen;
    if (fen == hall.start.fen && game.rules == Rules{}) return takePosition(hall, game, hall.start);
    game.facts = {};
    game.facts.fen = fen;
    game.pending = true;
    hall.outside.rules(game.rules, fen, {},
                       [&hall, serial = game.serial, names = atTheBoard(game)](PositionFacts facts) {
                           Game* waiting = hall.gameBySerial(serial);
                           if (waiting) takePosition(hall, *waiting, std::move(facts));
                           resumePlayers(hall, names);
                       });
}

void showBoard(Hall& hall, const Game& game) {
    const auto now = hall.outside.now();
    const std::string tried = triedText(game);
    for (const std::string& name : atTheBoard(game)) hall.show(name, boardLineFor(game, name, now) + tried);
    for (const std::string& name : game.observers) hall.show(name, boardLineFor(game, name, now) + tried);
}

void playMove(Hall& hall, Game& game, const std::string& move, const std::string& triedBy) {
    const auto position = readFen(game.facts.fen).value_or(Position{});
    PlayedMove played;
    played.engineForm = move;
    played.triedBy = triedBy;
    played.verbose = verboseForm(position, move);
    played.pretty = shortForm(position, game.facts.legal, move);
    played.doublePushFile = doublePushFile(position, move);
    played.taken = game.clock.press(game.toMove(), hall.outside.now());
    // A move turns down what the opponent offered.
    const int mover = game.toMove();
    if (!game.isExamined()) hall.offers.dropForMover(game.nameOf(mover), game.nameOf(1 - mover));
    game.pending = true;
    hall.outside.rules(game.rules, game.facts.fen, move,
                       [&hall, serial = game.serial, names = atTheBoard(game), played](PositionFacts facts) {
                           moveWasJudged(hall, serial, played, std::move(facts));
                           // Their lines waited, and do so no more even if the game has ended meanwhile.
                           resumePlayers(hall, names);
                       });
}

} // namespace practice
