// Recognises tells of every kind and who sent them.
#include "session/TellLine.h"

#include "common/Numbers.h"
#include "common/Text.h"
#include "common/modChess.h"

#include <algorithm>

namespace {

// The stream glues prompts to the front of a line: "fics% fics% Bob shouts: hi".
std::string_view behindPrompts(std::string_view line) {
    if (modChess.gPrompt.empty()) return line;
    long place = 1;
    for (int prompts = 0; prompts < 10; ++prompts) {
        const long found = find(place, line, modChess.gPrompt);
        if (found == 0) break;
        place = found + static_cast<long>(modChess.gPrompt.size());
    }
    return static_cast<long>(line.size()) > place ? mid(line, place) : line;
}

// `word` is the first word, without the blank: "Bob(TM)(50):". A title such as "(C):" stands where a channel number
// would and counts as channel 0.
Tell channelTell(std::string_view word) {
    const auto close = word.find("):");
    if (close == word.npos) return {};
    const auto first = close - std::min<std::size_t>(close, 4);
    const auto open = word.substr(first, close - first).rfind('(');
    if (open == word.npos) return {};
    const auto digits = word.substr(first + open + 1, close - first - open - 1);
    if (digits.empty()) return {};
    return {toInt16(ChannelTell + leadingNumber(digits)), word.substr(0, first + open)};
}

} // namespace

Tell tellOf(std::string_view line) {
    const std::string_view s = behindPrompts(line);
    const long blank = find(1, s, " ");
    if (blank == 0) return {};
    const long n = blank + 1;
    if (zNextChars(s, n, "tells you:")) return {PersonalTell, {}};
    if (zNextChars(s, n, "would like to")) return {WouldLikeTo, {}};
    if (zNextChars(s, n, "says:")) return {Says, {}};
    if (zNextChars(s, n, "offers you a draw")) return {DrawOffer, {}};
    if (zNextChars(s, n, "shouts:")) return {Shout, {}};
    return channelTell(mid(s, 1, blank - 1));
}

std::int16_t zTellLine(std::string_view line) {
    const Tell tell = tellOf(line);
    if (tell.channelSender) modChess.ChannelSender.assign(*tell.channelSender);
    return tell.type;
}

std::string zGetTell(std::string& line) {
    const auto front =
        std::ranges::find_if(line, [](char c) { return static_cast<unsigned char>(c) >= 33; }) - line.begin();
    line.erase(0, static_cast<std::size_t>(front));
    const std::string& current = modChess.TellTarget;
    if (current.ends_with(')')) return current.substr(0, current.size() - std::min<std::size_t>(current.size(), 3));
    const auto blank = line.find(' ');
    if (blank == line.npos) return current;
    return line.substr(0, std::min(blank, line.find('(')));
}

bool zNextChars(std::string_view line, long position, std::string_view needle) {
    return mid(line, position, static_cast<long>(needle.size())) == needle;
}
