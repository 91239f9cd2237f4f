// The matchers of typed words: abbreviated commands and completed names.
#include "common/Abbrev.h"

#include "common/Text.h"

bool zAbbrev(std::string& text, std::string_view keyword, int minimum) {
    const std::string word = lower(std::string_view(text).substr(0, text.find(' ')));
    if (word.size() < static_cast<std::size_t>(minimum) || !keyword.starts_with(word)) return false;
    text.erase(0, word.size() + 1);
    return true;
}

bool zPrefixMatch(std::string_view shorter, std::string_view longer) {
    return lower(trim(longer)).starts_with(lower(trim(shorter)));
}

std::string zCorrect(std::string_view text) {
    std::string result(text);
    for (auto pair = result.find("\n\r"); pair != result.npos; pair = result.find("\n\r", pair + 2)) {
        result.replace(pair, 2, "\r\n");
    }
    return result;
}
