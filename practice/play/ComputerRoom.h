// What the computer players do in the hall: offer games, think, answer, and play each other.
#pragma once

#include "practice/hall/Hall.h"

namespace practice {

// Lets the computer players in, posts their ads and starts the pair that always plays. Call once, with `start` set.
void openComputerRoom(Hall& hall);

// If a computer is to move, looks for its move and plays it after a human delay. Does nothing otherwise.
void letComputerThink(Hall& hall, Game& game);

// Starts the next game of the pair in a moment.
void startPairLater(Hall& hall);

// What `computer` says to a draw: yes when it thinks little of its chances or the game has long been level.
bool acceptsDraw(const Game& game);

// What a computer says to an offer within its game: aborting and taking back are always fine, a draw is as
// `acceptsDraw` has it.
bool acceptsInGame(const Game& game, OfferKind kind);

// Lets a computer accept a challenge in a moment, if the challenge still stands then.
void considerChallenge(Hall& hall, const PendingOffer& offer);

// Lets a computer say a friendly word to somebody who told it something.
void answerTell(Hall& hall, const Player& computer, const std::string& teller);

} // namespace practice
