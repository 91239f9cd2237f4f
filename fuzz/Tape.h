// An input of fuzz_stream: server text, cut by the input itself into segments, each with an event in front of it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The byte 0xFE begins a segment; the byte behind it says what happens before the text of the segment arrives. 0xFE
// 0xFE is a single 0xFE of the text. Text in front of the first segment arrives without an event, so every recorded
// stream is an input as it stands.
class Tape {
public:
    static constexpr char Mark = '\xFE';

    // One segment: bits 0 to 4 of `event` say which, bits 5 and 6 on which board.
    struct Segment {
        std::uint8_t event = 0;
        std::string text;

        int kind() const { return event & 31; }
        std::size_t board() const { return event >> 5 & 3U; }
    };

    explicit Tape(std::string_view bytes) : rest_(bytes) {}

    bool done() const { return rest_.empty(); }

    // True when the next segment is to run inside a pump of the message loop: bit 7 of its event.
    bool nextRunsInPump() const { return atMark() && (static_cast<std::uint8_t>(rest_[1]) & 128U) != 0; }

    // Takes the next segment.
    Segment next() {
        Segment segment;
        if (atMark()) {
            segment.event = static_cast<std::uint8_t>(rest_[1]);
            rest_.remove_prefix(2);
        }
        while (!rest_.empty() && !atMark()) {
            segment.text += rest_.front();
            rest_.remove_prefix(rest_.size() > 1 && rest_[0] == Mark ? 2 : 1);
        }
        return segment;
    }

private:
    bool atMark() const { return rest_.size() > 1 && rest_[0] == Mark && rest_[1] != Mark; }

    std::string_view rest_;
};
