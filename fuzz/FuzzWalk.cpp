// Fuzzes walking through games: steps, clicks, own moves, odd texts, and a server that shows what it will.
#include "WalkRun.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    WalkRun({reinterpret_cast<const char*>(data), size}).run();
    return 0;
}
