// How the last move of a game ends it.
#include "practice/play/Endings.h"

#include <algorithm>

namespace practice {

namespace {

constexpr std::size_t computerPlyLimit = 300; // 150 moves between two computers
const std::string half = "1/2-1/2";

// The order matters only when several hold: the plainest reason is told.
std::optional<Ending> drawnBy(Hall& hall, const Game& game, const Position& position) {
    const bool bare = !hasMatingMaterial(position, true) && !hasMatingMaterial(position, false);
    if (bare && needsMaterial(game)) return Ending{"Neither player has mating material", half};
    if (game.seen.at(repetitionKey(game.facts.fen)) >= 3) return Ending{"Game drawn by repetition", half};
    if (position.halfmoves >= 100) return Ending{"Game drawn by the 50 move rule", half};
    const auto limit = betweenComputers(hall, game) ? computerPlyLimit : Game::plyLimit;
    if (game.moves.size() >= limit) return Ending{"Game drawn by adjudication", half};
    return std::nullopt;
}

// Where pieces are to be lost, the winner is the engine's word, and the reason what the board shows.
std::string losingReason(const Game& game, const Position& position, int winner) {
    const bool suicide = game.terms.variant == "suicide";
    if (countPieces(position, winner == 0) <= (suicide ? 0 : 1))
        return game.nameOf(winner) + " wins by losing all material";
    if (game.facts.check) return game.nameOf(winner) + " checkmated";
    return game.nameOf(winner) + (suicide ? " wins by having less material (stalemate)" : " wins by stalemate");
}

Ending decided(const Game& game, const Position& position) {
    const int mover = game.toMove();
    const int winner = game.facts.outcome == Outcome::Won ? mover : 1 - mover;
    const std::string result = lossOf(1 - winner);
    if (variantNamed(game.terms.variant).losing) return {losingReason(game, position, winner), result};
    return {game.nameOf(1 - winner) + " checkmated", result};
}

} // namespace

std::string lossOf(int side) { return side == 0 ? "0-1" : "1-0"; }

bool betweenComputers(Hall& hall, const Game& game) {
    return std::all_of(game.names.begin(), game.names.end(), [&](const std::string& name) {
        const Player* player = hall.find(name);
        return player && player->computer;
    });
}

bool needsMaterial(const Game& game) {
    const Variant& variant = variantNamed(game.terms.variant);
    return !variant.drops && !variant.losing;
}

std::optional<Ending> endingOf(Hall& hall, const Game& game) {
    const auto position = readFen(game.facts.fen);
    if (!position) return Ending{"Game aborted by the rules engine", "*"};
    if (!game.facts.legal.empty()) return drawnBy(hall, game, *position);
    if (game.facts.outcome == Outcome::Drawn) return Ending{"Game drawn by stalemate", half};
    return decided(game, *position);
}

} // namespace practice
