// Which files are wave files that can be played. A sample of the layout:
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

bool isPlayableFormat(std::string_view chunk) {
    const auto channels = numberAt(chunk, 2, 2);
    const auto rate = numberAt(chunk, 4, 4);
    const auto bits = numberAt(chunk, 14, 2);
    return numberAt(chunk, 0, 2) == 1 && channels >= 1 && channels <= 8 && rate >= 1000 && rate <= 192000 &&
           (bits == 8 || bits == 16 || bits == 32);
}

} // namespace

bool isPlayableWave(std::string_view file) {
    if (!file.starts_with("RIFF") || mid(file, 9, 4) != "WAVE") return false;
    bool known = false;
    std::size_t place = 12;
    while (place + 8 < file.size()) {
        const std::string_view name = file.substr(place, 4);
        const std::size_t size = numberAt(file, place + 4, 4);
        if (name == "data") return known && size > 0 && size <= file.size() - place - 8;
        if (name == "fmt ") known = isPlayableFormat(file.substr(place + 8, size));
        place += 8 + size + size % 2;
    }
    return false;
}
