// Games that are over or adjourned, and the lists and move lists that tell of them.
#pragma once

#include "practice/games/Game.h"

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace practice {

// A game as it stood at its end; nobody observes it and nothing is pending.
struct KeptGame {
    Game game;
    std::string reason; // "Ada resigns"
    std::string result; // "1-0"
    std::string ended;  // "Sat Nov 21, 02:42 UTC 2026"
};

using KeptGamePtr = std::shared_ptr<const KeptGame>;

// The last games of each player, and the adjourned games of all. Old games make room for new ones, so the memory stays
// bounded.
struct Archive {
    static constexpr std::size_t gamesOfOne = 10; // as many as clients hold
    static constexpr std::size_t adjournedLimit = 50;
    static constexpr int numbers = 100; // a player's games are numbered 0..99, over and over

    // The last games of one player with their numbers, oldest first.
    struct Shelf {
        std::deque<std::pair<int, KeptGamePtr>> games;
        int next = 0;
    };

    std::map<std::string, Shelf> shelves; // by small-letter handle
    std::deque<KeptGamePtr> adjourned;    // oldest first

    // Keeps a finished game for both its players.
    void keep(const KeptGamePtr& game);

    // Forgets the games of a player; his opponents keep them.
    void forget(const std::string& name);

    // A game of a player by its number, or counted from the last as "-1"; null if there is none.
    KeptGamePtr find(const std::string& name, const std::string& which) const;

    // The adjourned game of two players; null if there is none. `takeAdjourned` removes it as well.
    KeptGamePtr adjournedBetween(const std::string& one, const std::string& other) const;
    KeptGamePtr takeAdjourned(const std::string& one, const std::string& other);

    // Keeps an adjourned game; one of the same two players makes room.
    void adjourn(const KeptGamePtr& game);
};

// A copy of a game as it is kept.
KeptGamePtr keptGame(const Game& game, const std::string& reason, const std::string& result, const std::string& ended);

// '+', '-' or '=': how one of its two players did in a game.
char resultSign(const KeptGame& kept, const std::string& name);

// The answer to "history"; clients read its rows by columns.
std::string historyTable(const Archive& archive, const std::string& name);

// The answer to "stored"; `isOnline` tells whether an opponent is there.
std::string storedTable(const Archive& archive, const std::string& name,
                        const std::function<bool(const std::string&)>& isOnline);

// The moves of a kept game as "moves" gives them, with the result in the last line.
std::string keptMoveList(const KeptGame& kept);

} // namespace practice
