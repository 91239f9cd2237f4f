// A player's settings on the server.
#include "practice/people/Variables.h"

#include "practice/chess/GameClock.h"
#include "practice/text/Text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace practice {

namespace {

// A variable that is on or off, and how it answers to being set; without such answers by its name.
struct Switch {
    std::string_view name;
    int initial;
    std::string_view on;
    std::string_view off;
};

constexpr std::array<Switch, 33> switches{{
    {"autoflag", 1, "Auto-flagging enabled.", "Auto-flagging disabled."},
    {"automail", 0, "", ""},
    {"availinfo", 0, "", ""},
    {"bell", 0, "You will now hear beeps.", "You will not hear beeps."},
    {"bugopen", 0, "", ""},
    {"chanoff", 0, "You will not hear channel tells.", "You will now hear channel tells."},
    {"cshout", 1, "You will now hear cshouts.", "You will not hear cshouts."},
    {"ctell", 1, "You will now hear channel tells from unregistered users.",
     "You will not hear channel tells from unregistered users."},
    {"echo", 1, "", ""},
    {"examine", 0, "", ""},
    {"flip", 0, "Flip on.", "Flip off."},
    {"gin", 0, "You will now hear game results.", "You will not hear game results."},
    {"highlight", 0, "", ""},
    {"jprivate", 0, "Your journal will be private.", "Your journal will not be private."},
    {"kibitz", 1, "You will now hear kibitzes.", "You will not hear kibitzes."},
    {"mailmess", 0, "Your messages will be mailed to you.", "Your messages will not be mailed to you."},
    {"messreply", 0, "", ""},
    {"noescape", 0, "You will request noescape when games start.", "You will not request noescape."},
    {"notakeback", 0, "", ""},
    {"notifiedby", 0, "", ""},
    {"open", 1, "You are now receiving match requests.", "You are no longer receiving match requests."},
    {"pgn", 0, "", ""},
    {"pin", 0, "You will now hear logons/logoffs.", "You will not hear logons/logoffs."},
    {"private", 0, "Your games will be private.", "Your games may not be private."},
    {"provshow", 0, "", ""},
    {"ptime", 0, "Your prompt will now show the time.", "Your prompt will now not show the time."},
    {"rated", 1, "", ""},
    {"ropen", 1, "", ""},
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
    bool toggles = false; // may be set like a switch as well
};

constexpr std::array<Figure, 12> figures{{
    {"availmax", 0, 0, 9999, true},
    {"availmin", 0, 0, 9999, true},
    {"height", 24, 5, 240},
    {"inc", 12, 0, mostIncrement},
    {"kiblevel", 0, 0, 9999},
    {"minmovetime", 1, 0, 1},
    {"style", 12, 12, 12},
    {"time", 2, 0, mostMinutes},
    {"tolerance", 1, 1, 5},
    {"tourney", 0, 0, 1},
    {"unobserve", 1, 0, 3},
    {"width", 79, 32, 240},
}};

// The rows of the table in their customary order; an empty cell keeps the columns in place.
constexpr std::array<std::array<std::string_view, 5>, 11> rows{{
    {"time", "private", "shout", "pin", "style"},
    {"inc", "jprivate", "cshout", "notifiedby", "flip"},
    {"rated", "", "kibitz", "availinfo", "highlight"},
    {"open", "automail", "kiblevel", "availmin", "bell"},
    {"ropen", "pgn", "tell", "availmax", "width"},
    {"bugopen", "", "ctell", "gin", "height"},
    {"", "mailmess", "", "seek", "ptime"},
    {"tourney", "messreply", "chanoff", "showownseek", "tzone=SERVER"},
    {"provshow", "", "silence", "", "Lang=English"},
    {"autoflag", "unobserve", "echo", "examine", ""},
    {"minmovetime", "", "tolerance", "noescape", "notakeback"},
}};

constexpr std::array<std::size_t, 5> columnStarts{0, 13, 27, 43, 59};

// Room that a value has at least, also where nothing follows it.
constexpr std::array<std::pair<std::string_view, std::size_t>, 3> valueRooms{
    {{"height", 3}, {"style", 3}, {"width", 3}}};

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

// Clients toggle a switch by naming it without a value.
std::optional<bool> readSwitch(const std::string& value, bool now) {
    if (value.empty()) return !now;
    if (value == "1" || value == "on" || value == "true" || value == "yes") return true;
    if (value == "0" || value == "off" || value == "false" || value == "no") return false;
    return std::nullopt;
}

std::string badValue(std::string_view name) { return "Bad value given for variable \"" + std::string(name) + "\"."; }

std::optional<int> readFigure(const Figure& figure, const std::string& value, int now) {
    const auto flag = figure.toggles ? readSwitch(value, now != 0) : std::nullopt;
    const auto wanted = flag ? std::optional<int>(*flag ? 1 : 0) : number(value);
    return wanted && *wanted >= figure.lowest && *wanted <= figure.highest ? wanted : std::nullopt;
}

std::string figureText(const Variables& variables, const std::string& name) {
    const std::string value = std::to_string(variables.value(name));
    if (name == "style") return "Style " + value + " set.";
    if (!startsWith(name, "avail")) return name + " set to " + value + ".";
    return "You will be notified of availability with blitz ratings " + std::to_string(variables.value("availmin")) +
           " - " + std::to_string(variables.value("availmax")) + ".";
}

std::string setFigure(Variables& variables, const Figure& figure, const std::string& value) {
    const std::string name(figure.name);
    const auto wanted = readFigure(figure, lower(value), variables.value(name));
    if (!wanted) return badValue(name);
    variables.numbers[name] = *wanted;
    return figureText(variables, name);
}

std::string setSwitch(Variables& variables, const Switch& which, const std::string& value) {
    const std::string name(which.name);
    const auto wanted = readSwitch(lower(value), variables.value(name) != 0);
    if (!wanted) return badValue(name);
    variables.numbers[name] = *wanted ? 1 : 0;
    if (which.on.empty()) return name + " set to " + (*wanted ? "1." : "0.");
    return std::string(*wanted ? which.on : which.off);
}

// Those behind a note that is emptied keep their numbers.
std::string setNote(Variables& variables, int index, const std::string& value) {
    const std::string label = "Note " + std::to_string(index);
    if (value.empty() && index > variables.noteCount()) return "You do not have that many lines set.";
    variables.notes[static_cast<std::size_t>(index - 1)] = value;
    if (value.empty()) return label + " cleared.";
    return wrapped(label + " set: " + value, static_cast<std::size_t>(variables.value("width")));
}

// The blank behind it belongs to the prompt, and clients count on it.
std::string setPrompt(Variables& variables, const std::string& value) {
    variables.prompt = (value.empty() ? std::string("fics%") : value) + " ";
    return "prompt set to \"" + variables.prompt + "\".";
}

std::string setInterface(Variables& variables, const std::string& value) {
    variables.interfaceName = value;
    return "interface set to \"" + value + "\".";
}

std::string cell(const Variables& variables, std::string_view name) {
    if (name.find('=') != std::string_view::npos) return std::string(name); // nobody can change it
    const std::string key(name);
    const auto room =
        std::find_if(valueRooms.begin(), valueRooms.end(), [&](const auto& r) { return r.first == name; });
    return key + "=" + padRight(std::to_string(variables.value(key)), room == valueRooms.end() ? 0 : room->second);
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

int Variables::noteCount() const {
    const auto last = std::find_if(notes.rbegin(), notes.rend(), [](const std::string& note) { return !note.empty(); });
    return static_cast<int>(notes.rend() - last);
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
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (!row[i].empty()) line = padRight(line, columnStarts[i]) + cell(variables, row[i]);
        }
        text += line + "\n";
    }
    text += "\nPrompt: " + variables.prompt;
    if (!variables.interfaceName.empty()) text += "\nInterface: \"" + variables.interfaceName + "\"";
    return text + "\n";
}

} // namespace practice
