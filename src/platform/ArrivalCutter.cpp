// Cuts the bytes of the one connection into arrivals.
#include "platform/ArrivalCutter.h"

#include "common/Text.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::string_view Breaks = "\r\n";

bool isBreak(char c) { return c == '\r' || c == '\n'; }
bool arePartners(char a, char b) { return isBreak(a) && isBreak(b) && a != b; }

bool isResting(std::string_view tail, std::string_view prompt) {
    return (!prompt.empty() && tail == prompt) || contains(tail, "login:") || contains(tail, "password:");
}

// The column behind the last CR or LF of `text`, counted from 0; 0 if there is none.
std::size_t behindLastBreak(std::string_view text) {
    const auto last = text.find_last_of(Breaks);
    return last == text.npos ? 0 : last + 1;
}

// The line breaks that `text` ends with, read as pairs where two partners meet.
struct BreakRun {
    std::size_t begin; // of the first break
    std::size_t last;  // of the last break, `begin` if there is only one
    bool lone;         // the last break is a single character that could still get a partner
};

// `open` is the break without partner that was given in front of `text`, 0 if none.
BreakRun breakRun(std::string_view text, char open) {
    const auto before = text.find_last_not_of(Breaks);
    BreakRun run{before == text.npos ? 0 : before + 1, text.size(), false};
    for (std::size_t at = run.begin; at < text.size();) {
        run.last = at;
        const bool closesOpen = at == 0 && open != 0 && arePartners(open, text[0]);
        const bool pair = !closesOpen && at + 1 < text.size() && arePartners(text[at], text[at + 1]);
        run.lone = !pair && !closesOpen;
        at += pair ? 2 : 1;
    }
    return run;
}

// Where to cut so that the whole lines `lines` go and what follows stays; 0 if they are nothing but line breaks, which
// are not worth an arrival of their own.
std::size_t cutBehind(std::string_view lines, std::string_view prompt, char open) {
    const BreakRun run = breakRun(lines, open);
    if (run.begin == 0) return 0;
    if (run.last > run.begin) return run.last;
    const auto lastLine = lines.substr(0, run.begin).substr(behindLastBreak(lines.substr(0, run.begin)));
    return !prompt.empty() && lastLine == prompt ? run.begin : lines.size();
}

// The cut in whole lines. An empty line at their end, and the line break that ends the prompt's line, are the empty
// line in front of the server's next text, which may be a Style 12 line.
std::size_t cutWholeLines(std::string_view lines, std::string_view prompt, char open) {
    const bool closesOpen = lines.size() == 1 && arePartners(open, lines[0]);
    return prompt.empty() || closesOpen ? lines.size() : cutBehind(lines, prompt, open);
}

// The cut right behind the first prompt that begins a line of `text`, if more follows; 0 without one.
std::size_t cutBehindPrompt(std::string_view text, std::string_view prompt) {
    if (prompt.empty()) return 0;
    auto at = text.find(prompt);
    while (at != text.npos && at > 0 && !isBreak(text[at - 1])) at = text.find(prompt, at + 1);
    return at == text.npos || at + prompt.size() == text.size() ? 0 : at + prompt.size();
}

// The cut in a text longer than one arrival.
std::size_t cutAtLimit(std::string_view text, std::string_view prompt, char open) {
    const auto most = text.substr(0, ArrivalCutter::Limit);
    const bool splitsPair = breakRun(most, open).lone && arePartners(most.back(), text[most.size()]);
    const auto safe = most.substr(0, most.size() - (splitsPair ? 1 : 0));
    const auto cut = cutBehind(safe.substr(0, behindLastBreak(safe)), prompt, open);
    return cut == 0 ? safe.size() : cut;
}

} // namespace

void ArrivalCutter::append(std::string_view bytes, std::int64_t nowMs) {
    if (bytes.empty()) return;
    noticePartners(bytes.front());
    if (start_ > Limit) bytes_.erase(0, std::exchange(start_, 0));
    bytes_.append(bytes);
    lastByteMs_ = nowMs;
}

void ArrivalCutter::noticePartners(char next) {
    if (waiting() == 0) {
        if (arePartners(openBreak_, next)) partnersExpected_ = true;
    } else if (std::exchange(waitsForPartner_, false)) {
        partnersExpected_ = arePartners(bytes_.back(), next);
    }
}

std::string ArrivalCutter::take(std::string_view prompt, std::int64_t nowMs) {
    const bool patient = !finished_ && nowMs - lastByteMs_ < PatienceMs;
    if (!patient && std::exchange(waitsForPartner_, false) && !finished_) partnersExpected_ = false;
    return give(nextCut(prompt, patient));
}

std::size_t ArrivalCutter::nextCut(std::string_view prompt, bool patient) {
    const auto text = rest();
    if (const auto cut = cutBehindPrompt(text.substr(0, Limit), prompt); cut > 0) return cut;
    if (text.size() > Limit) return cutAtLimit(text, prompt, openBreak_);
    if (text.empty() || !patient) return text.size();

    auto kept = text.substr(behindLastBreak(text)); // the unfinished line
    if (kept.empty()) {
        const BreakRun run = breakRun(text, openBreak_);
        if (!run.lone || !partnersExpected_) return cutWholeLines(text, prompt, openBreak_);
        waitsForPartner_ = true;
        const bool emptyLine = run.begin == 0 || run.last > run.begin;
        kept = text.substr(emptyLine ? run.last : behindLastBreak(text.substr(0, run.begin)));
    } else if (isResting(kept, prompt)) {
        return text.size();
    }
    return cutBehind(text.substr(0, text.size() - kept.size()), prompt, openBreak_);
}

std::string ArrivalCutter::give(std::size_t count) {
    if (count == 0) return {};
    std::string arrival(rest().substr(0, count));
    openBreak_ = breakRun(arrival, openBreak_).lone ? arrival.back() : '\0';
    start_ += count;
    if (waiting() == 0) {
        bytes_.clear();
        start_ = 0;
        waitsForPartner_ = false;
    }
    return arrival;
}

std::optional<std::int64_t> ArrivalCutter::dueInMs(std::int64_t nowMs) const {
    if (waiting() == 0) return std::nullopt;
    return std::max<std::int64_t>(0, lastByteMs_ + PatienceMs - nowMs);
}
