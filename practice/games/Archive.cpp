// Games that are over or adjourned, and the lists and move lists that tell of them.
#include "practice/games/Archive.h"

#include "practice/games/GameTexts.h"
#include "practice/text/Text.h"

#include <algorithm>
#include <array>

namespace practice {

namespace {

bool isOf(const Game& game, const std::string& name) {
    return lower(game.names[0]) == lower(name) || lower(game.names[1]) == lower(name);
}

std::size_t sideFor(const Game& game, const std::string& name) { return lower(game.names[0]) == lower(name) ? 0 : 1; }

// "Res", "Mat": how lists name an end. By its last words, as a player may be called "resigns".
std::string endLetters(const std::string& reason) {
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
    const auto at =
        std::find_if(letters.begin(), letters.end(), [&](const auto& entry) { return reason.ends_with(entry.first); });
    return std::string(at == letters.end() ? "Mat" : at->second);
}

// Four columns; a player without a rating has 0 here, as elsewhere "++++".
std::string ratingCell(const std::string& rating) { return padLeft(number(rating) ? rating : "0", 4); }

// "[ br  5   0]": private or not, kind, rated or not, times.
std::string typeCell(const Terms& terms) {
    return "[ " + kindLetters(terms) + padLeft(terms.minutes, 3) + " " + padLeft(terms.increment, 3) + "]";
}

// 66: - 1735 B    0 GuestHKZX     [ bu  3   0] --- Res Sun Dec  6, 15:50 EST 2015
std::string historyRow(int index, const KeptGame& kept, const std::string& name) {
    const Game& game = kept.game;
    const std::size_t side = sideFor(game, name);
    return padLeft(index, 2) + ": " + resultSign(kept, name) + " " + ratingCell(game.ratings[side]) + " " +
           (side == 0 ? "W " : "B ") + ratingCell(game.ratings[1 - side]) + " " +
           padRight(game.names[1 - side].substr(0, 13), 13) + " " + typeCell(game.terms) + " --- " +
           endLetters(kept.reason) + " " + kept.ended;
}

//  1: W Berta           Y [ sr 15   0] 39-39 W3   --- Sat Nov 21, 02:43 UTC 2026
std::string storedRow(int index, const KeptGame& kept, std::size_t side, bool online) {
    const Game& game = kept.game;
    const auto position = readFen(game.facts.fen).value_or(Position{});
    const std::string strength = padLeft(materialStrength(position, true), 2) + "-" +
                                 padRight(std::to_string(materialStrength(position, false)), 2);
    const std::string move = (game.toMove() == 0 ? "W" : "B") + std::to_string(game.moveNumber());
    return padLeft(index, 2) + ": " + (side == 0 ? "W " : "B ") + padRight(game.names[1 - side].substr(0, 13), 13) +
           padLeft(online ? "Y" : "N", 4) + " " + typeCell(game.terms) + " " + strength + " " + padRight(move, 4) +
           " --- " + kept.ended;
}

} // namespace

void Archive::keep(const KeptGamePtr& game) {
    for (const std::string& name : game->game.names) {
        Shelf& shelf = shelves[lower(name)];
        shelf.games.emplace_back(shelf.next, game);
        shelf.next = (shelf.next + 1) % numbers;
        if (shelf.games.size() > gamesOfOne) shelf.games.pop_front();
    }
}

void Archive::forget(const std::string& name) { shelves.erase(lower(name)); }

KeptGamePtr Archive::find(const std::string& name, const std::string& which) const {
    const auto shelf = shelves.find(lower(name));
    if (shelf == shelves.end() || which.empty()) return nullptr;
    const auto& games = shelf->second.games;
    const bool fromLast = which[0] == '-';
    const auto wanted = number(fromLast ? which.substr(1) : which);
    if (!wanted) return nullptr;
    if (fromLast) {
        const auto back = static_cast<std::size_t>(*wanted);
        return back == 0 || back > games.size() ? nullptr : games[games.size() - back].second;
    }
    const auto at = std::find_if(games.begin(), games.end(), [&](const auto& entry) { return entry.first == *wanted; });
    return at == games.end() ? nullptr : at->second;
}

KeptGamePtr Archive::adjournedBetween(const std::string& one, const std::string& other) const {
    const auto at = std::find_if(adjourned.begin(), adjourned.end(), [&](const KeptGamePtr& kept) {
        return isOf(kept->game, one) && isOf(kept->game, other);
    });
    return at == adjourned.end() ? nullptr : *at;
}

KeptGamePtr Archive::takeAdjourned(const std::string& one, const std::string& other) {
    const KeptGamePtr found = adjournedBetween(one, other);
    if (found) std::erase(adjourned, found);
    return found;
}

void Archive::adjourn(const KeptGamePtr& game) {
    takeAdjourned(game->game.names[0], game->game.names[1]);
    adjourned.push_back(game);
    if (adjourned.size() > adjournedLimit) adjourned.pop_front();
}

KeptGamePtr keptGame(const Game& game, const std::string& reason, const std::string& result, const std::string& ended) {
    auto kept = std::make_shared<KeptGame>(KeptGame{game, reason, result, ended});
    kept->game.observers.clear();
    kept->game.seen.clear();
    kept->game.facts.legal.clear();
    return kept;
}

char resultSign(const KeptGame& kept, const std::string& name) {
    if (kept.result == "1/2-1/2") return '=';
    return (kept.result == "1-0") == (sideFor(kept.game, name) == 0) ? '+' : '-';
}

std::string historyTable(const Archive& archive, const std::string& name) {
    const auto shelf = archive.shelves.find(lower(name));
    if (shelf == archive.shelves.end()) return name + " has no history games.";
    std::string text = "History for " + name + ":\n                  Opponent      Type         ECO End Date";
    for (const auto& [index, kept] : shelf->second.games) {
        text += "\n" + historyRow(index, *kept, name);
    }
    return text;
}

std::string storedTable(const Archive& archive, const std::string& name,
                        const std::function<bool(const std::string&)>& isOnline) {
    std::string rows;
    int index = 0;
    for (const KeptGamePtr& kept : archive.adjourned) {
        if (!isOf(kept->game, name)) continue;
        const std::size_t side = sideFor(kept->game, name);
        rows += "\n" + storedRow(++index, *kept, side, isOnline(kept->game.names[1 - side]));
    }
    if (rows.empty()) return name + " has no adjourned games.";
    return "Stored games for " + name + ":\n    C Opponent       On Type          Str  M    ECO Date" + rows;
}

std::string keptMoveList(const KeptGame& kept) {
    return moveRows(kept.game) + "      {" + kept.reason + "} " + kept.result + "\n";
}

} // namespace practice
