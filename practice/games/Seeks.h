// Seek ads: what a player offers, the list of open ads, and their texts.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace practice {

// The colour that the seeker asks for.
enum class WantedColour { Any, White, Black };

// Time control, rating mode and limits of an offer.
struct Terms {
    int minutes = 2;    // 0..999
    int increment = 12; // 0..999 seconds
    bool rated = false; // only shown: ratings never change
    WantedColour colour = WantedColour::Any;
    int lowest = 0; // ratings 0..9999 that may answer
    int highest = 9999;
    bool manual = false;  // only shown: here the first answer starts the game
    bool formula = false; // only shown
    std::string variant;  // name of the kind of chess; empty for standard chess

    bool operator==(const Terms&) const = default;
};

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

// The outcome of reading a player's words: terms, or the complaint to show.
struct TermsReading {
    Terms terms;
    std::string error; // empty when the words made sense
};

// Reads "[time inc] [rated|unrated] [white|black] [kind] [low-high]" in any order, letter case ignored;
// `standard` gives what is not said.
TermsReading readTerms(const std::vector<std::string>& arguments, const Terms& standard);

// The kind of a time control: "untimed", "lightning", "blitz" or "standard".
std::string gameKind(int minutes, int increment);

// "blitz", "crazyhouse", "wild/5": what the games of these terms are called.
std::string kindText(const Terms& terms);

// "[white]", "[black]" or nothing.
std::string colourText(const Terms& terms);

// "rated blitz 5 0": the tail of the lines that open a game.
std::string termsText(const Terms& terms);

// The line that tells other players of a new ad, with the command that takes it.
std::string announcement(int number, const Seek& seek);

// The ad's row in the answer to "sought".
std::string soughtRow(int number, const Seek& seek);

// The whole answer to "sought".
std::string soughtTable(const SeekTable& table);

} // namespace practice
