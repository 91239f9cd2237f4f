// Games of a file as lists of move texts: just enough of the format for the files in tests/data/games.
#include "rules/GameTexts.h"

#include "TestPaths.h"

#include <array>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace {

bool isResult(const std::string& word) { return word == "*" || word == "1-0" || word == "0-1" || word == "1/2-1/2"; }

// The boards of one game: the number in front of a move says which, "12." the first.
std::array<GameText, 2> boardsOf(const std::string& line) {
    std::array<GameText, 2> boards;
    std::size_t board = 0;
    std::istringstream words(line);
    for (std::string word; words >> word;) {
        if (word.back() == '.') {
            const char letter = word[word.size() - 2];
            board = letter == 'B' || letter == 'b' ? 1 : 0;
        } else if (!isResult(word)) {
            boards[board].moves.push_back(word);
        }
    }
    return boards;
}

} // namespace

std::vector<GameText> gamesOf(const std::string& file) {
    std::ifstream stream(std::string(TEST_DATA) + "/games/" + file);
    if (!stream) throw std::runtime_error("there is no " + file);
    std::vector<GameText> games;
    std::string fen;
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with("[FEN ")) {
            fen = line.substr(6, line.size() - 8);
            continue;
        }
        for (GameText& game : boardsOf(line)) {
            if (game.moves.empty()) continue;
            game.fen = fen;
            games.push_back(std::move(game));
        }
        if (!line.empty()) fen.clear();
    }
    return games;
}
