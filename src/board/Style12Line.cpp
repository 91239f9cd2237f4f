// Cuts a Style 12 line of the server into tokens and fills a record from them.
#include "board/Style12Line.h"

#include "common/Fault.h"
#include "common/Numbers.h"

#include <cstring>

namespace {

// Most tokens are one to four plain digits: read without the general conversion. False for all other text.
bool plainNumber(std::string_view token, std::int16_t& value) {
    const bool negative = !token.empty() && token.front() == '-';
    if (negative) token.remove_prefix(1);
    if (token.empty() || token.size() > 4) return false;
    int number = 0;
    for (const char c : token) {
        if (c < '0' || c > '9') return false;
        number = number * 10 + (c - '0');
    }
    value = static_cast<std::int16_t>(negative ? -number : number);
    return true;
}

std::int16_t wholeNumber(std::string_view token) {
    std::int16_t value = 0;
    return plainNumber(token, value) ? value : strictInt16(token);
}

bool truth(std::string_view token) {
    std::int16_t value = 0;
    return plainNumber(token, value) ? value != 0 : strictBool(token);
}

std::int16_t clockSeconds(std::string_view token) {
    std::int16_t value = 0;
    return plainNumber(token, value) ? value : toInt16(leadingNumber(token));
}

// The line ends in CR LF behind the flip, so a strict reading would refuse every such line.
bool flipFlag(std::string_view token) { return leadingNumber(token) != 0; }

// The ranks stand from rank 8 down to rank 1; the record begins with rank 1.
void joinRanks(const Style12Tokens& tokens, std::string& position) {
    position.clear();
    for (long rank = 8; rank >= 1; --rank) position.append(tokens[rank]);
}

// One statement a field, each handed to `field`, which decides what a fault in it does.
template <typename Field>
void takeAll(const Style12Tokens& t, Style12Record& r, Field field) {
    field([&] { r.DoublePushFile = wholeNumber(t[10]); });
    field([&] { r.WhiteShort = truth(t[11]); });
    field([&] { r.WhiteLong = truth(t[12]); });
    field([&] { r.BlackShort = truth(t[13]); });
    field([&] { r.BlackLong = truth(t[14]); });
    field([&] { r.Irreversible = wholeNumber(t[15]); });
    field([&] { r.GameNumber = wholeNumber(t[16]); });
    r.WhiteName = t[17];
    r.BlackName = t[18];
    field([&] { r.Relation = wholeNumber(t[19]); });
    field([&] { r.InitialTime = wholeNumber(t[20]); });
    field([&] { r.Increment = wholeNumber(t[21]); });
    field([&] { r.WhiteStrength = wholeNumber(t[22]); });
    field([&] { r.BlackStrength = wholeNumber(t[23]); });
    field([&] { r.WhiteClock = clockSeconds(t[24]); });
    field([&] { r.BlackClock = clockSeconds(t[25]); });
    field([&] { r.MoveNumber = wholeNumber(t[26]); });
    r.VerboseMove = t[27];
    r.MoveTime = t[28];
    r.PrettyMove = t[29];
}

template <typename Field>
void take(const Style12Tokens& tokens, Style12Fields fields, Style12Record& record, Field field) {
    joinRanks(tokens, record.Position);
    record.SideToMove = tokens[9] == "W" ? 0 : 1;
    if (fields == Style12Fields::All) takeAll(tokens, record, field);
    record.Flip = flipFlag(tokens[30]);
}

} // namespace

std::optional<Style12Tokens> cutStyle12(std::string_view line, LineEnd end) {
    const auto start = line.find("<12> ");
    if (start == line.npos) return std::nullopt;
    std::optional<Style12Tokens> tokens(std::in_place);
    const char* at = line.data() + start;
    const char* const stop = line.data() + line.size();
    for (long n = 0; n <= Style12Tokens::last; ++n) {
        const auto rest = static_cast<std::size_t>(stop - at);
        const auto* blank = static_cast<const char*>(std::memchr(at, ' ', rest));
        if (!blank) {
            if (end == LineEnd::BlankNeeded || n < Style12Tokens::last) return std::nullopt;
            (*tokens)[n] = {at, rest};
            break;
        }
        (*tokens)[n] = {at, static_cast<std::size_t>(blank - at)};
        at = blank + 1;
    }
    return tokens;
}

void readStyle12(const Style12Tokens& tokens, Style12Fields fields, Style12Record& record) {
    take(tokens, fields, record, [](auto&& statement) { statement(); });
}

void readStyle12PassingOver(const Style12Tokens& tokens, Style12Fields fields, Style12Record& record) {
    take(tokens, fields, record, [](auto&& statement) { passOver(statement); });
}
