// Fuzzes the test of which sound files can be played.
#include "Require.h"
#include "settings/WaveFile.h"

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    if (!isPlayableWave(bytes)) return 0;
    require(size > 44, "a file that is played has its heads and a sample");
    require(bytes.find("fmt ") < bytes.rfind("data"), "its format stands before its samples");
    require(isPlayableWave(bytes + "tail"), "what stands behind the samples is not looked at");
    require(!isPlayableWave(std::string_view(bytes).substr(0, 44)), "without its samples it is not whole");
    return 0;
}
