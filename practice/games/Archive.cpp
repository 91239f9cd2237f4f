// Games that are over or adjourned, and the lists that tell of them.
#include "practice/games/Archive.h"

#include "practice/text/Text.h"

#include <algorithm>

namespace practice {

namespace {

// 66: - 1735 B    0 GuestHKZX     [ bu  3   0] --- Res Sun Dec  6, 15:50 EST 2015
std::string historyRow(int index, const KeptGame& kept, const std::string& name) {
    const Game& game = kept.game;
    const std::size_t side = sideFor(game, name);
    return padLeft(index, 2) + ": " + resultSign(kept, name) + " " + ratingCell(game.ratings[side]) + " " +
           (side == 0 ? "W " : "B ") + ratingCell(game.ratings[1 - side]) + " " + handleCell(game.names[1 - side]) +
           " " + typeCell(game.terms) + " --- " + endLetters(kept) + " " + kept.ended;
}

// %01: tentacle      2291    larsa         2050    [ lr  1   2] D35 Rep 1/2-1/2
std::string journalRow(int slot, const KeptGame& kept) {
    const Game& game = kept.game;
    const std::string number = std::to_string(slot);
    return "%" + std::string(2 - number.size(), '0') + number + ": " + handleCell(game.names[0]) + " " +
           ratingCell(game.ratings[0]) + "    " + handleCell(game.names[1]) + " " + ratingCell(game.ratings[1]) +
           "    " + typeCell(game.terms) + " --- " + endLetters(kept) + " " + padRight(kept.result, 7);
}

//  1: W Berta           Y [ sr 15   0] 39-39 W3   --- Sat Nov 21, 02:43 UTC 2026
std::string storedRow(int index, const KeptGame& kept, std::size_t side, bool online) {
    const Game& game = kept.game;
    const auto position = readFen(game.facts.fen).value_or(Position{});
    const std::string strength = padLeft(materialStrength(position, true), 2) + "-" +
                                 padRight(std::to_string(materialStrength(position, false)), 2);
    const std::string move = (game.toMove() == 0 ? "W" : "B") + std::to_string(game.moveNumber());
    return padLeft(index, 2) + ": " + (side == 0 ? "W " : "B ") + handleCell(game.names[1 - side]) +
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
    changed();
}

void Archive::forget(const std::string& name) {
    const bool had = shelves.erase(lower(name)) + journals.erase(lower(name)) > 0;
    if (had) changed();
}

KeptGamePtr Archive::inJournal(const std::string& name, int slot) const {
    const auto journal = journals.find(lower(name));
    return journal == journals.end() ? nullptr : journal->second.at(static_cast<std::size_t>(slot - 1));
}

void Archive::putInJournal(const std::string& name, int slot, const KeptGamePtr& game) {
    journals[lower(name)].at(static_cast<std::size_t>(slot - 1)) = game;
    changed();
}

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
    if (!found) return nullptr;
    std::erase(adjourned, found);
    changed();
    return found;
}

void Archive::adjourn(const KeptGamePtr& game) {
    std::erase(adjourned, adjournedBetween(game->game.names[0], game->game.names[1]));
    adjourned.push_back(game);
    if (adjourned.size() > adjournedLimit) adjourned.pop_front();
    changed();
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

std::string journalTable(const Archive& archive, const std::string& name) {
    std::string rows;
    for (int slot = 1; slot <= Archive::slots; ++slot) {
        if (const KeptGamePtr kept = archive.inJournal(name, slot)) rows += "\n" + journalRow(slot, *kept);
    }
    if (rows.empty()) return name + " has no journal entries.";
    return "Journal for " + name + ":\n    White         Rating  Black         Rating  Type         ECO End Result" +
           rows;
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

} // namespace practice
