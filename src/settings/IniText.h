// The text of a settings file in INI form: read from bytes, changed, and written back.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// One value and where it stands.
struct IniEntry {
    std::string section;
    std::string key;
    std::string text; // one character a byte, any value
};

// The entries of one file in the order in which they first appeared; a key given twice keeps its last text. The form is
// that of QSettings, so either reads what the other wrote. A sample:
//     [Client]
//     Registry_OK=Yes
//     Tell_0="tell fred hi, there"
//     Handle=\x80ab
// Characters 0xA0 to 0xFF stand as UTF-8. Lines that begin with ';' or '#' are comments and are not kept.
class IniText {
public:
    IniText() = default;

    // Reads the bytes of a file. Never faults: a line that is neither section nor value is passed over, a quote that
    // stays open ends with its line, and a byte that is no UTF-8 stands for itself. Nothing in a value is executed or
    // taken for a type: "@Variant(...)" is text.
    explicit IniText(std::string_view bytes);

    // The text under (section, key), null when there is none; good until the next `set`.
    const std::string* find(const std::string& section, const std::string& key) const;

    void set(const std::string& section, const std::string& key, std::string text);

    // The whole as the bytes of a file. What is read from them again equals what stands here.
    std::string bytes() const;

    const std::vector<IniEntry>& entries() const { return entries_; }

private:
    std::vector<IniEntry> entries_;
    std::map<std::pair<std::string, std::string>, std::size_t> places_; // of entries_
};
