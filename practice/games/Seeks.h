// Seek ads: the list of open ads and their texts.
#pragma once

#include "practice/games/Terms.h"

#include <map>
#include <string>
#include <vector>

namespace practice {

// One open ad.
struct Seek {
    std::string owner;  // handle without titles
    std::string title;  // "", "(C)" or "(U)"
    std::string rating; // four characters: "1711", " 886", "++++", "----"
    Terms terms;
};

// Open ads by number. Numbers go up from 1 to `highestNumber` and begin anew then: who answers an ad that is gone must
// not get another's game.
struct SeekTable {
    static constexpr std::size_t limit = 200; // clients hold 200 ads
    static constexpr int highestNumber = 999; // three columns

    std::map<int, Seek> open;
    int lastNumber = 0;

    // Adds an ad and gives its number; 0 when the table is full.
    int post(const Seek& seek);

    // Takes all ads of a handle away (letter case counts) and gives how many there were.
    int removeOwner(const std::string& owner);

    // The numbers of one owner's ads, lowest first.
    std::vector<int> numbersOf(const std::string& owner) const;
};

// The line that tells other players of a new ad, with the command that takes it.
std::string announcement(int number, const Seek& seek);

// The ad's row in the answer to "sought". A handle that has no room for its marks stands without them.
std::string soughtRow(int number, const Seek& seek);

// The whole answer to "sought".
std::string soughtTable(const SeekTable& table);

} // namespace practice
