// Reads the server's answer to "moves" and "smoves": one game, line by line, into a record.
#include "records/MoveListCapture.h"

#include "common/Numbers.h"
#include "common/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>

namespace {

// Columns of a move line: "  1.  Nf3     (0:00)     Nf6     (0:00)". Where times are longer, Black's move stands
// further right than it is looked for, and comes out cut.
constexpr long NumberWidth = 3;
constexpr long PointColumn = 4;
constexpr long WhiteColumn = 7;
constexpr long BlackColumn = 26;
constexpr long MoveWidth = 6;

constexpr std::size_t ShortestLine = 20; // of those that are looked at, with CR LF
constexpr std::size_t BothMoves = 39;    // a shorter line has White's move alone

constexpr std::string_view EveryonesSite = "FICS, Fremont, California USA"; // whatever server it is

// The characters from column `first` up to column `last`.
std::string_view columns(std::string_view line, long first, long last) {
    return mid(line, first, std::max(last - first + 1, 0L));
}

// A pair of brackets, by their columns; 0 for one that is not there.
struct Brackets {
    long open;
    long close;

    bool found() const { return close != 0; }
    std::string_view inside(std::string_view line) const { return columns(line, open + 1, close - 1); }
    std::string_view whole(std::string_view line) const { return columns(line, open, close); }
};

Brackets bracketsFrom(long column, std::string_view line) {
    const long open = find(column, line, "(");
    return {open, find(open, line, ")")};
}

void takeMoves(std::string_view line, GameRecord& record) {
    const long number = toInt16(leadingNumber(mid(line, 1, NumberWidth)));
    record.WhiteMoves[number] = trim(mid(line, WhiteColumn, MoveWidth));
    const Brackets white = bracketsFrom(1, line);
    if (!white.found()) return;
    record.WhiteTimes[number] = white.whole(line);
    if (line.size() < BothMoves) {
        record.BlackMoves[number].clear();
        record.BlackTimes[number].clear();
        record.LastMove = static_cast<float>(number) - 0.5F;
        return;
    }
    record.BlackMoves[number] = trim(mid(line, BlackColumn, MoveWidth));
    const Brackets black = bracketsFrom(white.close, line);
    if (!black.found()) return;
    record.BlackTimes[number] = black.whole(line);
    record.LastMove = static_cast<float>(number);
}

std::string monthNumber(std::string_view name) {
    static constexpr std::array<std::string_view, 12> Names{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const auto place = std::find(Names.begin(), Names.end(), name);
    const auto number = place == Names.end() ? 0 : place - Names.begin() + 1;
    return (number < 10 ? "0" : "") + std::to_string(number);
}

// "Thu Oct 14 2010" to "2010.10.14".
std::string dateFrom(std::string_view text) {
    const std::string day = std::to_string(toInt16(leadingNumber(mid(text, 9, 2))));
    return std::string(text.substr(text.size() - 4)) + "." + monthNumber(mid(text, 5, 3)) + "." +
           (day.size() == 1 ? "0" : "") + day;
}

// "Thu Oct 14, 20:36 PDT 2010" from column `start` on. The year is looked for behind the hour, whose minutes may be 20.
void takeDate(std::string_view line, long start, GameRecord& record) {
    constexpr std::size_t DayOnly = 9; // longer ones have a day of two digits, or a year
    const long comma = find(start, line, ",");
    if (comma != 0) {
        record.DateText = columns(line, start, comma - 1);
        const long colon = find(comma + 2, line, ":");
        if (colon != 0) {
            const long year = find(colon + 2, line, "20");
            if (year != 0) record.DateText.append(" ").append(mid(line, year, 4));
            record.Time = trim(mid(line, colon - 2, 5));
        }
    }
    if (record.DateText.size() > DayOnly) record.Date = dateFrom(record.DateText);
}

// "Ajido (2281) vs. IMgooeyjim (2068) --- Thu Oct 14, 20:36 PDT 2010"
void takeHeader(std::string_view line, GameRecord& record) {
    record.Site = EveryonesSite;
    record.Header = line;
    const long open = find(1, line, "(");
    if (open < 3) return;
    record.White = columns(line, 1, open - 2);
    const Brackets white = bracketsFrom(open, line);
    if (!white.found()) return;
    record.WhiteElo = toInt16(leadingNumber(white.inside(line)));
    const long versus = find(white.close, line, "vs.");
    const Brackets black = bracketsFrom(versus, line);
    if (black.open == 0) return;
    record.Black = columns(line, versus + 4, black.open - 2);
    if (!black.found()) return;
    record.BlackElo = toInt16(leadingNumber(black.inside(line)));
    constexpr std::string_view Dashes = " --- ";
    const long dashes = find(black.close, line, Dashes);
    if (dashes != 0) takeDate(line, dashes + static_cast<long>(Dashes.size()), record);
}

// "5", and a fraction only where there is one. Whole numbers have all their digits, and only what takes more than
// thirty has an exponent.
std::string numberText(double number) {
    std::array<char, 32> buffer{};
    char* const end = buffer.data() + buffer.size();
    number += 0.0; // no "-0"
    auto written = std::to_chars(buffer.data(), end, number, std::chars_format::fixed);
    if (written.ec != std::errc{}) written = std::to_chars(buffer.data(), end, number);
    return {buffer.data(), written.ptr};
}

// The column behind `words`; 0 if they are not there.
long behind(std::string_view line, std::string_view words) {
    const long place = find(1, line, words);
    return place == 0 ? 0 : place + static_cast<long>(words.size());
}

// "Rated blitz match, initial time: 5 minutes, increment: 0 seconds."
void takeMatch(std::string_view line, GameRecord& record) {
    record.MatchLine = line;
    record.Event = line.substr(0, line.find(','));
    const long minutes = behind(line, "initial time: ");
    const long comma = find(minutes, line, ",");
    if (comma == 0) return;
    record.TimeControl = numberText(leadingNumber(columns(line, minutes, comma - 1)));
    const long seconds = behind(line, "increment: ");
    if (find(seconds, line, "seconds") == 0) return;
    record.TimeControl += "+" + numberText(leadingNumber(mid(line, seconds)));
}

// "      {White resigns} 1-0"
bool isResult(std::string_view line) { return line.starts_with("      ") && contains(line, "} "); }

} // namespace

MovesLine zMovesLines(std::string_view line, GameRecord& record) {
    if (line == "\r\n") return {.taken = true};
    if (line.size() < ShortestLine) return {};
    if (mid(line, PointColumn, 3) == ".  ") {
        takeMoves(line, record);
    } else if (contains(line, ") vs. ")) {
        takeHeader(line, record);
    } else if (contains(line, "match, initial")) {
        takeMatch(line, record);
    } else if (isResult(line)) {
        record.ResultLine = line;
        return {.taken = true, .done = true};
    } else {
        return {.taken = line.starts_with("Move  ") || line.starts_with("----  ")};
    }
    return {.taken = true};
}
