// Names of the commands and how a typed word finds its command.
#include "practice/commands/CommandNames.h"

#include "practice/text/Text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace practice {

namespace {

// Short forms that are no head of their command, or whose head several commands share.
constexpr std::array<std::pair<std::string_view, std::string_view>, 28> shortForms{{
    {"a", "accept"},       {"bye", "quit"},   {"d", "decline"},   {"exit", "quit"},   {"f", "finger"},
    {"g", "games"},        {"h", "help"},     {"ki", "kibitz"},   {"logout", "quit"}, {"m", "match"},
    {"ma", "match"},       {"mo", "moves"},   {"o", "observe"},   {"ob", "observe"},  {"p", "play"},
    {"pl", "play"},        {"re", "refresh"}, {"res", "resign"},  {"se", "seek"},     {"sh", "shout"},
    {"so", "sought"},      {"st", "style"},   {"t", "tell"},      {"ta", "takeback"}, {"un", "unobserve"},
    {"vars", "variables"}, {"w", "who"},      {"wi", "withdraw"},
}};

} // namespace

const std::vector<std::string>& commandNames() {
    static const std::vector<std::string> names{
        "abort",    "accept",   "adjourn", "allobservers", "assess",    "backward",   "date",    "decline",   "draw",
        "examine",  "finger",   "flag",    "forward",      "games",     "help",       "history", "inchannel", "iset",
        "it",       "jkill",    "journal", "jsave",        "kibitz",    "mailstored", "match",   "mexamine",  "moves",
        "next",     "observe",  "pending", "play",         "promote",   "quit",       "refresh", "rematch",   "resign",
        "revert",   "say",      "seek",    "set",          "shout",     "smoves",     "sought",  "stored",    "style",
        "takeback", "tell",     "time",    "unexamine",    "unobserve", "unseek",     "uptime",  "variables", "whisper",
        "who",      "withdraw", "xkibitz", "xtell",        "xwhisper",
    };
    return names;
}

CommandMatch matchCommand(std::string_view typed) {
    const std::string word = lower(typed);
    const auto& names = commandNames();
    CommandMatch result;
    if (word.empty()) return result;
    if (std::find(names.begin(), names.end(), word) != names.end()) return {word, {}};
    for (const auto& [shortForm, name] : shortForms) {
        if (word == shortForm) return {std::string(name), {}};
    }
    for (const std::string& name : names) {
        // A slip of a key must not end the session.
        if (name == "quit" && word.size() < 3) continue;
        if (startsWith(name, word)) result.ambiguous.push_back(name);
    }
    if (result.ambiguous.size() == 1) {
        result.name = result.ambiguous.front();
        result.ambiguous.clear();
    }
    return result;
}

} // namespace practice
