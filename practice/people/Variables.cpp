// A player's settings on the server.
#include "practice/people/Variables.h"

#include "practice/chess/GameClock.h"
#include "practice/text/Text.h"

#include <algorithm>
#include <array>
#include <optional>

namespace practice {

namespace {

// A variable that is on or off, and how it answers to being set; without such answers by its name.
struct Switch {
    std::string_view name;
    int initial;
    std::string_view on;
    std::string_view off;
};

constexpr std::array<Switch, 34> switches{{
    {"autoflag", 1, "Auto-flagging enabled.", "Auto-flagging disabled."},
    {"automail", 0, "", ""},
    {"availinfo", 0, "", ""},
    {"availmax", 0, "", ""},
    {"availmin", 0, "", ""},
    {"bell", 0, "You will now hear beeps.", "You will not hear beeps."},
    {"bugopen", 0, "", ""},
    {"chanoff", 0, "You will not hear channel tells.", "You will now hear channel tells."},
    {"cshout", 1, "You will now hear cshouts.", "You will not hear cshouts."},
    {"ctell", 1, "", ""},
    {"echo", 1, "", ""},
    {"examine", 0, "", ""},
    {"flip", 0, "", ""},
    {"gin", 0, "You will now hear game results.", "You will not hear game results."},
    {"highlight", 0, "", ""},
    {"jprivate", 0, "", ""},
    {"kibitz", 1, "You will now hear kibitzes.", "You will not hear kibitzes."},
    {"mailmess", 0, "", ""},
    {"messreply", 0, "", ""},
    {"noescape", 0, "You will request noescape when games start.", "You will not request noescape."},
    {"notakeback", 0, "", ""},
    {"notifiedby", 0, "", ""},
    {"open", 1, "You are now open to match requests.", "You are not open to match requests."},
    {"pgn", 0, "", ""},
    {"pin", 0, "You will now hear logons/logoffs.", "You will not hear logons/logoffs."},
    {"private", 0, "", ""},
    {"provshow", 0, "", ""},
    {"ptime", 0, "", ""},
    {"rated", 0, "", ""},
    {"seek", 1, "You will now see seek ads.", "You will not see seek ads."},
    {"shout", 1, "You will now hear shouts.", "You will not hear shouts."},
    {"showownseek", 0, "", ""},
    {"silence", 0, "You will now play games in silence.", "You will not play games in silence."},
    {"tell", 1, "You will now hear direct tells from unregistered users.",
     "You will not hear direct tells from unregistered users."},
}};

// A variable with a number for its value.
struct Figure {
    std::string_view name;
    int initial;
    int lowest;
    int highest;
};

constexpr std::array<Figure, 10> figures{{
    {"height", 24, 5, 240},
    {"inc", 12, 0, mostIncrement},
    {"kiblevel", 0, 0, 9999},
    {"minmovetime", 1, 0, 1},
    {"style", 12, 12, 12},
    {"time", 2, 0, mostMinutes},
    {"tolerance", 1, 1, 5},
    {"tourney", 0, 0, 1},
    {"unobserve", 1, 0, 3},
    {"width", 79, 40, 240},
}};

// The rows of the table in their customary order; an empty cell keeps the columns in place.
constexpr std::array<std::array<std::string_view, 5>, 10> rows{{
    {"time", "private", "shout", "pin", "style"},
    {"inc", "jprivate", "cshout", "notifiedby", "flip"},
    {"rated", "", "kibitz", "availinfo", "highlight"},
    {"open", "automail", "kiblevel", "availmin", "bell"},
    {"", "pgn", "tell", "availmax", "width"},
    {"bugopen", "", "ctell", "gin", "height"},
    {"", "mailmess", "", "seek", "ptime"},
    {"tourney", "messreply", "chanoff", "showownseek", "tzone=SERVER"},
    {"provshow", "", "silence", "", "Lang=English"},
    {"autoflag", "unobserve", "echo", "examine", ""},
}};

constexpr std::array<std::size_t, 5> columnWidths{13, 14, 16, 16, 0};

std::string wholeName(const Variables& variables, const std::string& word) {
    if (variables.numbers.count(word) > 0) return word;
    std::string found;
    for (const auto& [name, value] : variables.numbers) {
        if (!startsWith(name, word)) continue;
        if (!found.empty()) return {};
        found = name;
    }
    return found;
}

std::string setFigure(Variables& variables, const Figure& figure, const std::string& value) {
    const std::string name(figure.name);
    const auto wanted = number(value);
    if (!wanted || *wanted < figure.lowest || *wanted > figure.highest) {
        return "Bad value given for variable \"" + name + "\".";
    }
    variables.numbers[name] = *wanted;
    if (name == "style") return "Style " + value + " set.";
    return name + " set to " + std::to_string(*wanted) + ".";
}

// Clients toggle a switch by naming it without a value.
std::optional<bool> readSwitch(const std::string& value, bool now) {
    if (value.empty()) return !now;
    if (value == "1" || value == "on" || value == "true" || value == "yes") return true;
    if (value == "0" || value == "off" || value == "false" || value == "no") return false;
    return std::nullopt;
}

std::string setSwitch(Variables& variables, const Switch& which, const std::string& value) {
    const std::string name(which.name);
    const auto wanted = readSwitch(lower(value), variables.value(name) != 0);
    if (!wanted) return "Bad value given for variable \"" + name + "\".";
    variables.numbers[name] = *wanted ? 1 : 0;
    if (which.on.empty()) return name + (*wanted ? " set." : " unset.");
    return std::string(*wanted ? which.on : which.off);
}

std::string setNote(Variables& variables, int index, const std::string& value) {
    variables.notes[static_cast<std::size_t>(index - 1)] = value;
    return "Note " + std::to_string(index) + (value.empty() ? " unset." : " set: " + value);
}

// The blank behind it belongs to the prompt, and clients count on it.
std::string setPrompt(Variables& variables, const std::string& value) {
    variables.prompt = (value.empty() ? std::string("fics%") : value.substr(0, 32)) + " ";
    return "prompt set to \"" + variables.prompt + "\".";
}

std::string setInterface(Variables& variables, const std::string& value) {
    variables.interfaceName = value;
    return "interface set to \"" + value + "\".";
}

std::string cell(const Variables& variables, std::string_view name, std::size_t width) {
    if (name.empty()) return padRight("", width);
    if (name.find('=') != std::string_view::npos) return std::string(name); // nobody can change it
    const std::string key(name);
    return padRight(key + "=" + std::to_string(variables.value(key)), width);
}

} // namespace

Variables::Variables() {
    for (const Switch& each : switches) numbers[std::string(each.name)] = each.initial;
    for (const Figure& each : figures) numbers[std::string(each.name)] = each.initial;
}

int Variables::value(const std::string& name) const {
    const auto at = numbers.find(name);
    return at == numbers.end() ? 0 : at->second;
}

std::string applySetting(Variables& variables, const std::string& word, const std::string& value) {
    const std::string key = lower(word);
    if (const auto note = number(key); note && *note >= 1 && *note <= 10) return setNote(variables, *note, value);
    if (key == "prompt") return setPrompt(variables, value);
    if (key == "interface") return setInterface(variables, value);
    const std::string name = wholeName(variables, key);
    const auto isIt = [&](const auto& each) { return each.name == name; };
    if (const auto* at = std::find_if(figures.begin(), figures.end(), isIt); at != figures.end()) {
        return setFigure(variables, *at, value);
    }
    if (const auto* at = std::find_if(switches.begin(), switches.end(), isIt); at != switches.end()) {
        return setSwitch(variables, *at, value);
    }
    return "No such variable \"" + word + "\".";
}

std::string variablesTable(const std::string& name, const Variables& variables) {
    std::string text = "Variable settings of " + name + ":\n\n";
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) line += cell(variables, row[i], columnWidths[i]);
        text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    }
    text += cell(variables, "minmovetime", 27) + cell(variables, "tolerance", 16) + cell(variables, "noescape", 16) +
            cell(variables, "notakeback", 0) + "\n\n";
    text += "Prompt: " + variables.prompt;
    if (!variables.interfaceName.empty()) text += "\nInterface: \"" + variables.interfaceName + "\"";
    return text;
}

} // namespace practice
