// How much of the text that is held for its prompt has to go ahead, since one batch can not hold it all.
#include "session/FullBatch.h"

#include "common/Text.h"
#include "session/ServerLines.h"

#include <algorithm>
#include <vector>

namespace {

constexpr std::size_t LongLine = 1024; // bytes
constexpr std::size_t MostLines = ServerLines::Last + 1;

// The classifier looks one line behind the batch, which must be one of the array.
constexpr std::size_t MostAhead = MostLines - 1;

bool isBreak(char c) { return c == '\r' || c == '\n'; }

// Where the next line begins, read as ServerLines reads it.
std::size_t behindLine(std::string_view text, std::size_t begin) {
    const auto end = text.find_first_of("\r\n", begin);
    if (end == text.npos) return text.size();
    const bool paired = end + 1 < text.size() && isBreak(text[end + 1]) && text[end + 1] != text[end];
    return end + (paired ? 2 : 1);
}

// The beginnings of the lines of `text` up to the first that has no place in a batch, that one included; fewer than
// `MostLines` + 1 if all have.
struct Lines {
    std::vector<std::size_t> begins;
    bool fit = true;

    explicit Lines(std::string_view text) {
        std::size_t count = 0;
        for (std::size_t at = 0; at < text.size();) {
            begins.push_back(at);
            const auto next = behindLine(text, at);
            count += 1 + (next - at - 1) / LongLine;
            fit = count <= MostLines;
            if (!fit) return;
            at = next;
        }
    }
};

bool holdsRecord(std::string_view line) { return contains(line, "<12> "); }

bool mayBeginBatch(std::string_view before, std::string_view first) {
    return !holdsRecord(first) && !holdsRecord(before) && !contains(before, "<b1>");
}

} // namespace

std::size_t frontOfFullBatch(std::string_view text) {
    if (text.size() <= MostLines) return 0;
    const Lines lines(text);
    if (lines.fit) return 0;
    const auto& begins = lines.begins;
    const std::size_t last = std::min(begins.size() - 1, MostAhead);
    for (std::size_t first = last; first > 0; --first) {
        const auto before = text.substr(begins[first - 1], begins[first] - begins[first - 1]);
        const auto line = text.substr(begins[first], behindLine(text, begins[first]) - begins[first]);
        if (mayBeginBatch(before, line)) return begins[first];
    }
    return last == 0 ? text.size() : begins[last];
}
