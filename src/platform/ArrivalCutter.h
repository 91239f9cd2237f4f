// Cuts the bytes of the one connection into arrivals.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

// Decides how much of the received bytes goes to the client at once. The arrivals, put together, are exactly the bytes
// that were appended.
//
// What waits is given whole, as one arrival, as soon as it rests, or `PatienceMs` after its last byte. It rests when it
// ends in the learnt prompt at a line's front, or when its last line holds "login:" or "password:". While bytes keep
// coming without a rest, what has waited for `PatienceMs` goes ahead: up to behind the last prompt at a line's front
// or, without one, up to the last whole line. Over `Limit` bytes the same cut is made at once, within the limit.
class ArrivalCutter {
public:
    static constexpr std::size_t Limit = 8192; // bytes
    static constexpr std::int64_t PatienceMs = 30;

    // Takes received bytes; `nowMs` is a steady time in milliseconds, of any origin.
    void append(std::string_view bytes, std::int64_t nowMs);

    // The peer sends no more: nothing waits any longer.
    void finish() { finished_ = true; }

    // The next arrival, 1 to `Limit` bytes; empty if there is none yet. `prompt` is the learnt prompt, empty before it
    // is learnt.
    std::string take(std::string_view prompt, std::int64_t nowMs);

    // Milliseconds, 0 or more, after which to ask `take` again if no byte comes; nothing if nothing waits.
    std::optional<std::int64_t> dueInMs(std::int64_t nowMs) const;

    // How many bytes have been appended and not taken.
    std::size_t waiting() const { return bytes_.size() - start_; }

private:
    // Bytes that came at the same moment.
    struct Came {
        std::size_t bytes;
        std::int64_t ms;
    };

    std::size_t nextCut(std::string_view prompt, std::int64_t nowMs) const;
    std::size_t haveWaited(std::int64_t nowMs) const;
    std::string give(std::size_t count);

    std::string bytes_; // bytes_[0, start_) are taken already
    std::size_t start_ = 0;
    std::deque<Came> came_; // of what waits
    bool finished_ = false;
};
