// The text of a settings file in INI form.
#include "settings/IniText.h"

#include "common/Text.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace {

// The letter behind a backslash and the character it stands for.
constexpr std::array<std::pair<char, char>, 7> Escapes{
    {{'a', '\a'}, {'b', '\b'}, {'f', '\f'}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'}, {'v', '\v'}}};

bool isHexDigit(char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; }

unsigned hexDigit(char c) {
    if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
    return static_cast<unsigned>((c | 0x20) - 'a') + 10;
}

std::string hexText(unsigned char c) {
    constexpr std::string_view Digits = "0123456789abcdef";
    return c < 16 ? std::string(1, Digits[c]) : std::string{Digits[c >> 4U], Digits[c & 15U]};
}

// Takes the hexadecimal digits at `place`, as many as there are.
char takeHex(std::string_view text, std::size_t& place) {
    unsigned value = 0;
    while (place < text.size() && isHexDigit(text[place])) {
        value = value > 0xFF ? value : value * 16 + hexDigit(text[place]);
        ++place;
    }
    return value > 0xFF ? '?' : static_cast<char>(value);
}

// Takes what follows a backslash. One that begins no escape stands for itself, as in a path typed by hand.
std::string takeEscape(std::string_view text, std::size_t& place) {
    if (place >= text.size()) return "\\";
    const char letter = text[place++];
    for (const auto& [name, character] : Escapes) {
        if (letter == name) return std::string(1, character);
    }
    if (letter == '\\' || letter == '"') return std::string(1, letter);
    if (letter == '0') return std::string(1, '\0');
    if (letter == 'x') return std::string(1, takeHex(text, place));
    return {'\\', letter};
}

// The text that the right side of a line stands for.
std::string readValue(std::string_view raw) {
    raw = trim(raw);
    std::string text;
    std::size_t place = 0;
    while (place < raw.size()) {
        if (raw[place] == '"') {
            ++place; // quotes only keep what is between them from being split or trimmed
        } else if (raw[place] == '\\') {
            text += takeEscape(raw, ++place);
        } else {
            text += takeUtf8(raw, place);
        }
    }
    if (text.starts_with("@@")) text.erase(0, 1);
    return text;
}

std::string writeValue(std::string_view text) {
    std::string result = text.starts_with('@') ? "@" : "";
    bool afterHex = false;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        // A digit behind a hexadecimal escape would be read as part of it.
        const bool hex = byte < 0x20 || (byte >= 0x7F && byte < 0xA0) || (afterHex && isHexDigit(c));
        if (hex) {
            result += "\\x" + hexText(byte);
        } else if (byte >= 0xA0) {
            result += static_cast<char>(0xC0U | (byte >> 6U));
            result += static_cast<char>(0x80U | (byte & 0x3FU));
        } else {
            if (c == '"' || c == '\\') result += '\\';
            result += c;
        }
        afterHex = hex;
    }
    const bool outerBlank = text.starts_with(' ') || text.ends_with(' ');
    return outerBlank || text.find_first_of(";,=\"") != text.npos ? '"' + result + '"' : result;
}

// What stands as it is in the names of sections and keys; all else stands as "%" and two digits.
constexpr std::string_view PlainInNames = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_-.";

std::string writeName(std::string_view name) {
    std::string result;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (PlainInNames.find(c) != PlainInNames.npos) {
            result += c;
        } else {
            result += byte < 16 ? "%0" + hexText(byte) : "%" + hexText(byte);
        }
    }
    return result;
}

std::string readName(std::string_view raw) {
    std::string name;
    for (std::size_t place = 0; place < raw.size(); ++place) {
        if (raw[place] == '%' && place + 2 < raw.size() && isHexDigit(raw[place + 1]) && isHexDigit(raw[place + 2])) {
            name += static_cast<char>(hexDigit(raw[place + 1]) * 16 + hexDigit(raw[place + 2]));
            place += 2;
        } else {
            name += raw[place];
        }
    }
    return name;
}

} // namespace

IniText::IniText(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    std::string section;
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find_first_of("\r\n"), bytes.size());
        const std::string_view line = trim(bytes.substr(0, end));
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
        if (line.empty() || line.front() == ';' || line.front() == '#') continue;
        if (line.front() == '[') {
            section = readName(trim(line.substr(1, line.find(']') - 1)));
        } else if (const std::size_t equals = line.find('='); equals != line.npos) {
            set(section, readName(trim(line.substr(0, equals))), readValue(line.substr(equals + 1)));
        }
    }
}

const std::string* IniText::find(const std::string& section, const std::string& key) const {
    const auto found = places_.find({section, key});
    return found == places_.end() ? nullptr : &entries_[found->second].text;
}

void IniText::set(const std::string& section, const std::string& key, std::string text) {
    const auto [place, isNew] = places_.try_emplace({section, key}, entries_.size());
    if (isNew) {
        entries_.push_back({section, key, std::move(text)});
    } else {
        entries_[place->second].text = std::move(text);
    }
}

std::string IniText::bytes() const {
    std::vector<std::pair<std::string, std::string>> sections; // name and lines, in order of appearance
    std::map<std::string, std::size_t> placeOf;
    for (const IniEntry& entry : entries_) {
        const auto [place, isNew] = placeOf.try_emplace(entry.section, sections.size());
        if (isNew) sections.emplace_back(entry.section, "");
        sections[place->second].second += writeName(entry.key) + '=' + writeValue(entry.text) + '\n';
    }
    std::string result;
    // Values without a section can stand only at the front.
    if (const auto bare = placeOf.find(""); bare != placeOf.end()) result += sections[bare->second].second;
    for (const auto& [name, lines] : sections) {
        if (name.empty()) continue;
        if (!result.empty()) result += '\n';
        result += '[' + writeName(name) + "]\n" + lines;
    }
    return result;
}
