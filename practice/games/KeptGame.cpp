// A game that is over or adjourned, and the cells of the tables that tell of it.
#include "practice/games/KeptGame.h"

#include "practice/games/GameTexts.h"
#include "practice/text/Text.h"

#include <algorithm>
#include <array>

namespace practice {

KeptGamePtr keptGame(const Game& game, const std::string& reason, const std::string& result, const std::string& ended) {
    auto kept = std::make_shared<KeptGame>(KeptGame{game, reason, result, ended});
    kept->game.observers.clear();
    kept->game.seen.clear();
    kept->game.facts.legal.clear();
    return kept;
}

bool isOf(const Game& game, const std::string& name) {
    return lower(game.names[0]) == lower(name) || lower(game.names[1]) == lower(name);
}

std::size_t sideFor(const Game& game, const std::string& name) { return lower(game.names[0]) == lower(name) ? 0 : 1; }

char resultSign(const KeptGame& kept, const std::string& name) {
    if (kept.result == "1/2-1/2") return '=';
    return (kept.result == "1-0") == (sideFor(kept.game, name) == 0) ? '+' : '-';
}

std::string keptMoveList(const KeptGame& kept) {
    return moveRows(kept.game) + "      {" + kept.reason + "} " + kept.result + "\n";
}

// By the last words, as a player may be called "resigns".
std::string endLetters(const KeptGame& kept) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 13> letters{{
        {" resigns", "Res"},
        {" on time", "Fla"},
        {" ran out of time", "Fla"},
        {" by disconnection", "Dis"},
        {" by mutual agreement", "Agr"},
        {" by repetition", "Rep"},
        {" 50 move rule", "50 "},
        {" by stalemate", "Sta"},
        {" by adjudication", "Adj"},
        {" has mating material", "NM "},
        {" no material to mate", "TM "},
        {" losing all material", "WLM"},
        {" (stalemate)", "WNM"},
    }};
    const auto at = std::find_if(letters.begin(), letters.end(),
                                 [&](const auto& entry) { return kept.reason.ends_with(entry.first); });
    return std::string(at == letters.end() ? "Mat" : at->second);
}

std::string ratingCell(const std::string& rating) { return padLeft(number(rating) ? rating : "0", 4); }

std::string typeCell(const Terms& terms) {
    return "[ " + kindLetters(terms) + padLeft(terms.minutes, 3) + " " + padLeft(terms.increment, 3) + "]";
}

std::string handleCell(const std::string& name) {
    constexpr std::size_t columns = 13;
    return padRight(name.substr(0, columns), columns);
}

} // namespace practice
