// Fuzzes the reader of .def files: from bytes and, the same bytes, from a file.
#include "MemoryFile.h"
#include "Require.h"
#include "common/modChess.h"
#include "settings/DefFile.h"
#include "settings/MemoryStore.h"
#include "settings/WindowSettings.h"

#include <cstddef>
#include <cstdint>
#include <memory>
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

// A window's file has its place in front, and its size where it keeps one.
void checkPlace(const std::string& path, const DefValues& values) {
    const SettingsStore store = memoryStore(std::make_shared<MemoryValues>());
    modChess = {};
    for (const bool sized : {false, true}) {
        DefValues front = values;
        WindowPlace expected{10, 20, 3000, 2000};
        WindowPlace place = expected;
        for (float* field : {&expected.Left, &expected.Top}) front.take(*field);
        if (sized) {
            for (float* field : {&expected.Width, &expected.Height}) front.take(*field);
        }
        require(readWindow(store, {"Any", path.c_str(), sized, 1}, place), "without a written store the file is read");
        require(place == expected, "the values are taken in their order");
    }
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
    const MemoryFile file(bytes);
    const auto fromFile = readDefFile(file.path());
    require(fromFile && (size > 65536 || fromFile->all() == values.all()), "a file reads as its bytes do");
    checkPlace(file.path(), *fromFile);
    return 0;
}
