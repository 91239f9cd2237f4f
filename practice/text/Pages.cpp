// Long texts in pieces that fit a screen.
#include "practice/text/Pages.h"

#include <utility>

namespace practice {

namespace {

// Where the line behind the first `lines` ones begins; the end if there are no more.
std::size_t startOfLine(const std::string& text, int lines) {
    std::size_t at = 0;
    for (int line = 0; line < lines; ++line) {
        const std::size_t end = text.find('\n', at);
        if (end == std::string::npos) return std::string::npos;
        at = end + 1;
    }
    return at;
}

} // namespace

std::string takePage(std::string& rest, int height) {
    const std::size_t cut = startOfLine(rest, height - 1);
    if (cut == std::string::npos) return std::exchange(rest, {});
    const std::string page = rest.substr(0, cut);
    rest.erase(0, cut);
    return page + "Type [next] to see next page.";
}

} // namespace practice
