// Text with columns counted from 1.
#include "common/Text.h"

#include <algorithm>

namespace {

// How many bytes behind a UTF-8 lead byte belong to it; 0 for any other byte.
std::size_t followers(unsigned char lead) {
    if (lead < 0xC2 || lead >= 0xF5) return 0;
    if (lead < 0xE0) return 1;
    return lead < 0xF0 ? 2 : 3;
}

} // namespace

std::string_view mid(std::string_view text, long start, long length) {
    if (start < 1 || static_cast<std::size_t>(start) > text.size()) return {};
    const auto rest = text.substr(static_cast<std::size_t>(start) - 1);
    return length < 0 ? rest : rest.substr(0, static_cast<std::size_t>(length));
}

long find(long from, std::string_view text, std::string_view needle) {
    // column 0 becomes a place behind every text
    const auto place = text.find(needle, static_cast<std::size_t>(from) - 1);
    return place == text.npos ? 0 : static_cast<long>(place) + 1;
}

std::string lower(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return result;
}

std::string_view trim(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

char takeUtf8(std::string_view text, std::size_t& place) {
    const auto lead = static_cast<unsigned char>(text[place++]);
    const std::size_t count = followers(lead);
    if (count == 0 || place + count > text.size()) return static_cast<char>(lead);
    for (std::size_t i = 0; i < count; ++i) {
        if ((static_cast<unsigned char>(text[place + i]) & 0xC0U) != 0x80U) return static_cast<char>(lead);
    }
    const auto second = static_cast<unsigned char>(text[place]);
    place += count;
    if (lead > 0xC3) return '?';
    return static_cast<char>(((lead & 3U) << 6U) | (second & 0x3FU));
}

std::string fromUtf8(std::string_view text) {
    std::string characters;
    for (std::size_t place = 0; place < text.size();) characters += takeUtf8(text, place);
    return characters;
}
