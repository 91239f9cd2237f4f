// Window coordinates as the store holds them.
#pragma once

#include <string>
#include <string_view>

// The text of a single-precision number of twips, seven digits at most: "1500", "12.5", "1E+07". Never depends on the
// locale.
std::string coordinateText(float twips);

// The stored `text` as a whole number of twips, -32768 to 32767, a half going to the even neighbour. Faults (type
// mismatch) on text that is no number and (overflow) on a number beyond that range.
float coordinateOf(std::string_view text);
