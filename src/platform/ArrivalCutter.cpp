// Cuts the bytes of the one connection into arrivals.
#include "platform/ArrivalCutter.h"

#include "common/Text.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

// The place behind the last CR or LF of `text`; 0 if there is none.
std::size_t behindLastBreak(std::string_view text) {
    const auto behindLast = [text](char c) -> std::size_t {
        const auto* last = static_cast<const char*>(::memrchr(text.data(), c, text.size()));
        return last ? static_cast<std::size_t>(last - text.data()) + 1 : 0;
    };
    return std::max(behindLast('\r'), behindLast('\n'));
}

// Compares at lines' fronts alone: a server that sends prompts without line ends has each of them go ahead by itself,
// with all that waits to be looked through.
std::size_t behindLastPrompt(std::string_view text, std::string_view prompt) {
    if (prompt.empty()) return 0;
    while (true) {
        const auto front = behindLastBreak(text);
        if (text.substr(front).starts_with(prompt)) return front + prompt.size();
        if (front == 0) return 0;
        text.remove_suffix(text.size() - front + 1);
    }
}

// A line may tell of the prompt: "Lang=English                    Prompt: fics% ". One prompt behind the other is one.
bool endsInPrompt(std::string_view text, std::string_view prompt) {
    if (prompt.empty() || !text.ends_with(prompt)) return false;
    while (text.ends_with(prompt)) text.remove_suffix(prompt.size());
    return text.empty() || isBreak(text.back());
}

bool rests(std::string_view text, std::string_view prompt) {
    if (endsInPrompt(text, prompt)) return true;
    const auto lastLine = text.substr(behindLastBreak(text));
    return contains(lastLine, "login:") || contains(lastLine, "password:");
}

// A line ends in CR, in LF, or in a pair of them in either order.
bool endsInSingleBreak(std::string_view text) {
    std::size_t at = 0;
    while (at + 1 < text.size()) at += areBreakPair(text[at], text[at + 1]) ? std::size_t{2} : std::size_t{1};
    return at < text.size();
}

// The first `count` bytes of a longer text, less the first half of a pair at their end.
std::string_view withWholePairs(std::string_view text, std::size_t count) {
    const auto front = text.substr(0, count);
    const bool cutsPair = count > 0 && areBreakPair(text[count - 1], text[count]) && endsInSingleBreak(front);
    return cutsPair ? front.substr(0, count - 1) : front;
}

std::size_t goesAhead(std::string_view text, std::string_view prompt) {
    const auto cut = behindLastPrompt(text, prompt);
    return cut > 0 ? cut : behindLastBreak(text);
}

} // namespace

void ArrivalCutter::append(std::string_view bytes, std::int64_t nowMs) {
    if (bytes.empty()) return;
    if (came_.empty() || came_.back().ms != nowMs) came_.push_back({0, nowMs});
    came_.back().bytes += bytes.size();
    if (start_ > Limit) bytes_.erase(0, std::exchange(start_, 0));
    bytes_.append(bytes);
}

std::string ArrivalCutter::take(std::string_view prompt, std::int64_t nowMs) {
    const auto count = nextCut(prompt, nowMs);
    return count == 0 ? std::string() : give(count);
}

std::size_t ArrivalCutter::nextCut(std::string_view prompt, std::int64_t nowMs) const {
    const auto text = std::string_view(bytes_).substr(start_);
    if (text.size() > Limit) {
        const auto front = withWholePairs(text, Limit);
        const auto cut = goesAhead(front, prompt);
        return cut > 0 ? cut : front.size();
    }
    const auto waited = haveWaited(nowMs);
    if (finished_ || waited == text.size() || rests(text, prompt)) return text.size();
    return goesAhead(withWholePairs(text, waited), prompt);
}

std::size_t ArrivalCutter::haveWaited(std::int64_t nowMs) const {
    std::size_t count = 0;
    for (const Came& came : came_) {
        if (nowMs - came.ms < PatienceMs) break;
        count += came.bytes;
    }
    return count;
}

std::string ArrivalCutter::give(std::size_t count) {
    std::string arrival = bytes_.substr(start_, count);
    start_ += count;
    for (; count > 0 && count >= came_.front().bytes; came_.pop_front()) count -= came_.front().bytes;
    if (count > 0) came_.front().bytes -= count;
    if (waiting() == 0) {
        bytes_.clear();
        start_ = 0;
    }
    return arrival;
}

std::optional<std::int64_t> ArrivalCutter::dueInMs(std::int64_t nowMs) const {
    if (waiting() == 0) return std::nullopt;
    for (const Came& came : came_) {
        if (came.ms + PatienceMs > nowMs) return came.ms + PatienceMs - nowMs;
    }
    return 0;
}
