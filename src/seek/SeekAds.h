// The server's open seeks, as the latest answer to "sought" told them.
#pragma once

#include "common/FixedArray.h"

#include <cstdint>
#include <string>

// One ad. Texts are Latin-1.
struct SeekAd {
    std::int16_t AdNumber = 0; // the argument of "Play "
    std::int16_t AdRating = 0; // -1 for "++++" and "----"
    std::string AdName;        // the seeker's handle with its marks
    std::int16_t AdTime = 0;   // minutes; 240 for an untimed game
    std::int16_t AdInc = 0;    // seconds
    std::string AdRated;       // "rated", or the server's other word
    std::string AdType;        // of the game, as the server writes it
    std::string AdRange;       // of ratings, with the blanks in front of it and what is behind it
    bool AdComputer = false;   // AdName holds "(C)"
};

// Filled by the capture, shown by the graph, which empties it by its count: the entries stay for whoever points at a
// dot.
struct SeekTable {
    FixedArray<SeekAd, 200, "ads of the server"> SeekAds;
    std::int32_t SeekAdCount = 0; // entries that the running capture has filled
};
