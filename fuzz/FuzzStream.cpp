// Fuzzes the road of the server's text: arrivals, batches, lines, boards and the console, with events in between.
#include "StreamRig.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    StreamRig({reinterpret_cast<const char*>(data), size}).run();
    return 0;
}
