// What a player has won, lost and drawn of the games in his history.
#include "practice/games/Scores.h"

#include "practice/text/Text.h"

#include <algorithm>
#include <array>

namespace practice {

namespace {

// How the names of kinds begin, and what the table calls them, in its order.
constexpr std::array<std::pair<std::string_view, std::string_view>, 8> kinds{{
    {"blitz", "Blitz"},
    {"standard", "Standard"},
    {"lightning", "Lightning"},
    {"untimed", "Untimed"},
    {"wild/", "Wild"},
    {"crazyhouse", "Crazyhouse"},
    {"suicide", "Suicide"},
    {"losers", "Losers"},
}};

void count(Score& score, char sign) {
    if (sign == '+') ++score.won;
    if (sign == '-') ++score.lost;
    if (sign == '=') ++score.drawn;
}

// Blitz      1711     80.0       3       1       0       4
std::string row(const std::string& kind, const std::string& rating, const Score& score) {
    return "\n" + padRight(kind, 10) + " " + padLeft(rating, 4) + "     80.0" + padLeft(score.won, 8) +
           padLeft(score.lost, 8) + padLeft(score.drawn, 8) + padLeft(score.total(), 8);
}

} // namespace

std::vector<std::pair<std::string, Score>> scoresOf(const Archive& archive, const std::string& name) {
    std::vector<std::pair<std::string, Score>> result;
    const auto shelf = archive.shelves.find(lower(name));
    if (shelf == archive.shelves.end()) return result;
    for (const auto& [begin, title] : kinds) {
        Score score;
        for (const auto& [index, kept] : shelf->second.games) {
            if (kindText(kept->game.terms).starts_with(begin)) count(score, resultSign(*kept, name));
        }
        if (score.total() > 0) result.emplace_back(title, score);
    }
    return result;
}

std::string scoreTable(const Archive& archive, const std::string& name, const std::string& rating) {
    auto scores = scoresOf(archive, name);
    const auto isBlitz = [](const auto& entry) { return entry.first == "Blitz"; };
    if (number(trim(rating)) && std::none_of(scores.begin(), scores.end(), isBlitz)) {
        scores.insert(scores.begin(), {"Blitz", Score{}});
    }
    if (scores.empty()) return {};
    std::string text = "          rating     RD      win    loss    draw   total   best";
    for (const auto& [kind, score] : scores) text += row(kind, rating, score);
    return text;
}

} // namespace practice
