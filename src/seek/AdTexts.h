// What the graph says and shows of an ad.
#pragma once

#include "seek/SeekAds.h"

#include <string>

// "Anders (1500) seeks blitz 5 0 rated 0-9999": the status line, the tool tip, and the dot's name.
std::string adText(const SeekAd& ad);

// The seeker without marks, for commands: AdName up to its first "(", or all of it if that is one of the first two
// characters.
std::string seekerOf(const SeekAd& ad);

// How the ad's dot looks: its colour 0xBBGGRR, and whether it is a full circle or a ring.
std::int32_t dotColor(const SeekAd& ad);
bool dotFilled(const SeekAd& ad);
