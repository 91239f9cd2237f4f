// Fuzzes the readers of numbers: any text gives a number or a fault that the reader may raise, nothing else.
#include "Require.h"
#include "common/Fault.h"
#include "common/Numbers.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace {

// Runs one strict reader; any fault but the two of the contract ends the run.
template <typename Reader>
void tryStrict(Reader reader) {
    try {
        reader();
    } catch (const Fault& fault) {
        require(fault.kind() == FaultKind::TypeMismatch || fault.kind() == FaultKind::Overflow,
                "a reader of numbers raises the faults of its contract alone");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    require(!std::isnan(leadingNumber(text)), "what is read is a number");
    tryStrict([&] { strictInt16(text); });
    tryStrict([&] { strictInt32(text); });
    tryStrict([&] { strictBool(text); });
    return 0;
}
