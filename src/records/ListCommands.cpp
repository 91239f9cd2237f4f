// What the menu of a listed game sends to the server.
#include "records/ListCommands.h"

#include "common/Text.h"

namespace {

std::string identifier(const ListedGame& game) {
    return game.opponent ? std::string(trim(*game.opponent)) : game.first;
}

} // namespace

std::string gameArguments(const ListedGame& game) { return game.player + " " + identifier(game); }

std::string examineLine(const ListedGame& game) {
    return "ex " + game.player + " " + std::string(trim(identifier(game)));
}

std::string movesLine(const ListedGame& game) { return "smoves " + gameArguments(game); }

std::string mailLine(const ListedGame& game) { return "Mailstored " + gameArguments(game); }

std::string addLine(const ListedGame& game, const std::string& slot) {
    return "jsave " + slot + " " + game.player + " " + game.first;
}

std::string removeQuestion(const ListedGame& game) {
    return "Are you sure you want to permenantly remove game " + game.first + "?";
}

std::string removeLine(const ListedGame& game) { return "jkill " + game.first; }
