// The kinds of chess that are played here, and where their games start.
#pragma once

#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace practice {

// Which rules the engine is to apply to a game.
struct Rules {
    std::string engineName = "chess"; // a name of its own list, or one that `ownRules` defines
    bool chess960 = false;            // castling is told as the king taking his rook

    bool operator==(const Rules&) const = default;
};

// One kind of chess as texts and tables name it.
struct Variant {
    std::string name;    // "crazyhouse", "wild/5"; empty for standard chess
    char letter = 0;     // stands in tables of games; 0 where the time control gives one
    bool drops = false;  // what is taken goes to the taker's hand
    bool losing = false; // the side that is rid of its pieces wins
};

// Where a game starts and by which rules.
struct Setup {
    std::string fen;
    Rules rules;
};

// All kinds but standard chess, in the order in which help names them.
const std::vector<Variant>& variants();

// The kind of this name; standard chess for an empty or unknown one.
const Variant& variantNamed(std::string_view name);

// What became of a typed word that may name a kind.
struct VariantReading {
    const Variant* variant = nullptr; // null if the word names none that is played here
    std::size_t words = 0;            // words that the name took: 0, 1, or 2 for "Wild fr"
    std::string refusal;              // why a kind that is known is not played; empty otherwise
};

// Reads the name of a kind from `words[at]` on, letter case ignored; three letters are enough where they are clear.
VariantReading readVariant(const std::vector<std::string>& words, std::size_t at);

// The start of a game: drawn by `dice` where the kind shuffles its pieces.
Setup drawSetup(const Variant& variant, std::mt19937& dice);

// Rules that the engine has not by itself, in the form of its variant files.
std::string_view ownRules();

} // namespace practice
