// Offers and their answers: accepting, declining, taking back, and what computers say to them.
#pragma once

#include "practice/hall/Hall.h"

#include <string>

namespace practice {

// Puts an offer within a game before the opponent and gives the answer for its maker. An offer that the opponent made
// already is accepted by making it too, and a computer answers at once.
std::string offerInGame(Hall& hall, Player& player, Game& game, OfferKind kind, int halfmoves = 0);

// Carries an open offer out and tells its maker and observers, or drops one that cannot be carried out any more; gives
// the answer for the one who accepts.
std::string acceptOffer(Hall& hall, int number);

// Refuses an open offer and tells its maker and observers; gives the answer for the one who refuses.
std::string declineOffer(Hall& hall, int number);

// Takes an open offer back and tells the one who got it; gives the answer for its maker.
std::string withdrawOffer(Hall& hall, int number);

// The whole answer to "pending".
std::string pendingText(Hall& hall, const Player& player);

} // namespace practice
