// The computer players: who they are, how strong, how they choose among an engine's proposals, and what they agree to.
#pragma once

#include "practice/engine/UciReplies.h"
#include "practice/games/Game.h"
#include "practice/games/Offers.h"
#include "practice/games/Terms.h"

#include <random>
#include <string>
#include <vector>

namespace practice {

// What a computer player is here for.
enum class Role {
    Host,    // plays as many at once as challenge it; its ad goes only while it plays
    Pair,    // one of the two that always play each other; it has no ad
    Visitor, // plays one at a time, and its ad comes and goes
};

// One computer player. Its strength comes from three figures: how deep the engine looks, how many moves it proposes,
// and how much worse than the best a chosen move may be.
struct Computer {
    std::string name;
    std::string title = "(C)"; // some visitors come like people: "" for a registered player, "(U)" for a guest
    int rating = 0;            // 0 for none
    int depth = 1;
    int proposals = 1;
    int margin = 0;    // hundredths of a pawn
    Terms offer;       // what it plays: its ad, or the games of the pair
    std::string about; // one line for finger
    Role role = Role::Host;
    bool prompt = false; // answers at once instead of after a human delay

    // The rating in four columns: "1560", " 640", "++++" for a guest, "----" for none.
    std::string ratingText() const;
};

// The hosts: three opponents, weakest first, and one that answers at once. Then the two of the pair, then the visitors.
const std::vector<Computer>& computers();

// The computer player of this name; null if there is none.
const Computer* computerNamed(const std::string& name);

// Chooses among proposals that stand best first: each one within `margin` of the best has the same chance. With a
// mate in sight the best is taken. Empty for an empty list.
std::string chooseMove(const std::vector<Candidate>& proposals, int margin, std::mt19937& random);

// What a computer says to an offer within its game: aborting and taking back are always fine, and so is a draw when it
// thinks little of its chances or the game has long been level.
bool acceptsInGame(const Game& game, OfferKind kind);

} // namespace practice
