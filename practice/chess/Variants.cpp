// The kinds of chess that are played here, and where their games start.
#include "practice/chess/Variants.h"

#include "practice/chess/StartPositions.h"
#include "practice/text/Text.h"

#include <algorithm>
#include <map>

namespace practice {

namespace {

constexpr std::string_view kingOnD = "kingond";

std::string wildRefusal(const std::string& name) { return "No such category/board: " + name; }

// "wild/5", "Wild 5", "wild": a wild game without a number is none.
VariantReading readWild(const std::vector<std::string>& words, std::size_t at) {
    const std::string word = lower(words[at]);
    const bool joined = word.size() > 4;
    const std::size_t taken = joined ? 1 : std::min<std::size_t>(2, words.size() - at);
    const std::string name = joined ? word : "wild/" + (taken == 2 ? lower(words[at + 1]) : std::string());
    const Variant& variant = variantNamed(name);
    if (variant.name.empty()) return {nullptr, taken, wildRefusal(name)};
    return {&variant, taken, {}};
}

// Kinds that clients offer and nobody can play here.
std::string refusalOf(const std::string& word) {
    if (startsWith("bughouse", word)) return "You have no partner for bughouse.";
    if (startsWith("atomic", word)) return "Atomic is not played here: the engine in the hall does not know its rules.";
    return {};
}

const std::map<std::string, std::string>& otherNames() {
    static const std::map<std::string, std::string> names{
        {"zh", "crazyhouse"}, {"fr", "wild/fr"}, {"chess960", "wild/fr"}, {"fischerandom", "wild/fr"}};
    return names;
}

const Variant* plainlyNamed(const std::string& word) {
    if (const auto other = otherNames().find(word); other != otherNames().end()) return &variantNamed(other->second);
    const auto& all = variants();
    const auto at = std::find_if(all.begin(), all.end(), [&](const Variant& v) {
        return v.name.find('/') == std::string::npos && startsWith(v.name, word);
    });
    return word.size() < 3 || at == all.end() ? nullptr : &*at;
}

// Castling is the engine's matter: from the d-file it needs rules of its own.
Setup wildOne(std::mt19937& dice) {
    const bool onD = dice() % 2 == 0;
    Setup setup{shuffledBetweenRooks(onD ? 3 : 4, dice), {}};
    if (onD) setup.rules.engineName = kingOnD;
    return setup;
}

Setup namedSetup(std::string fen, std::string_view engineName) { return {std::move(fen), {std::string(engineName)}}; }

} // namespace

const std::vector<Variant>& variants() {
    static const std::vector<Variant> all{
        {"crazyhouse", 'z', true, false}, {"suicide", 'S', false, true},  {"losers", 'L', false, true},
        {"wild/0", 'w', false, false},    {"wild/1", 'w', false, false},  {"wild/2", 'w', false, false},
        {"wild/3", 'w', false, false},    {"wild/4", 'w', false, false},  {"wild/5", 'w', false, false},
        {"wild/8", 'w', false, false},    {"wild/8a", 'w', false, false}, {"wild/fr", 'w', false, false},
    };
    return all;
}

const Variant& variantNamed(std::string_view name) {
    static const Variant standard;
    const auto& all = variants();
    const auto at = std::find_if(all.begin(), all.end(), [&](const Variant& v) { return v.name == name; });
    return at == all.end() ? standard : *at;
}

VariantReading readVariant(const std::vector<std::string>& words, std::size_t at) {
    const std::string word = lower(words[at]);
    if (word == "wild" || startsWith(word, "wild/")) return readWild(words, at);
    if (const Variant* variant = plainlyNamed(word)) return {variant, 1, {}};
    if (word.size() >= 3) {
        if (const std::string refusal = refusalOf(word); !refusal.empty()) return {nullptr, 1, refusal};
    }
    return {};
}

Setup drawSetup(const Variant& variant, std::mt19937& dice) {
    const std::string& name = variant.name;
    if (name == "crazyhouse") return namedSetup(standardStart("KQkq"), "crazyhouse");
    if (name == "suicide") return namedSetup(standardStart("-"), "suicide");
    if (name == "losers") return namedSetup(standardStart("KQkq"), "losers");
    if (name == "wild/0") return namedSetup(kingsAndQueensSwapped(), kingOnD);
    if (name == "wild/1") return wildOne(dice);
    if (name == "wild/2") return {shuffledMirrored(dice), {}};
    if (name == "wild/3") return {randomMirrored(dice), {}};
    if (name == "wild/4") return {randomBalanced(dice), {}};
    if (name == "wild/5") return {pawnsNearPromotion(), {}};
    if (name == "wild/8") return {advancedPawns(false), {}};
    if (name == "wild/8a") return {advancedPawns(true), {}};
    if (name == "wild/fr") return {fischerRandom(static_cast<int>(dice() % 960)), {"chess", true}};
    return {standardStart("KQkq"), {}};
}

std::string_view ownRules() {
    return "[kingond:chess]\ncastlingKingFile = d\ncastlingKingsideFile = f\ncastlingQueensideFile = b\n";
}

} // namespace practice
