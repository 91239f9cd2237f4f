// Reads the server's answers to "history", "journal" and "stored".
#include "records/ListCapture.h"

#include "common/Numbers.h"
#include "common/Text.h"
#include "common/modChess.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

// A text that a row has in this column.
struct Separator {
    long column;
    std::string_view text;
};

struct Cut {
    int field;
    long column;
    long length;
};

// A date, whose year stands further to the right.
struct DateCut {
    long column;
    long yearColumn;
};

struct Format {
    std::size_t shortBelow;
    const char* title;
    std::array<Separator, 4> separators; // empty texts are always there
    std::array<Cut, 9> cuts;             // length 0 for none
    DateCut date;                        // column 0 for none
    bool slotByNumber;                   // field 0 becomes "A" for "01"
};

constexpr long DateLength = 17;
constexpr long YearLength = 2;
constexpr int DateField = 10;

//  5: + 1735 W 1059 cesarCR       [ br  5  12] C53 Res Thu Oct 24, 16:32 EST 2002
constexpr Format History{
    71,
    "History for ",
    {{{3, ": "}, {33, "["}, {44, "]"}}},
    {{{0, 1, 2}, {1, 5, 1}, {2, 12, 1}, {3, 7, 4}, {4, 14, 4}, {6, 19, 13}, {7, 35, 9}, {8, 46, 3}, {9, 50, 3}}},
    {54, 78},
    false};

// %01: tentacle      2291    larsa         2050    [ lr  1   2] D35 Rep 1/2-1/2
constexpr Format Journal{
    73,
    "Journal for ",
    {{{1, "%"}, {4, ": "}, {50, "["}, {61, "]"}}},
    {{{0, 2, 2}, {1, 71, 7}, {3, 20, 4}, {4, 42, 4}, {5, 6, 13}, {6, 28, 13}, {7, 52, 9}, {8, 63, 3}, {9, 67, 3}}},
    {},
    true};

//  1: W TheDane         N [ br  2  12]  0-0  B2   ??? Sun Nov 23,  6:14 CST 1997
constexpr Format Stored{
    71,
    "Stored games for ",
    {{{3, ": "}, {25, "["}, {36, "]"}}},
    {{{0, 1, 2}, {1, 38, 5}, {2, 5, 1}, {4, 21, 3}, {6, 7, 13}, {7, 27, 9}, {8, 49, 3}, {9, 44, 4}}},
    {53, 77},
    false};

bool isRow(const Format& format, std::string_view line) {
    return std::ranges::all_of(format.separators, [line](const Separator& separator) {
        return mid(line, separator.column, static_cast<long>(separator.text.size())) == separator.text;
    });
}

// "A" for "01"; two characters hold no number that is too large.
std::string slotOf(std::string_view number) {
    constexpr int BeforeA = 'A' - 1;
    return {static_cast<char>(BeforeA + toInt16(leadingNumber(number)))};
}

void fillRow(const Format& format, std::string_view line, HistoryRow& row) {
    for (const Cut& cut : format.cuts) {
        if (cut.length != 0) row[cut.field] = mid(line, cut.column, cut.length);
    }
    if (format.slotByNumber) row[0] = slotOf(row[0]);
    if (format.date.column == 0) return;
    const std::string day(mid(line, format.date.column, DateLength));
    row[DateField] = day + " " + std::string(mid(line, format.date.yearColumn, YearLength));
}

bool take(const Format& format, HistoryLists& lists, const std::string& line) {
    if (line.size() < format.shortBelow) {
        if (line == modChess.gPrompt) return true;
        zCheckHistHandle(lists, format.title, line);
    } else if (lists.HistCount <= lists.HistRows.last && isRow(format, line)) {
        fillRow(format, line, lists.HistRows[lists.HistCount]);
        ++lists.HistCount;
    }
    return false;
}

} // namespace

bool zHistoryLines(HistoryLists& lists, const std::string& line) { return take(History, lists, line); }

bool zJournalLines(HistoryLists& lists, const std::string& line) { return take(Journal, lists, line); }

bool zStoredLines(HistoryLists& lists, const std::string& line) { return take(Stored, lists, line); }

void zCheckHistHandle(HistoryLists& lists, const std::string& title, const std::string& line) {
    const long at = find(1, line, title);
    const long colon = find(1, line, ":");
    const long behind = at + static_cast<long>(title.size());
    if (at == 0 || colon <= behind) return;
    lists.HistHandle = mid(line, behind, colon - behind);
    lists.handleRead(title);
}
