// An input of fuzz_stream: server text, cut by the input itself into segments, each with an event in front of it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The byte 0xFE begins a segment. The byte behind it says what happens before the text of the segment arrives, and the
// byte behind that one is the event's argument. 0xFE 0xFE is a single 0xFE of the text. Text in front of the first
// segment arrives without an event, so every recorded stream is an input as it stands. Some events take the text
// themselves: it is what the user types (see Events.h).
class Tape {
public:
    static constexpr char Mark = '\xFE';

    struct Segment {
        int kind = 0;
        std::uint8_t argument = 0;
        std::string text;

        // The two halves of an argument: which board or box, and which square or choice.
        std::size_t which() const { return argument >> 6U; }
        int choice() const { return argument & 63; }
    };

    explicit Tape(std::string_view bytes) : rest_(bytes) {}

    bool done() const { return rest_.empty(); }

    // Takes the next segment. An argument that the input has no byte for is 0.
    Segment next() {
        Segment segment;
        if (atMark()) {
            segment.kind = static_cast<std::uint8_t>(rest_[1]);
            if (rest_.size() > 2) segment.argument = static_cast<std::uint8_t>(rest_[2]);
            rest_.remove_prefix(rest_.size() > 2 ? 3 : 2);
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
