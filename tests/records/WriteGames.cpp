// Writes published games to a PGN file by the program's own writer, as move lists of a server bring them:
//   write_games GAMES FILE     each line of GAMES that begins with "1. " is a game, its result the last word; one of
//                              more than 200 moves is left out, as no list of a server can be read further
#include "records/MoveListCapture.h"
#include "records/PgnWriter.h"

#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

std::string padded(const std::string& text, std::size_t width) {
    return text + std::string(text.size() < width ? width - text.size() : 0, ' ');
}

// "  1.  e4      (0:00)     e5      (0:00)  "
std::string moveLine(std::size_t number, const std::string& white, const std::string& black) {
    const std::string digits = std::to_string(number);
    const std::string line = std::string(3 - digits.size(), ' ') + digits + ".  " + padded(white, 8) + "(0:00)";
    return line + (black.empty() ? "" : "     " + padded(black, 8) + "(0:00)") + "  \r\n";
}

std::unique_ptr<GameRecord> recordOf(const std::string& game) {
    std::istringstream stream(game);
    std::vector<std::string> words{std::istream_iterator<std::string>(stream), {}};
    const std::string result = words.back();
    words.pop_back();
    std::erase_if(words, [](const std::string& word) { return word.back() == '.'; });
    auto record = std::make_unique<GameRecord>();
    zMovesLines("White (1500) vs. Black (1600) --- Thu Oct 14, 20:36 PDT 2010\r\n", *record);
    zMovesLines("Rated blitz match, initial time: 5 minutes, increment: 12 seconds.\r\n", *record);
    for (std::size_t half = 0; half < words.size(); half += 2) {
        zMovesLines(moveLine(half / 2 + 1, words[half], half + 1 < words.size() ? words[half + 1] : ""), *record);
    }
    zMovesLines("      {Game over} " + result + "\r\n", *record);
    return record;
}

} // namespace

int main(int count, char** arguments) {
    if (count != 3) return 2;
    std::ifstream games(arguments[1]);
    int failed = 0;
    for (std::string line; std::getline(games, line);) {
        if (!line.starts_with("1. ") || line.find(" 201. ") != line.npos) continue;
        zWriteGame(arguments[2], *recordOf(line),
                   {.print = [](const std::string&) {}, .tell = [&failed](const std::string&) { ++failed; }});
    }
    return failed == 0 ? 0 : 1;
}
