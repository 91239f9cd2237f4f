// Wave files that can be played. A sample of the layout:
//     "RIFF" size "WAVE"  "fmt " 16 format channels rate bytes/s bytes/frame bits  "data" size samples...
#include "settings/WaveFile.h"

#include "common/Text.h"

#include <cstdint>

namespace {

// The little-endian number of `count` bytes at `place`; 0 behind the end.
std::uint32_t numberAt(std::string_view bytes, std::size_t place, std::size_t count) {
    if (place + count > bytes.size()) return 0;
    std::uint32_t value = 0;
    for (std::size_t i = count; i > 0; --i) value = value << 8U | static_cast<unsigned char>(bytes[place + i - 1]);
    return value;
}

std::optional<Wave> readFormat(std::string_view chunk) {
    const Wave wave{numberAt(chunk, 2, 2), numberAt(chunk, 4, 4), numberAt(chunk, 14, 2), {}};
    if (numberAt(chunk, 0, 2) != 1 || wave.channels < 1 || wave.channels > 8) return std::nullopt;
    if (wave.rate < 1000 || wave.rate > 192000) return std::nullopt;
    if (wave.bits != 8 && wave.bits != 16 && wave.bits != 32) return std::nullopt;
    return wave;
}

} // namespace

std::optional<Wave> readWave(std::string_view file) {
    if (!file.starts_with("RIFF") || mid(file, 9, 4) != "WAVE") return std::nullopt;
    std::optional<Wave> wave;
    std::size_t place = 12;
    while (place + 8 < file.size()) {
        const std::string_view name = file.substr(place, 4);
        const std::size_t size = numberAt(file, place + 4, 4);
        if (name == "data") {
            if (!wave || size > file.size() - place - 8) return std::nullopt;
            wave->samples = file.substr(place + 8, size - size % (wave->channels * wave->bits / 8));
            return wave->samples.empty() ? std::nullopt : wave;
        }
        if (name == "fmt ") wave = readFormat(file.substr(place + 8, size));
        place += 8 + size + size % 2;
    }
    return std::nullopt;
}
