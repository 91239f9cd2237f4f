// Names of the commands and how a typed word finds its command.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace practice {

// What a typed word means as a command.
struct CommandMatch {
    std::string name;                   // the full name; empty if none or several fit
    std::vector<std::string> ambiguous; // the full names that fit when there are several
};

// All command names in alphabetical order.
const std::vector<std::string>& commandNames();

// Finds the command that `typed` names in full, as a customary short form ("t", "ob", "vars") or by its first
// letters; letter case is ignored.
CommandMatch matchCommand(std::string_view typed);

} // namespace practice
