// The socket of a run: its state, and the way of received bytes to the text of arrivals.
#include "RigSocket.h"

#include "Require.h"
#include "TelnetModel.h"

#include <utility>

void RigSocket::connect(std::int64_t now) {
    close();
    state_ = Connected;
    lastByte_ = now;
    begin_ = text_.size();
    quiet_.insert(begin_);
}

void RigSocket::close() {
    state_ = Closed;
    unread_.clear();
    bytes_.clear();
    telnet_ = {};
    cutter_ = {};
    given_ -= arrival_.size();
    arrival_.clear();
    text_.resize(given_);
    quiet_.erase(quiet_.upper_bound(given_), quiet_.end());
    begin_ = given_;
}

void RigSocket::endReceiving(std::int16_t state, std::int64_t now) {
    state_ = state;
    const std::string rest = std::exchange(unread_, {});
    bytes_ += rest;
    append(telnet_.filter(rest), now);
    append(telnet_.finish(), now);
    checkText(true);
    cutter_.finish();
}

bool RigSocket::deliver(std::string_view prompt, std::int64_t now) {
    pull(now);
    require(arrival_.empty(), "an arrival is taken before the next one is told");
    arrival_ = cutter_.take(prompt, now);
    require(arrival_.size() <= ArrivalCutter::Limit, "an arrival holds no more than the limit");
    require(text_.compare(given_, arrival_.size(), arrival_) == 0, "the arrivals put together are the text that came");
    given_ += arrival_.size();
    require(given_ + cutter_.waiting() == text_.size(), "no byte is lost or doubled");
    if (arrival_.empty()) return false;
    lastArrival_ = arrival_;
    return true;
}

std::string RigSocket::GetData() { return std::exchange(arrival_, {}); }

std::optional<std::int64_t> RigSocket::due(std::int64_t now) const {
    const auto wait = cutter_.dueInMs(now);
    if (!wait) return std::nullopt;
    require(*wait >= 0 && *wait <= ArrivalCutter::PatienceMs, "text waits as long as a line is waited for");
    return now + *wait;
}

// What is left in the buffer makes the server wait.
void RigSocket::pull(std::int64_t now) {
    constexpr std::size_t AtOnce = 16384;
    const bool any = !unread_.empty();
    while (!unread_.empty() && cutter_.waiting() <= ArrivalCutter::Limit) {
        const std::string read = unread_.substr(0, AtOnce);
        unread_.erase(0, read.size());
        bytes_ += read;
        append(telnet_.filter(read), now);
    }
    if (any) checkText(false);
}

void RigSocket::append(const std::string& text, std::int64_t now) {
    cutter_.append(text, now);
    if (text.empty()) return; // of a telnet command nothing is left
    if (now - lastByte_ >= ArrivalCutter::PatienceMs) quiet_.insert(text_.size());
    lastByte_ = now;
    text_ += text;
}

void RigSocket::checkText(bool finished) const {
    require(text_.compare(begin_, std::string::npos, textWithoutTelnet(bytes_, finished)) == 0,
            "telnet commands are taken out, and nothing else is");
}
