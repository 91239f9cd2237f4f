// The matchers of typed words: abbreviated commands and completed names.
#pragma once

#include <string>
#include <string_view>

// True if the first word of `text`, in any case, abbreviates `keyword` (in lower case) to `minimum` letters or more;
// the word and its blank are then taken off `text`. "HE", "Hel" and "help" fit "help" with a minimum of 2.
bool zAbbrev(std::string& text, std::string_view keyword, int minimum);

// True if `longer` begins with `shorter`, ignoring case and the blanks around both.
bool zPrefixMatch(std::string_view shorter, std::string_view longer);

// `text` with each LF CR pair turned into CR LF.
std::string zCorrect(std::string_view text);
