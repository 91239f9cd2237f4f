// Games that are over or adjourned, and the lists that tell of them.
#pragma once

#include "practice/games/KeptGame.h"

#include <array>
#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace practice {

// The last games of each player, the journal of games that he chose to keep, and the adjourned games of all. Old games
// make room for new ones, so the memory stays bounded.
struct Archive {
    static constexpr std::size_t gamesOfOne = 10; // as many as clients hold
    static constexpr std::size_t adjournedLimit = 50;
    static constexpr int numbers = 100; // a player's games are numbered 0..99, over and over
    static constexpr int slots = 10;    // of a journal, from 1 on; players call them A to J

    // The last games of one player with their numbers, oldest first.
    struct Shelf {
        std::deque<std::pair<int, KeptGamePtr>> games;
        int next = 0;
    };

    using Journal = std::array<KeptGamePtr, slots>; // null in an empty slot

    std::map<std::string, Shelf> shelves;    // by small-letter handle
    std::map<std::string, Journal> journals; // by small-letter handle
    std::deque<KeptGamePtr> adjourned;       // oldest first
    std::function<void()> changed = [] {};   // something is kept, or is not any more

    // Keeps a finished game for both its players.
    void keep(const KeptGamePtr& game);

    // The game in a slot of a player's journal; null if it is empty.
    KeptGamePtr inJournal(const std::string& name, int slot) const;

    // Puts a game, or null, into a slot in place of what was there.
    void putInJournal(const std::string& name, int slot, const KeptGamePtr& game);

    // Forgets the games and the journal of a player; his opponents keep theirs.
    void forget(const std::string& name);

    // A game of a player by its number, or counted from the last as "-1"; null if there is none.
    KeptGamePtr find(const std::string& name, const std::string& which) const;

    // The adjourned game of two players; null if there is none. `takeAdjourned` removes it as well.
    KeptGamePtr adjournedBetween(const std::string& one, const std::string& other) const;
    KeptGamePtr takeAdjourned(const std::string& one, const std::string& other);

    // Keeps an adjourned game; one of the same two players makes room.
    void adjourn(const KeptGamePtr& game);
};

// The answer to "history"; clients read its rows by columns.
std::string historyTable(const Archive& archive, const std::string& name);

// The answer to "journal"; read by columns too.
std::string journalTable(const Archive& archive, const std::string& name);

// The answer to "stored"; `isOnline` tells whether an opponent is there.
std::string storedTable(const Archive& archive, const std::string& name,
                        const std::function<bool(const std::string&)>& isOnline);

} // namespace practice
