// Small text helpers of the practice server: cutting, padding and numbers.
#include "practice/text/Text.h"

#include <algorithm>
#include <charconv>

namespace practice {

namespace {

constexpr std::string_view blanks = " \t\r\n";

} // namespace

// By hand and not by the library, whose answer for bytes above 127 depends on the locale.
char lowerOf(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

char upperOf(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

std::string lower(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lowerOf);
    return result;
}

std::string trim(std::string_view text) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

std::vector<std::string> words(std::string_view text) {
    std::vector<std::string> result;
    std::size_t at = text.find_first_not_of(blanks);
    while (at != std::string_view::npos) {
        const std::size_t end = std::min(text.find_first_of(blanks, at), text.size());
        result.emplace_back(text.substr(at, end - at));
        at = text.find_first_not_of(blanks, end);
    }
    return result;
}

bool startsWith(std::string_view text, std::string_view head) {
    return text.size() >= head.size() && lower(text.substr(0, head.size())) == lower(head);
}

// The limit keeps sums of two numbers far from overflow.
std::optional<int> number(std::string_view text) {
    int value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc{} || stop != end || value < 0 || value > 999'999) return std::nullopt;
    return value;
}

std::string padLeft(std::string_view text, std::size_t width) {
    return std::string(width > text.size() ? width - text.size() : 0, ' ').append(text);
}

std::string padLeft(int value, std::size_t width) { return padLeft(std::to_string(value), width); }

std::string padRight(std::string_view text, std::size_t width) {
    return std::string(text).append(width > text.size() ? width - text.size() : 0, ' ');
}

std::string counted(int count, std::string_view word, std::size_t width) {
    return padLeft(count, width) + " " + std::string(word) + (count == 1 ? "" : "s");
}

std::string wrapped(const std::string& text, std::size_t width) {
    std::string result;
    std::string rest = text;
    while (rest.size() > width) {
        const std::size_t blank = rest[width] == ' ' ? width : rest.rfind(' ', width - 1) + 1;
        // A blank inside the indent of a further line is no place to cut: the loop would never end.
        const std::size_t cut = blank <= 5 ? width : blank;
        result += rest.substr(0, cut) + "\n";
        rest = "\\   " + rest.substr(cut);
    }
    return result + rest;
}

std::string printable(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 32 && byte != 127) result += c;
    }
    return result;
}

} // namespace practice
