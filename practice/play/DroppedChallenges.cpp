// Challenges that lose their sense when one of their players plays or leaves.
#include "practice/play/DroppedChallenges.h"

#include <iterator>

namespace practice {

namespace {

void tellDropped(Hall& hall, const PendingOffer& offer, const Player& gone, const std::string& opponent) {
    const bool made = offer.from == gone.name;
    const std::string why = opponent.empty() ? "has departed." : "has joined a match with " + opponent + ".";
    const std::string relation = made ? ", who was challenging you, " : ", whom you were challenging, ";
    hall.show(made ? offer.to : offer.from,
              gone.name + relation + why + "\n" +
                  (made ? "Challenge from " + gone.name + " removed." : "Challenge to " + gone.name + " withdrawn."));
}

} // namespace

// The challenges of one who plays several at once stand.
void dropChallenges(Hall& hall, const Player& player, const std::string& opponent) {
    if (player.manyGames) return;
    auto& open = hall.offers.open;
    for (auto at = open.begin(); at != open.end();) {
        const PendingOffer offer = at->second;
        const bool concerned = offer.kind == OfferKind::Match && (offer.from == player.name || offer.to == player.name);
        at = concerned ? open.erase(at) : std::next(at);
        if (concerned) tellDropped(hall, offer, player, opponent);
    }
}

} // namespace practice
