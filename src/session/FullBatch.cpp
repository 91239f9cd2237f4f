// What one batch can hold, and how much goes ahead of text that is held for its prompt and has become too much.
#include "session/FullBatch.h"

#include "common/Text.h"

#include <algorithm>
#include <vector>

namespace {

// Where the next line begins, read as ServerLines reads it.
std::size_t behindLine(std::string_view text, std::size_t begin) {
    const auto end = text.find_first_of("\r\n", begin);
    if (end == text.npos) return text.size();
    const bool paired = end + 1 < text.size() && areBreakPair(text[end], text[end + 1]);
    return end + (paired ? 2 : 1);
}

bool holdsRecord(std::string_view line) { return contains(line, "<12> "); }

bool mayBeginBatch(std::string_view before, std::string_view first) {
    return !holdsRecord(first) && !holdsRecord(before) && !contains(before, "<b1>");
}

// Where the lines behind the first begin that one batch can leave to the next; the last one's end if all may go.
std::vector<std::size_t> lineBegins(std::string_view text) {
    const std::size_t reach = std::min(text.size(), MostHeldBytes);
    std::vector<std::size_t> begins{0};
    // One less than a batch holds: the classifier looks one line behind it.
    while (begins.size() <= ServerLines::Last) {
        const std::size_t next = behindLine(text, begins.back());
        if (next > reach || next == begins.back()) break;
        begins.push_back(next);
    }
    return begins;
}

// Leaves the two halves of a line ending together.
std::size_t withinLine(std::string_view text) {
    return isBreak(text[MostHeldBytes - 1]) ? MostHeldBytes - 1 : MostHeldBytes;
}

} // namespace

void LineCount::add(std::string_view piece) {
    bytes_ += piece.size();
    for (const char c : piece) {
        const bool partner = areBreakPair(single_, c);
        if (isBreak(c) && !partner) ++ended_;
        single_ = isBreak(c) && !partner ? c : '\0';
        tail_ = !isBreak(c);
    }
}

std::size_t frontOfFullBatch(std::string_view text) {
    const std::vector<std::size_t> begins = lineBegins(text);
    for (std::size_t first = begins.size() - 1; first > 0; --first) {
        const auto before = text.substr(begins[first - 1], begins[first] - begins[first - 1]);
        const auto line = text.substr(begins[first], behindLine(text, begins[first]) - begins[first]);
        if (mayBeginBatch(before, line)) return begins[first];
    }
    return begins.size() > 1 ? begins.back() : withinLine(text);
}
