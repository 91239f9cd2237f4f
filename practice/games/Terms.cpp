// The terms of a game: times, rating mode, colour and kind, as offers ask for them and texts tell them.
#include "practice/games/Terms.h"

#include "practice/chess/GameClock.h"
#include "practice/chess/Variants.h"
#include "practice/text/Text.h"

namespace practice {

namespace {

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

std::string timesComplaint() {
    return "Times go from 0 to " + std::to_string(mostMinutes) + " minutes and from 0 to " +
           std::to_string(mostIncrement) + " seconds a move.";
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

TermsReading readTerms(const std::vector<std::string>& arguments, const Terms& standard) {
    TermsReading result{standard, {}};
    std::vector<int> times;
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const std::string& word = arguments[at];
        const auto value = number(word);
        const VariantReading kind = readVariant(arguments, at);
        if (value && times.size() < 2) {
            if (*value > (times.empty() ? mostMinutes : mostIncrement)) return {standard, timesComplaint()};
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

std::string ratedText(const Terms& terms) { return terms.rated ? "rated" : "unrated"; }

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

} // namespace practice
