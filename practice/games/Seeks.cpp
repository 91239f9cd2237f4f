// Seek ads: what a player offers, the list of open ads, and their texts.
#include "practice/games/Seeks.h"

#include "practice/chess/Variants.h"
#include "practice/text/Text.h"

namespace practice {

namespace {

std::string ratedText(const Terms& terms) { return terms.rated ? "rated" : "unrated"; }

// "800-1300"; false unless both numbers are there.
bool readRange(const std::string& word, Terms& terms) {
    const auto dash = word.find('-');
    if (dash == std::string::npos) return false;
    const auto low = number(word.substr(0, dash));
    const auto high = number(word.substr(dash + 1));
    if (!low || !high || *low > 9999 || *high > 9999) return false;
    terms.lowest = *low;
    terms.highest = *high;
    return true;
}

// Each word may be cut short as far as one letter: "u", "w", "unr".
bool readWord(const std::string& word, Terms& terms) {
    const auto isHeadOf = [&](std::string_view whole) { return startsWith(whole, word); };
    if (isHeadOf("rated") || isHeadOf("unrated")) {
        terms.rated = isHeadOf("rated");
    } else if (isHeadOf("white") || isHeadOf("black")) {
        terms.colour = isHeadOf("white") ? WantedColour::White : WantedColour::Black;
    } else if (isHeadOf("manual") || isHeadOf("formula")) {
        (isHeadOf("manual") ? terms.manual : terms.formula) = true;
    } else if (!isHeadOf("auto") && !isHeadOf("blitz") && !isHeadOf("standard") && !isHeadOf("lightning")) {
        return readRange(word, terms);
    }
    return true;
}

} // namespace

int SeekTable::post(const Seek& seek) {
    if (open.size() >= limit) return 0;
    int free = 1;
    while (open.count(free) > 0) ++free;
    open.emplace(free, seek);
    return free;
}

int SeekTable::removeOwner(const std::string& owner) {
    return static_cast<int>(std::erase_if(open, [&](const auto& entry) { return entry.second.owner == owner; }));
}

int SeekTable::countOf(const std::string& owner) const {
    int count = 0;
    for (const auto& [index, seek] : open) count += seek.owner == owner ? 1 : 0;
    return count;
}

TermsReading readTerms(const std::vector<std::string>& arguments, const Terms& standard) {
    TermsReading result{standard, {}};
    std::vector<int> times;
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const std::string& word = arguments[at];
        const auto value = number(word);
        const VariantReading kind = readVariant(arguments, at);
        if (value && times.size() < 2) {
            if (*value > 999) return {standard, "Times go from 0 to 999."};
            times.push_back(*value);
        } else if (!kind.refusal.empty()) {
            return {standard, kind.refusal};
        } else if (kind.variant) {
            result.terms.variant = kind.variant->name;
            at += kind.words - 1;
        } else if (value || !readWord(word, result.terms)) {
            return {standard, "\"" + printable(word) + "\" is not understood here."};
        }
    }
    if (!times.empty()) {
        result.terms.minutes = times[0];
        result.terms.increment = times.size() > 1 ? times[1] : 0;
    }
    return result;
}

std::string gameKind(int minutes, int increment) {
    if (minutes == 0 && increment == 0) return "untimed";
    // A game is taken to last forty moves.
    const int seconds = minutes * 60 + increment * 40;
    if (seconds < 180) return "lightning";
    return seconds < 900 ? "blitz" : "standard";
}

std::string kindText(const Terms& terms) {
    return terms.variant.empty() ? gameKind(terms.minutes, terms.increment) : terms.variant;
}

std::string colourText(const Terms& terms) {
    if (terms.colour == WantedColour::White) return "[white]";
    return terms.colour == WantedColour::Black ? "[black]" : "";
}

std::string termsText(const Terms& terms) {
    return ratedText(terms) + " " + kindText(terms) + " " + std::to_string(terms.minutes) + " " +
           std::to_string(terms.increment);
}

std::string announcement(int number, const Seek& seek) {
    const Terms& terms = seek.terms;
    std::string text = seek.owner + seek.title + " (" + seek.rating + ") seeking " + std::to_string(terms.minutes) +
                       " " + std::to_string(terms.increment) + " " + ratedText(terms) + " " + kindText(terms);
    if (terms.colour != WantedColour::Any) text += " " + colourText(terms);
    if (terms.manual) text += " m";
    if (terms.formula) text += " f";
    return text + " (\"play " + std::to_string(number) + "\" to respond)";
}

// "  2 1711 Willow(C)          15  10 unrated standard               0-9999 "; clients read this by columns.
std::string soughtRow(int number, const Seek& seek) {
    const Terms& terms = seek.terms;
    return padLeft(number, 3) + " " + seek.rating + " " + padRight(seek.owner + seek.title, 17) + " " +
           padLeft(terms.minutes, 3) + " " + padLeft(terms.increment, 3) + " " + padRight(ratedText(terms), 7) + " " +
           padRight(kindText(terms), 10) + " " + padRight(colourText(terms), 7) + " " + padLeft(terms.lowest, 5) + "-" +
           padRight(std::to_string(terms.highest), 4) + " " + (terms.manual ? "m" : "") + (terms.formula ? "f" : "");
}

// Clients find the end of the list by the words of its last line.
std::string soughtTable(const SeekTable& table) {
    std::string text;
    for (const auto& [number, seek] : table.open) text += soughtRow(number, seek) + "\n";
    const auto count = table.open.size();
    return text + std::to_string(count) + (count == 1 ? " ad" : " ads") + " displayed.";
}

} // namespace practice
