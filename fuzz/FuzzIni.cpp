// Fuzzes the reader and the writer of the settings file.
#include "Require.h"
#include "settings/IniText.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

namespace {

bool same(const IniText& left, const IniText& right) {
    return std::ranges::all_of(left.entries(), [&](const IniEntry& entry) {
        const std::string* text = right.find(entry.section, entry.key);
        return text != nullptr && *text == entry.text;
    });
}

} // namespace

// The input is read as a file, and as a text that is kept under a key and must come back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    IniText text(bytes);
    const std::string written = text.bytes();
    const IniText again(written);
    require(again.entries().size() == text.entries().size(), "a written file has as many values");
    require(same(text, again), "a written file reads back as it was");
    require(again.bytes() == written, "a file that was read is written as it was");

    text.set("Client", "Password", bytes);
    const IniText kept(text.bytes());
    const std::string* password = kept.find("Client", "Password");
    require(password != nullptr && *password == bytes, "any text can be kept");
    require(same(text, kept), "a value leaves the others as they are");
    return 0;
}
