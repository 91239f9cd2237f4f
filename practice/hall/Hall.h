// Everything that goes on at the server: players, games, ads.
#pragma once

#include "practice/games/Archive.h"
#include "practice/games/Game.h"
#include "practice/games/Offers.h"
#include "practice/games/Seeks.h"
#include "practice/hall/Outside.h"
#include "practice/hall/Player.h"
#include "practice/people/Accounts.h"

#include <cstdint>
#include <list>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace practice {

// The state of the server. Players stay at their place in memory as long as they are logged on; games do not live
// past their end, so whoever waits for an answer keeps a serial and looks the game up again.
struct Hall {
    Outside outside;
    Accounts accounts;
    PositionFacts start;    // of the start position
    std::uint32_t seed = 0; // decides the moves of all computers
    std::mt19937 random;    // for what need not come out the same again: delays, guests' names
    int moveDelay = 2500;   // milliseconds between the moves of two computers, varied by half
    int adPace = 15'000;    // milliseconds between two changes among the computers' ads, varied by half; 0 for none
    std::int64_t began = 0;
    std::list<Player> players;
    std::map<int, Game> games; // by number; a new game takes the lowest free number from 1 on
    SeekTable seeks;
    OfferTable offers;
    Archive archive;
    std::map<std::string, Variables> remembered; // of registered players who left, by small-letter handle
    std::uint64_t lastSerial = 0;

    // The player with this handle, letter case ignored; null if not logged on.
    Player* find(const std::string& name);

    // The player whose handle is `name` or alone begins with it; null if there is none or more than one.
    Player* findByHead(const std::string& name);

    // The settings of a player who is here, or of a registered one as he left; null if there are none.
    const Variables* settingsOf(const std::string& name);

    // The running game of this number or serial; null if there is none.
    Game* game(int number);
    Game* gameBySerial(std::uint64_t serial);

    // The game that this player plays or else examines; null if there is none.
    Game* gameAtBoard(const Player& player);

    // The same, else the game that he observes since last; null if there is none.
    Game* gameAtHand(const Player& player);

    // The games that this player plays; a computer may play several.
    std::vector<Game*> gamesOf(const Player& player);

    // Adds a player who just logged on and tells those who asked for it.
    Player& enter(const std::string& name, const std::string& title, const std::string& rating);

    // Takes a player out who has no part in anything any more, keeps a registered player's settings, and tells those
    // who asked for it. Whoever leaves with all that he has at stake goes by `leaveHall`.
    void remove(const Player& player);

    // Shows a block to a player who is logged on.
    void show(const std::string& name, const std::string& text);

    // A random delay from `low` to `high` milliseconds.
    int randomDelay(int low, int high);
};

} // namespace practice
