// Wave files that can be played.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

struct Wave {
    std::uint32_t channels;   // 1 to 8
    std::uint32_t rate;       // frames a second, 1,000 to 192,000
    std::uint32_t bits;       // of a sample: 8 (0 to 255), 16 or 32 (with a sign)
    std::string_view samples; // whole frames, at least one, little-endian
};

// The sound in `file`, all bytes of a file, which has to outlive it. None unless that is a whole wave file:
// uncompressed, with all the samples it announces. Never faults, whatever the bytes are.
std::optional<Wave> readWave(std::string_view file);
