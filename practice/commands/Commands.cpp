// Typed commands: finding and running them.
#include "practice/commands/Commands.h"

#include "practice/chess/MoveText.h"
#include "practice/commands/CommandNames.h"
#include "practice/commands/Subjects.h"
#include "practice/text/Text.h"

namespace practice {

namespace {

CommandRoutine routineOf(const std::string& name) {
    for (const auto subject :
         {gameCommands, offerCommands, examineCommands, watchCommands, talkCommands, infoCommands}) {
        if (const auto at = subject().find(name); at != subject().end()) return at->second;
    }
    return nullptr;
}

Arguments argumentsBehind(const std::string& line, std::size_t end) {
    Arguments result;
    result.rest = end < line.size() ? trim(line.substr(end)) : std::string();
    result.words = words(result.rest);
    return result;
}

// "+channel 50", "-chan 1": lists other than channels are not kept here.
Answer runListCommand(Player& player, const std::string& word, const Arguments& arguments) {
    const std::string list = word.substr(1);
    if (list.empty() || !startsWith("channel", list)) return {word + ": Command not found."};
    if (word[0] == '=') {
        std::string text = "-- channel list: " + std::to_string(player.channels.size()) + " channels --\n";
        for (const int channel : player.channels) text += std::to_string(channel) + "  ";
        return {text};
    }
    return changeChannel(player, arguments.word(0), word[0] == '+');
}

std::string ambiguousText(const std::vector<std::string>& names) {
    std::string text = "Ambiguous command. Matches:";
    for (const std::string& name : names) text += " " + name;
    return text;
}

} // namespace

Answer runCommand(Hall& hall, Player& player, const std::string& typed) {
    const std::string line = trim(printable(typed));
    player.lastTyped = hall.outside.now();
    if (line.empty()) return {};
    const std::string word = line.substr(0, line.find_first_of(" \t"));
    const Arguments arguments = argumentsBehind(line, word.size());
    if (word[0] == '.') return talkCommands().at("tell")(hall, player, argumentsBehind(". " + line.substr(1), 0));
    if (word[0] == '+' || word[0] == '-' || word[0] == '=') return runListCommand(player, word, arguments);
    if (looksLikeMove(line)) return typedMove(hall, player, line);
    const CommandMatch match = matchCommand(word);
    if (!match.ambiguous.empty()) return {ambiguousText(match.ambiguous)};
    const auto routine = routineOf(match.name);
    return routine ? routine(hall, player, arguments) : Answer{word + ": Command not found."};
}

} // namespace practice
