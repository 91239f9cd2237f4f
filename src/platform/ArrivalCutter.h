// Cuts the bytes of the one connection into arrivals.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Decides how much of the received bytes goes to the client at once. The arrivals, put together, are always exactly the
// bytes that were appended: nothing is lost, doubled or put in another order.
//
//   1. An arrival holds 1 to `Limit` bytes.
//   2. An unfinished line waits for its rest, at most `PatienceMs` from its last byte, unless it is a resting tail: the
//      learnt prompt, or text that holds "login:" or "password:".
//   3. A lone LF or CR at the very end may be half of a pair, so its line waits likewise for the other half. Once such
//      a wait was in vain, nothing waits for partners any more until a pair is seen that was cut in two.
//   4. Once a prompt is learnt, an empty line at the very end waits likewise, and so does the line break behind the
//      prompt: they belong to what comes next.
//   5. A prompt that begins a line ends an arrival, and what the server says next is the next one: one message, one
//      arrival, in whatever packets they came.
//   6. Any other cut that leaves bytes behind comes after whole lines. If the last of them is the prompt, the cut comes
//      right behind the prompt, and if it is empty, in front of it: a Style 12 line keeps the empty line before it.
class ArrivalCutter {
public:
    static constexpr std::size_t Limit = 8192; // bytes
    static constexpr std::int64_t PatienceMs = 30;

    // Takes received bytes; `nowMs` is a steady time in milliseconds, of any origin.
    void append(std::string_view bytes, std::int64_t nowMs);

    // The rules' 30 ms begin anew, as if the last byte had just come: for what waits while the client reads nothing.
    void waitOn(std::int64_t nowMs) { lastByteMs_ = nowMs; }

    // The peer sends no more: nothing waits for a rest any longer.
    void finish() { finished_ = true; }

    // The next arrival; empty if there is none yet. `prompt` is the learnt prompt, empty before it is learnt.
    std::string take(std::string_view prompt, std::int64_t nowMs);

    // Milliseconds, 0 or more, after which `take` gives what it keeps back now; nothing if nothing waits.
    std::optional<std::int64_t> dueInMs(std::int64_t nowMs) const;

    // How many bytes have been appended and not taken.
    std::size_t waiting() const { return bytes_.size() - start_; }

private:
    std::string_view rest() const { return std::string_view(bytes_).substr(start_); }
    void noticePartners(char next);
    std::size_t nextCut(std::string_view prompt, bool patient);
    std::string give(std::size_t count);

    std::string bytes_; // bytes_[0, start_) are taken already
    std::size_t start_ = 0;
    std::int64_t lastByteMs_ = 0;
    char openBreak_ = 0;           // the CR or LF without partner that the latest arrival ended with, 0 if none
    bool waitsForPartner_ = false; // a line is kept back for the other half of its line break
    bool partnersExpected_ = true;
    bool finished_ = false;
};
