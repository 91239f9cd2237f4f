// Fuzzes the reading of sound files.
#include "Require.h"
#include "settings/WaveFile.h"

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const auto wave = readWave(bytes);
    if (!wave) return 0;
    require(size > 44, "a file that is played has its heads and a sample");
    require(bytes.find("fmt ") < bytes.rfind("data"), "its format stands before its samples");
    require(readWave(bytes + "tail").has_value(), "what stands behind the samples is not looked at");
    require(!readWave(std::string_view(bytes).substr(0, 44)).has_value(), "without its samples it is not whole");
    require(!wave->samples.empty(), "it has a sound");
    require(wave->samples.size() % (wave->channels * wave->bits / 8) == 0, "its samples are whole frames");
    const auto from = static_cast<std::size_t>(wave->samples.data() - bytes.data());
    require(from >= 44 && from + wave->samples.size() <= bytes.size(), "and they stand in the file");
    return 0;
}
