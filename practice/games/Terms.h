// The terms of a game: times, rating mode, colour and kind, as offers ask for them and texts tell them.
#pragma once

#include <string>
#include <vector>

namespace practice {

// The colour that the seeker asks for.
enum class WantedColour { Any, White, Black };

// Time control, rating mode and limits of an offer.
struct Terms {
    int minutes = 2;    // 0..mostMinutes
    int increment = 12; // 0..mostIncrement seconds
    bool rated = false; // only shown: ratings never change
    WantedColour colour = WantedColour::Any;
    int lowest = 0; // ratings 0..9999 that may answer
    int highest = 9999;
    bool manual = false;  // only shown: here the first answer starts the game
    bool formula = false; // only shown
    std::string variant;  // name of the kind of chess; empty for standard chess

    bool operator==(const Terms&) const = default;
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

// "rated" or "unrated".
std::string ratedText(const Terms& terms);

// "blitz", "crazyhouse", "wild/5": what the games of these terms are called.
std::string kindText(const Terms& terms);

// "[white]", "[black]" or nothing.
std::string colourText(const Terms& terms);

// "rated blitz 5 0": the tail of the lines that open a game.
std::string termsText(const Terms& terms);

} // namespace practice
