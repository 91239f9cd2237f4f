// Taking moves back.
#include "practice/Takeback.h"

#include "practice/ComputerRoom.h"
#include "practice/Play.h"

namespace practice {

namespace {

void dropLast(Game& game) {
    --game.seen[repetitionKey(game.moves.back().fen)];
    game.moves.pop_back();
}

} // namespace

bool takeBack(Hall& hall, Game& game, std::size_t halfmoves) {
    if (halfmoves == 0 || halfmoves > game.moves.size()) return false;
    while (halfmoves-- > 0) dropLast(game);
    game.clock = game.moves.empty() ? game.firstClock : game.moves.back().clock;
    game.clock.turnBegan = hall.outside.now();
    ++game.course;
    learnPosition(hall, game, game.moves.empty() ? game.startFen : game.moves.back().fen, true);
    return true;
}

} // namespace practice
