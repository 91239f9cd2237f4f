// Text with columns counted from 1.
#include "common/Text.h"

#include <algorithm>

std::string_view mid(std::string_view text, long start, long length) {
    if (start < 1 || static_cast<std::size_t>(start) > text.size() || length == 0) return {};
    const auto rest = text.substr(static_cast<std::size_t>(start) - 1);
    return length < 0 ? rest : rest.substr(0, static_cast<std::size_t>(length));
}

long find(long from, std::string_view text, std::string_view needle) {
    if (from < 1 || static_cast<std::size_t>(from) > text.size()) return 0;
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
