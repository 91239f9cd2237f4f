// Fuzzes the reader of .def files: from bytes and, the same bytes, from a file.
#include "MemoryFile.h"
#include "Require.h"
#include "settings/DefFile.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace {

void takeAll(DefValues values) {
    float place = 0.5F;
    std::int16_t number = 0;
    std::string text;
    for (std::size_t taken = 0; taken <= values.all().size(); taken += 3) {
        values.take(place);
        values.take(number);
        values.take(text);
        require(place >= -32768 && place <= 32767, "a place is a 16-bit number");
    }
    const std::string last = text;
    values.take(text);
    require(text == last, "behind the last value a field keeps what it had");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const DefValues values(bytes);
    require(values.all().size() <= DefValues::MaxValues, "the number of values has a limit");
    for (const std::string& value : values.all()) {
        require(value.find_first_of("\r\n") == std::string::npos, "a value ends with its line");
        require(bytes.find(value) != bytes.npos, "a value stands in the file as it is read");
    }
    takeAll(values);
    const auto fromFile = readDefFile(MemoryFile(bytes).path());
    require(fromFile && (size > 65536 || fromFile->all() == values.all()), "a file reads as its bytes do");
    return 0;
}
