// Text with columns counted from 1, so that a prescribed figure reads in the code as it was given.
#pragma once

#include <string>
#include <string_view>

// Up to `length` characters of `text` from column `start` (1 is the first); empty behind the end.
std::string_view mid(std::string_view text, long start, long length = -1);

// The column of the first `needle` at or behind column `from`; 0 if there is none. Case matters.
long find(long from, std::string_view text, std::string_view needle);

// `text` with the letters A to Z turned to small ones; other bytes stay.
std::string lower(std::string_view text);

// `text` without blanks at both ends.
std::string_view trim(std::string_view text);

// Takes the character at `place` of UTF-8 text, as one byte; "?" for one that has no place in a byte. A byte that is no
// UTF-8 stands for itself.
char takeUtf8(std::string_view text, std::size_t& place);

// The whole of it, such as the name of a file, as text of the stream.
std::string fromUtf8(std::string_view text);

// CR or LF.
inline bool isBreak(char c) { return c == '\r' || c == '\n'; }

// Whether two neighbouring characters are one line ending: CR and LF, in either order.
inline bool areBreakPair(char a, char b) { return isBreak(a) && isBreak(b) && a != b; }

inline bool contains(std::string_view text, std::string_view needle) { return text.find(needle) != text.npos; }
