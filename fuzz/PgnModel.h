// The reader of game files a second time: the whole file at once, as lists.
#pragma once

#include "common/Numbers.h"

#include <cctype>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pgnModel {

// CR LF, LF and CR end a line; what no end stands behind is a line too.
inline std::vector<std::string> linesOf(std::string_view bytes) {
    std::string feeds;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const bool pair = bytes[at] == '\r' && at + 1 < bytes.size() && bytes[at + 1] == '\n';
        if (!pair) feeds += bytes[at] == '\r' ? '\n' : bytes[at];
    }
    std::vector<std::string> lines;
    std::istringstream stream(feeds);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

inline bool isTag(const std::string& line) { return line.size() > 1 && line[0] == '[' && line.back() == ']'; }

// A game: its tags that have a value, by their names in small letters, and the number of the line behind them.
struct Game {
    std::map<std::string, std::string> tags;
    std::size_t line = 0;
};

inline std::vector<Game> gamesOf(const std::vector<std::string>& lines) {
    std::vector<Game> games;
    Game game;
    bool any = false;
    for (std::size_t at = 0; at < lines.size() && games.size() < 100; ++at) {
        if (!isTag(lines[at])) {
            if (!any) continue;
            game.line = at + 1;
            games.push_back(std::exchange(game, {}));
            any = false;
            continue;
        }
        any = true;
        const std::size_t blank = lines[at].find(' ');
        if (blank == std::string::npos) continue;
        std::string name = lines[at].substr(1, blank - 1);
        for (char& c : name) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
        const std::size_t from = blank + 2;
        const std::size_t to = lines[at].size() - 2;
        game.tags[name] = from < to ? lines[at].substr(from, to - from) : std::string();
    }
    return games;
}

// The words of a game's moves; none when the file ends before an empty line.
inline std::optional<std::vector<std::string>> wordsOf(const std::vector<std::string>& lines, std::size_t line) {
    std::string text;
    for (std::size_t at = line - 1; at < lines.size(); ++at) {
        if (!lines[at].empty()) {
            text += lines[at] + " ";
            continue;
        }
        if (text.empty()) continue;
        std::vector<std::string> words;
        std::string word;
        for (const char c : text) {
            if (c != ' ') {
                word += c;
            } else if (!word.empty()) {
                words.push_back(std::exchange(word, {}));
            }
        }
        if (!words.empty()) words.pop_back();
        return words;
    }
    return std::nullopt;
}

inline bool looksLikeBlack(const std::string& word) {
    const std::string two = word.substr(0, 2);
    const auto oneOf = [](char c, std::string_view set) { return set.find(c) != set.npos; };
    if (two.size() < 2) return false;
    if (oneOf(two[0], "KQRBN")) return oneOf(two[1], "12345678abcdefghxX");
    if (oneOf(two[0], "abcdefgh")) return oneOf(two[1], "12345678xX");
    return oneOf(two[0], "Oo") && two[1] == '-';
}

// The texts by row and side, and where it ended; no numbers beyond a board's rows.
struct Moves {
    std::map<std::pair<int, int>, std::string> texts;
    double number = 0;
    int awaited = 2;
};

inline std::optional<Moves> movesOf(const std::vector<std::string>& words) {
    Moves moves;
    for (const std::string& word : words) {
        if (word.back() == '.') {
            moves.number = roundHalfEven(leadingNumber(word));
            if (moves.number < -32768 || moves.number > 32767) return std::nullopt;
            moves.awaited = 0;
            continue;
        }
        if (moves.awaited == 2) continue;
        if (moves.awaited == 1 && !looksLikeBlack(word)) break;
        if (moves.number < 0 || moves.number > 200) return std::nullopt;
        const int row = static_cast<int>(moves.number);
        moves.texts[{row, moves.awaited}] = word;
        if (moves.awaited == 0) moves.texts[{row, 1}].clear();
        ++moves.awaited;
    }
    if (moves.number > 200) return std::nullopt; // the list has no such row
    return moves;
}

} // namespace pgnModel
