// Ads in the hall: posting them, telling of them, and answering one.
#pragma once

#include "practice/hall/Hall.h"

#include <string>

namespace practice {

// Posts an ad for a player and gives the answer for him; a guest's ad becomes unrated. Everybody who wants to see ads
// and is not playing is told.
std::string postSeek(Hall& hall, Player& player, Terms terms);

// Answers the ad of a number: the game starts and nothing remains to be said, or a complaint comes back.
std::string answerSeek(Hall& hall, Player& player, int number);

} // namespace practice
