// Taking moves back.
#include "practice/play/Takeback.h"

#include "practice/play/Moves.h"

namespace practice {

namespace {

void dropLast(Game& game) {
    --game.seen[repetitionKey(game.moves.back().fen)];
    game.moves.pop_back();
}

} // namespace

void takeBack(Hall& hall, Game& game, std::size_t halfmoves) {
    while (halfmoves-- > 0) dropLast(game);
    game.clock = game.moves.empty() ? game.firstClock : game.moves.back().clock;
    game.clock.turnBegan = hall.outside.now();
    ++game.course;
    const auto serial = game.serial;
    learnPosition(hall, game);
    if (const Game* still = hall.gameBySerial(serial)) showBoard(hall, *still);
}

} // namespace practice
