// Fuzzes the rules of moves and the making of moves: any position, any two squares, moves taken back again.
#include "RulesRun.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    RulesRun({reinterpret_cast<const char*>(data), size}).run();
    return 0;
}
