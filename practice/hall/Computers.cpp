// The computer players: who they are, how strong, how they choose among an engine's proposals, and what they agree to.
#include "practice/hall/Computers.h"

namespace practice {

namespace {

Terms offerOf(int minutes, int increment) {
    Terms terms;
    terms.minutes = minutes;
    terms.increment = increment;
    return terms;
}

} // namespace

const std::vector<Computer>& computers() {
    static const std::vector<Computer> all{
        {"Sprout", 1050, 1, 8, 220, offerOf(3, 0), "I look one move ahead and forget the rest."},
        {"Willow", 1560, 4, 4, 60, offerOf(5, 5), "A club player's strength, on a good day."},
        {"Granite", 2210, 11, 2, 12, offerOf(15, 10), "Patient and hard to move."},
        {"Spark", 1400, 1, 1, 0, offerOf(1, 0), "I move before you see it, and always the same move.", false, true},
        {"Skipper", 1850, 6, 4, 35, offerOf(10, 5), "Always at the board with Harbour.", true},
        {"Harbour", 1830, 6, 4, 40, offerOf(10, 5), "Always at the board with Skipper.", true},
    };
    return all;
}

std::string chooseMove(const std::vector<Candidate>& proposals, int margin, std::mt19937& random) {
    if (proposals.empty()) return {};
    const int best = proposals.front().score;
    if (best >= mateInSight) return proposals.front().move;
    std::size_t near = 1;
    while (near < proposals.size() && proposals[near].score >= best - margin) ++near;
    // The remainder keeps a seed's games the same with every standard library.
    return proposals[random() % near].move;
}

bool acceptsInGame(const Game& game, OfferKind kind) {
    const int score = game.computerScore;
    return kind != OfferKind::Draw || score <= -150 || (game.moveNumber() > 40 && score > -30 && score < 30);
}

} // namespace practice
