// Long texts in pieces that fit a screen.
#pragma once

#include <string>

namespace practice {

// Takes the next piece off the front of `rest` and gives it without an end to its last line: all of it if it has fewer
// lines than `height`, which is more than 1, else as many lines as leave room for the invitation to type "next", which
// is the last of the `height` lines.
std::string takePage(std::string& rest, int height);

} // namespace practice
