// Finds all the phrases that the console tests for in one walk over a line.
#include "session/LinePhrases.h"

#include <array>
#include <bit>

namespace {

constexpr auto PhraseCount = static_cast<std::size_t>(Phrase::Count);

constexpr std::array<std::string_view, PhraseCount> phrases{
    "Challenge:",
    "login:",
    "password:",
    "**** Starting FICS session as",
    "______________________________",
    "backs up",
    "goes forward",
    "} 1-0",
    "} 1/2-1/2",
    "} 0-1",
    "game adjourned} *",
    "from observation list",
    "longer examining",
    "by mutual agreement} *",
    "Game aborted",
    "game aborted",
    "has arrived",
    "has departed",
    "Style 12 set",
    "quillf",
};

// For each byte, the phrases that have it as their first, second and third character. The meeting of three looks leaves
// few candidates, so that an ordinary line costs three loads a character and hardly a comparison.
constexpr std::size_t Depth = 3;
using Fronts = std::array<std::array<std::uint32_t, 256>, Depth>;

constexpr Fronts makeFronts() {
    Fronts fronts{};
    for (std::size_t phrase = 0; phrase < PhraseCount; ++phrase) {
        for (std::size_t depth = 0; depth < Depth; ++depth) {
            fronts[depth][static_cast<unsigned char>(phrases[phrase][depth])] |= 1U << phrase;
        }
    }
    return fronts;
}

constexpr Fronts fronts = makeFronts();

std::uint32_t candidatesAt(const char* place) {
    const auto at = [place](std::size_t depth) { return fronts[depth][static_cast<unsigned char>(place[depth])]; };
    return at(0) & at(1) & at(2);
}

} // namespace

bool PhraseSet::hasAny(Phrase first, Phrase last) const {
    const std::uint32_t below = (1U << static_cast<int>(first)) - 1;
    const std::uint32_t through = (2U << static_cast<int>(last)) - 1;
    return (bits & through & ~below) != 0;
}

PhraseSet phrasesIn(std::string_view line) {
    PhraseSet found;
    for (std::size_t place = 0; place + Depth <= line.size(); ++place) {
        std::uint32_t candidates = candidatesAt(line.data() + place) & ~found.bits;
        for (; candidates != 0; candidates &= candidates - 1) {
            const auto phrase = static_cast<std::size_t>(std::countr_zero(candidates));
            if (line.substr(place).starts_with(phrases[phrase])) found.bits |= 1U << phrase;
        }
    }
    return found;
}
