// What the computer players do in the hall: offer games, think, answer, and play each other.
#pragma once

#include "practice/hall/Hall.h"

namespace practice {

// Lets the computer players in, gives them their reactions, posts their ads and starts the pair that always plays. Call
// once, with `start` and `adPace` set.
void openComputerRoom(Hall& hall);

// Lets a computer say a friendly word to somebody who told it something.
void answerTell(Hall& hall, const Player& computer, const std::string& teller);

} // namespace practice
