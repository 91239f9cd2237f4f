// The older settings files, extension .def.
#include "settings/DefFile.h"

#include "common/Fault.h"
#include "common/Numbers.h"
#include "common/Text.h"

#include <filesystem>
#include <fstream>

namespace {

constexpr std::size_t MaxBytes = 65536;

bool endsValue(char c) { return c == ',' || isBreak(c); }

// Reads the value at `place` and leaves `place` at the character that ended it.
std::string valueAt(std::string_view bytes, std::size_t& place) {
    while (place < bytes.size() && bytes[place] == ' ') ++place;
    std::string quoted;
    const bool hasQuotes = place < bytes.size() && bytes[place] == '"';
    if (hasQuotes) {
        for (++place; place < bytes.size() && bytes[place] != '"' && !isBreak(bytes[place]); ++place) {
            quoted += bytes[place];
        }
    }
    const std::size_t start = place;
    while (place < bytes.size() && !endsValue(bytes[place])) ++place;
    return hasQuotes ? quoted : std::string(trim(bytes.substr(start, place - start)));
}

} // namespace

DefValues::DefValues(std::string_view bytes) {
    std::size_t place = 0;
    while (place < bytes.size() && values_.size() < MaxValues) {
        values_.push_back(valueAt(bytes, place));
        if (bytes.substr(place, 2) == "\r\n") ++place;
        ++place;
    }
}

const std::string* DefValues::next() { return taken_ < values_.size() ? &values_[taken_++] : nullptr; }

std::optional<std::int16_t> DefValues::nextNumber() {
    const std::string* value = next();
    std::optional<std::int16_t> number;
    passOver([&] {
        if (value) number = strictInt16(*value);
    });
    return number;
}

void DefValues::take(float& field) {
    if (const auto number = nextNumber()) field = *number;
}

void DefValues::take(std::int16_t& field) {
    if (const auto number = nextNumber()) field = *number;
}

void DefValues::take(std::string& field) {
    if (const std::string* value = next()) field = *value;
}

std::optional<DefValues> readDefFile(const std::string& path) {
    std::error_code ignored;
    // A pipe or a device of that name would keep the window from opening.
    if (!std::filesystem::is_regular_file(path, ignored)) return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::nullopt;
    std::string bytes(MaxBytes, '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return DefValues(bytes);
}

std::string boardDefFile() {
    std::error_code ignored;
    return (std::filesystem::current_path(ignored) / "peistenam.def").string();
}
