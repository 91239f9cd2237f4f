// The older settings files, extension .def: import only, nothing writes them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The values of one file, taken one after the other. A sample, with the text values in optional quotes:
//     1200,900,6000
//     7000
//     "C:\Games, mine",C:\Games
// A value ends at a comma or a line end (CR LF, LF or CR); blanks around it do not count. A quote stays open to the
// next quote, or to the end of its line when there is none.
class DefValues {
public:
    // Reads up to `MaxValues` values from the bytes of a file; never faults, whatever the bytes are.
    explicit DefValues(std::string_view bytes);

    static constexpr std::size_t MaxValues = 64; // no file of the family holds more than eleven

    // Takes the next value into `field`. A value that is no signed 16-bit number is passed over, and the field keeps
    // what it had; so it does behind the last value.
    void take(float& field);
    void take(std::int16_t& field);

    // Takes the next value as text; behind the last value the field keeps what it had.
    void take(std::string& field);

    // All values as read, taken or not.
    const std::vector<std::string>& all() const { return values_; }

private:
    const std::string* next();
    std::optional<std::int16_t> nextNumber();

    std::vector<std::string> values_;
    std::size_t taken_ = 0;
};

// The values of the file `path`; nothing when there is no such regular file or it cannot be read. Reads no more than
// its first 64 KiB.
std::optional<DefValues> readDefFile(const std::string& path);

// The name under which "peistenam.def" is opened: with the current directory put before it.
std::string boardDefFile();
