// Text to numbers, in the lenient kind and the strict kind, and numbers to narrower numbers.
#pragma once

#include <cstdint>
#include <string_view>

// The number that `text` begins with (leading blanks, sign, digits, fraction, exponent); 0 if there is none. Never
// faults.
double leadingNumber(std::string_view text);

// `value` rounded to the nearest whole number, a half going to the even neighbour.
double roundHalfEven(double value);

// `value` rounded half to even into the field's width; faults (overflow) when it does not fit.
std::int16_t toInt16(double value);
std::int32_t toInt32(double value);

// The whole of `text` (outer blanks aside) as a number, rounded half to even; faults (type mismatch) on text that is
// no number, the empty text included, and (overflow) on one that does not fit.
std::int16_t strictInt16(std::string_view text);
std::int32_t strictInt32(std::string_view text);

// "True" and "False" in any case, or a number (not zero is true); faults (type mismatch) on anything else.
bool strictBool(std::string_view text);
