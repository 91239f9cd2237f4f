// Small text helpers of the practice server: cutting, padding and numbers.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace practice {

// An ASCII letter made small or capital; other bytes stay.
char lowerOf(char c);
char upperOf(char c);

// `text` with ASCII capitals made small; other bytes stay.
std::string lower(std::string_view text);

// `text` without blanks, tabs and line ends at both sides.
std::string trim(std::string_view text);

// The words of `text`, cut at runs of blanks and tabs; none for blank text.
std::vector<std::string> words(std::string_view text);

// True if `text` begins with `head`, letter case ignored; an empty head always fits.
bool startsWith(std::string_view text, std::string_view head);

// The whole of `text` as a number from 0 to 999,999; nothing for any other text.
std::optional<int> number(std::string_view text);

// `text` filled up with blanks on its left to `width` characters; longer text stays whole.
std::string padLeft(std::string_view text, std::size_t width);
std::string padLeft(int value, std::size_t width);

// `text` filled up with blanks on its right to `width` characters; longer text stays whole.
std::string padRight(std::string_view text, std::size_t width);

// "1 game", "2 games": `count`, filled up on its left to `width` characters, with the word in its right form.
std::string counted(int count, std::string_view word, std::size_t width = 0);

// The lowest number from 1 on that is no key of `taken`: low numbers are used again, as people like to type them.
template <class Map>
int lowestFree(const Map& taken) {
    int number = 1;
    while (taken.count(number) > 0) ++number;
    return number;
}

// `text` cut behind blanks into lines of at most `width` characters, which is more than 5; further lines begin with
// "\   ".
std::string wrapped(const std::string& text, std::size_t width);

// `text` with control characters left out, so that nobody can forge lines on another screen.
std::string printable(std::string_view text);

} // namespace practice
