// The pieces in hand of a bughouse or crazyhouse game.
#include "board/Holdings.h"

#include "common/Numbers.h"

namespace {

constexpr std::string_view HeldPieces = "qrbnpQRBNP";

std::size_t kindOf(char letter) {
    const auto place = HeldPieces.find(letter);
    return place == HeldPieces.npos ? place : place % 5;
}

// `text` begins with "[" or is empty.
void count(std::string_view text, long side, HoldingCounts& counts) {
    for (std::size_t place = 1; place < text.size(); ++place) {
        const auto kind = kindOf(text[place]);
        if (kind == HeldPieces.npos) return;
        std::int16_t& held = counts[static_cast<long>(kind)][side];
        held = toInt16(held + 1);
    }
}

// From "[" to "]"; without a "]" to the end of the line's text.
std::string_view bracket(std::string_view text) {
    const auto close = text.find(']');
    return close == text.npos ? text.substr(0, text.find_first_of("\r\n")) : text.substr(0, close + 1);
}

std::string_view from(std::string_view text, std::size_t place) {
    return place == text.npos ? std::string_view() : text.substr(place);
}

} // namespace

HoldingsLine readHoldings(std::string_view line) {
    const auto first = from(line, line.find('['));
    const auto second = from(first, first.find('[', 1));
    HoldingsLine holdings;
    count(first, 0, holdings.counts);
    count(second, 1, holdings.counts);
    holdings.whiteText = bracket(first);
    holdings.blackText = bracket(second);
    return holdings;
}
