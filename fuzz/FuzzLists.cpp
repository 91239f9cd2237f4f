// Fuzzes the readers of history, journal and stored games, beside a second writing of them. The first line of the input
// is the learnt prompt; the others are read as lines of an answer, the last one as its unfinished end.
#include "Require.h"
#include "common/modChess.h"
#include "records/ListCapture.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using Reader = bool (*)(HistoryLists& lists, const std::string& line);

// First and last column of each field that a row writes, in the order of the fields.
struct Figures {
    Reader read;
    std::string title;
    std::size_t shortest;                        // row
    std::string_view shape;                      // '.' for any character
    std::vector<std::array<std::size_t, 3>> all; // field, first, last
};

const std::vector<Figures>& lists() {
    static const std::vector<Figures> three{{zHistoryLines,
                                             "History for ",
                                             71,
                                             "..: ............................[..........]",
                                             {{0, 1, 2},
                                              {1, 5, 5},
                                              {2, 12, 12},
                                              {3, 7, 10},
                                              {4, 14, 17},
                                              {6, 19, 31},
                                              {7, 35, 43},
                                              {8, 46, 48},
                                              {9, 50, 52},
                                              {10, 54, 70},
                                              {11, 78, 79}}},
                                            {zJournalLines,
                                             "Journal for ",
                                             73,
                                             "%..: ............................................[..........]",
                                             {{0, 2, 3},
                                              {1, 71, 77},
                                              {3, 20, 23},
                                              {4, 42, 45},
                                              {5, 6, 18},
                                              {6, 28, 40},
                                              {7, 52, 60},
                                              {8, 63, 65},
                                              {9, 67, 69}}},
                                            {zStoredLines,
                                             "Stored games for ",
                                             71,
                                             "..: ....................[..........]",
                                             {{0, 1, 2},
                                              {1, 38, 42},
                                              {2, 5, 5},
                                              {4, 21, 23},
                                              {6, 7, 19},
                                              {7, 27, 35},
                                              {8, 49, 51},
                                              {9, 44, 47},
                                              {10, 53, 69},
                                              {11, 77, 78}}}};
    return three;
}

bool fits(std::string_view shape, const std::string& line) {
    for (std::size_t at = 0; at < shape.size(); ++at) {
        if (shape[at] != '.' && line[at] != shape[at]) return false;
    }
    return true;
}

// A slot's letter is only looked at where its number is two digits: how any text is read as a number has a target.
bool isNumber(const std::string& text) { return text.find_first_not_of("0123456789") == text.npos; }

void checkRow(const Figures& figures, const HistoryRow& row, const std::string& line) {
    std::string day;
    for (const auto& [field, first, last] : figures.all) {
        const std::string text = first > line.size() ? std::string() : line.substr(first - 1, last - first + 1);
        if (field == 0 && figures.read == &zJournalLines) {
            require(row[0].size() == 1, "a slot is a letter");
            if (isNumber(text))
                require(row[0][0] == static_cast<char>(std::atoi(text.c_str()) + 64), "a slot is its number");
        } else if (field == 10) {
            day = text;
        } else if (field == 11) {
            require(row[10] == day + " " + text, "a date has its year behind it");
        } else {
            require(row[static_cast<long>(field)] == text, "a field is cut by its columns");
        }
    }
}

void checkTitle(const std::string& title, const std::string& line, const std::string& before,
                const std::string& after) {
    const auto at = line.find(title);
    const auto colon = line.find(':');
    const bool named = at != line.npos && colon != line.npos && colon > at + title.size();
    require(after == (named ? line.substr(at + title.size(), colon - at - title.size()) : before),
            "the handle stands between the title and the first colon");
}

void read(const Figures& figures, HistoryLists& taken, const std::string& line) {
    const std::int16_t count = taken.HistCount;
    const std::string handle = taken.HistHandle;
    const bool done = figures.read(taken, line);
    const bool isShort = line.size() < figures.shortest;
    require(done == (isShort && line == modChess.gPrompt), "a short line that is the prompt is the end");
    const bool row = !isShort && count < 10 && fits(figures.shape, line);
    require(taken.HistCount == count + (row ? 1 : 0), "a row is counted, and nothing else");
    if (row) checkRow(figures, taken.HistRows[count], line);
    if (isShort && !done) {
        checkTitle(figures.title, line, handle, taken.HistHandle);
    } else {
        require(taken.HistHandle == handle, "only a short line names a player");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::vector<std::string> lines{{}};
    for (const char c : text) {
        if (c == '\n') {
            lines.back() += lines.size() == 1 ? "" : "\r\n";
            lines.emplace_back();
        } else {
            lines.back() += c;
        }
    }
    modChess = {};
    modChess.gPrompt = lines.front();
    for (const Figures& figures : lists()) {
        HistoryLists taken;
        for (std::size_t number = 1; number < lines.size(); ++number) read(figures, taken, lines[number]);
    }
    return 0;
}
