// Challenges: putting one before a player, and what becomes of it.
#pragma once

#include "practice/hall/Hall.h"

#include <string>

namespace practice {

// "Ada (1711) [white] Bert (++++) unrated blitz 5 0": a challenge's terms.
std::string challengeText(Hall& hall, const PendingOffer& offer);

// Challenges `to`; gives the answer for `from`. A challenge to the same player takes the place of an earlier one, one
// that fits his own starts the game and any other declines his, an adjourned game of the two is gone on with whatever
// the terms, games with a guest become unrated, and a computer accepts in a moment.
std::string challenge(Hall& hall, Player& from, Player& to, Terms terms);

// True if both players of a challenge are here and neither plays nor examines; one who plays several at once is always
// free.
bool bothAreFree(Hall& hall, const PendingOffer& offer);

// Starts the game of a challenge that was accepted and is off the table; both players must be free.
void startMatch(Hall& hall, const PendingOffer& offer);

} // namespace practice
