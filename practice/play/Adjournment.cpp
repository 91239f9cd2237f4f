// Adjourning games and going on with them.
#include "practice/play/Adjournment.h"

#include "practice/play/GameEnd.h"
#include "practice/play/GameStart.h"
#include "practice/play/Moves.h"

namespace practice {

void adjournGame(Hall& hall, Game& game) {
    const std::string reason = "Game adjourned by mutual agreement";
    game.clock.settle(game.toMove(), hall.outside.now());
    hall.archive.adjourn(keptGame(game, reason, "*", hall.outside.wallClock()));
    endGame(hall, game, reason, "*");
}

void resumeGame(Hall& hall, const KeptGame& kept) {
    Game& game = openGame(hall, kept.game.terms);
    const auto serial = game.serial;
    const int number = game.number;
    game = kept.game;
    game.serial = serial;
    game.number = number;
    game.clock.turnBegan = hall.outside.now();
    ++game.seen[repetitionKey(game.startFen)];
    for (const PlayedMove& move : game.moves) ++game.seen[repetitionKey(move.fen)];
    seatBoth(hall, game, "Continuing");
    learnPosition(hall, game);
}

} // namespace practice
