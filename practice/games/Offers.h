// What players have put before each other: challenges, and offers within a game.
#pragma once

#include "practice/games/Terms.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace practice {

enum class OfferKind { Match, Draw, Abort, Adjourn, Takeback };

// One offer that waits for its answer. Handles stand without titles.
struct PendingOffer {
    OfferKind kind = OfferKind::Match;
    std::string from;
    std::string to;
    Terms terms;              // of a challenge
    bool adjourned = false;   // a challenge to go on with an adjourned game
    int halfmoves = 0;        // of a takeback
    std::uint64_t serial = 0; // never used twice, unlike the number
};

// Open offers by number. A new offer takes the lowest free number from 1 on; one player makes `limit` at most.
struct OfferTable {
    static constexpr std::size_t limit = 20;

    std::map<int, PendingOffer> open;
    std::uint64_t lastSerial = 0;

    // Adds an offer and gives its number; 0 when its maker has too many.
    int post(PendingOffer offer);

    // The number of an offer of this kind between two players; 0 if there is none.
    int find(OfferKind kind, const std::string& from, const std::string& to) const;

    // The number of the offer with this serial; 0 if it was answered or taken back.
    int numberOf(std::uint64_t serial) const;

    // The numbers of the offers that a player has made or got, lowest first.
    std::vector<int> madeBy(const std::string& name) const;
    std::vector<int> madeTo(const std::string& name) const;

    // Forgets the offers within a game of two players: all, or those that `to` got.
    void dropWithinGame(const std::string& one, const std::string& other);
    void dropForMover(const std::string& to, const std::string& from);
};

// "match offer", "abort request": the offer as answers to it call it.
std::string offerName(OfferKind kind);

// "2 half-move(s)": what is to be taken back.
std::string halfmovesText(int halfmoves);

// "Ada is offering a draw.": the offer as lists tell it; `terms` is the text of a challenge's terms.
std::string offerSentence(const PendingOffer& offer, const std::string& terms);

} // namespace practice
