// Window coordinates as the store holds them.
#include "settings/Coordinate.h"

#include "common/Numbers.h"

#include <array>
#include <charconv>

std::string coordinateText(float twips) {
    std::array<char, 32> buffer{};
    constexpr int Digits = 7; // of a single-precision number
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), twips, std::chars_format::general, Digits);
    std::string text(buffer.data(), end.ptr);
    if (const auto exponent = text.find('e'); exponent != text.npos) text[exponent] = 'E';
    return text;
}

float coordinateOf(std::string_view text) { return strictInt16(text); }
