// What the menu of a listed game sends to the server.
#pragma once

#include <optional>
#include <string>

// The game that a command is about. Texts are as they stand in the window, outer blanks included.
struct ListedGame {
    std::string player;                  // whose list it is
    std::string first;                   // the row's first column: a number, or a slot of the journal
    std::optional<std::string> opponent; // of a stored game, which goes by its opponent's name
};

// The player and the game as arguments of a command: "Anders 5".
std::string gameArguments(const ListedGame& game);

std::string examineLine(const ListedGame& game);
std::string movesLine(const ListedGame& game);
std::string mailLine(const ListedGame& game);
// Into the own journal's slot, "A" to "J"; a game goes by its first column here and below.
std::string addLine(const ListedGame& game, const std::string& slot);
std::string removeQuestion(const ListedGame& game);
std::string removeLine(const ListedGame& game);
