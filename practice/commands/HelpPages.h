// The pages of the server's help.
#pragma once

#include <map>
#include <string>

namespace practice {

// Pages by topic in small letters. Lines of at most 79 columns end with LF, the last one has no end.
using HelpPages = std::map<std::string, std::string>;

// A page for each command: how it is typed, an empty line, and what it does.
const HelpPages& commandPages();

// Pages on what is no command.
const HelpPages& guidePages();

} // namespace practice
