// What players have put before each other: challenges, and offers within a game.
#include "practice/games/Offers.h"

#include "practice/text/Text.h"

#include <algorithm>
#include <utility>

namespace practice {

namespace {

bool isBetween(const PendingOffer& offer, const std::string& one, const std::string& other) {
    return (offer.from == one && offer.to == other) || (offer.from == other && offer.to == one);
}

} // namespace

int OfferTable::post(PendingOffer offer) {
    if (madeBy(offer.from).size() >= limit) return 0;
    offer.serial = ++lastSerial;
    return open.emplace(lowestFree(open), std::move(offer)).first->first;
}

int OfferTable::find(OfferKind kind, const std::string& from, const std::string& to) const {
    const auto at = std::find_if(open.begin(), open.end(), [&](const auto& entry) {
        const PendingOffer& offer = entry.second;
        return offer.kind == kind && offer.from == from && offer.to == to;
    });
    return at == open.end() ? 0 : at->first;
}

int OfferTable::numberOf(std::uint64_t serial) const {
    const auto at = std::find_if(open.begin(), open.end(), [&](const auto& o) { return o.second.serial == serial; });
    return at == open.end() ? 0 : at->first;
}

std::vector<int> OfferTable::madeBy(const std::string& name) const {
    std::vector<int> result;
    for (const auto& [number, offer] : open) {
        if (offer.from == name) result.push_back(number);
    }
    return result;
}

std::vector<int> OfferTable::madeTo(const std::string& name) const {
    std::vector<int> result;
    for (const auto& [number, offer] : open) {
        if (offer.to == name) result.push_back(number);
    }
    return result;
}

void OfferTable::dropWithinGame(const std::string& one, const std::string& other) {
    std::erase_if(open, [&](const auto& entry) {
        return entry.second.kind != OfferKind::Match && isBetween(entry.second, one, other);
    });
}

void OfferTable::dropForMover(const std::string& to, const std::string& from) {
    std::erase_if(open, [&](const auto& entry) {
        const PendingOffer& offer = entry.second;
        return offer.kind != OfferKind::Match && offer.to == to && offer.from == from;
    });
}

std::string offerName(OfferKind kind) {
    switch (kind) {
    case OfferKind::Match:
        return "match offer";
    case OfferKind::Draw:
        return "draw offer";
    case OfferKind::Abort:
        return "abort request";
    case OfferKind::Adjourn:
        return "adjourn request";
    case OfferKind::Takeback:
        return "takeback request";
    }
    return {};
}

std::string halfmovesText(int halfmoves) { return std::to_string(halfmoves) + " half-move(s)"; }

std::string offerSentence(const PendingOffer& offer, const std::string& terms) {
    switch (offer.kind) {
    case OfferKind::Match:
        return offer.from + " is offering a challenge: " + terms;
    case OfferKind::Draw:
        return offer.from + " is offering a draw.";
    case OfferKind::Abort:
        return offer.from + " is offering to abort the game.";
    case OfferKind::Adjourn:
        return offer.from + " is offering an adjournment.";
    case OfferKind::Takeback:
        return offer.from + " is offering to takeback the last " + halfmovesText(offer.halfmoves) + ".";
    }
    return {};
}

} // namespace practice
