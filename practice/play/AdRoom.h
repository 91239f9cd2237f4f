// The computers' ads: they stand open from the start, come and go, and come back after games.
#pragma once

#include "practice/hall/Computers.h"
#include "practice/hall/Hall.h"

namespace practice {

// Posts the ads of the computers, who must be in the hall, but for a few visitors'; from then on an ad of a visitor
// comes or goes at the hall's `adPace`. Call once.
void openAds(Hall& hall);

// Posts the ad of a computer again a moment after its game, unless it plays or offers another by then. With
// the table full it tries again.
void bringBackAd(Hall& hall, const Computer& computer);

} // namespace practice
