// Seek ads: the list of open ads and their texts.
#pragma once

#include "practice/games/Terms.h"

#include <map>
#include <string>

namespace practice {

// One open ad.
struct Seek {
    std::string owner;  // handle without titles
    std::string title;  // "", "(C)" or "(U)"
    std::string rating; // four characters: "1711", " 886", "++++", "----"
    Terms terms;
};

// Open ads by number. A new ad takes the lowest free number from 1 on.
struct SeekTable {
    static constexpr std::size_t limit = 200; // clients hold 200 ads

    std::map<int, Seek> open;

    // Adds an ad and gives its number; 0 when the table is full.
    int post(const Seek& seek);

    // Takes all ads of a handle away (letter case counts) and gives how many there were.
    int removeOwner(const std::string& owner);

    // Ads of one owner.
    int countOf(const std::string& owner) const;
};

// The line that tells other players of a new ad, with the command that takes it.
std::string announcement(int number, const Seek& seek);

// The ad's row in the answer to "sought".
std::string soughtRow(int number, const Seek& seek);

// The whole answer to "sought".
std::string soughtTable(const SeekTable& table);

} // namespace practice
