// Everything that goes on at the server: players, games, ads, and what the hall needs from outside.
#pragma once

#include "practice/games/Archive.h"
#include "practice/games/Game.h"
#include "practice/games/Offers.h"
#include "practice/hall/Computers.h"
#include "practice/people/Accounts.h"
#include "practice/people/Variables.h"

#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <random>
#include <set>
#include <string>

namespace practice {

// A request to look for moves in a running game.
struct SearchOrder {
    Rules rules;
    std::string startFen;
    std::vector<std::string> moves; // from `startFen` on, in engine form
    int depth = 1;
    int proposals = 1;
};

// What the hall cannot do itself. Every member must be set before use; answers may come at once or later, but only
// from the thread that calls the hall.
struct Outside {
    std::function<std::int64_t()> now;      // steady milliseconds
    std::function<std::string()> wallClock; // "Sat Nov 21, 02:42 UTC 2026"
    std::function<void(int milliseconds, std::function<void()>)> later;
    // Plays `move` (none if empty) on `fen` and hands over the facts of the position reached.
    std::function<void(const Rules&, const std::string& fen, const std::string& move,
                       std::function<void(PositionFacts)>)>
        rules;
    std::function<void(const SearchOrder&, std::function<void(std::vector<Candidate>)>)> search;
};

// Somebody who is logged on: a client at its socket, or a computer.
struct Player {
    std::string name;
    std::string title;  // "", "(U)" for a guest, "(C)" for a computer
    std::string rating; // "1711", "++++" for a guest, "----" for a registered player without games
    Variables variables;
    std::set<int> channels{1, 50};
    std::vector<int> observing; // game numbers, oldest first
    int playing = 0;            // game number; 0 for none and always 0 for a computer
    int examining = 0;          // game number; 0 for none
    char promotion = 'q';       // taken when a move names no piece
    std::string lastOpponent;   // for "say" after the game
    Terms lastTerms;            // of the last game, for "rematch"
    std::string lastTold;       // for "tell ."
    std::int64_t since = 0;
    std::int64_t lastTyped = 0;
    std::function<void(const std::string&)> show = [](const std::string&) {}; // a block that was not asked for
    std::function<void()> resume = [] {}; // the rules answered: go on reading this player's lines

    // A computer player; never a client.
    bool isComputer() const { return title == "(C)"; }

    // Somebody without an account.
    bool isGuest() const { return title == "(U)"; }

    // The handle with its title: "Willow(C)".
    std::string titled() const { return name + title; }
};

// The state of the server. Players stay at their place in memory as long as they are logged on; games do not live
// past their end, so whoever waits for an answer keeps a serial and looks the game up again.
struct Hall {
    Outside outside;
    Accounts accounts;
    PositionFacts start;    // of the start position
    std::uint32_t seed = 0; // decides the moves of all computers
    std::mt19937 random;    // for what need not come out the same again: delays, guests' names
    int moveDelay = 2500;   // milliseconds between the moves of two computers, varied by half
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

    // Takes a player out: games end, ads and observations go.
    void leave(const std::string& name);

    // Shows a block to a player who is logged on.
    void show(const std::string& name, const std::string& text);

    // A random delay from `low` to `high` milliseconds.
    int randomDelay(int low, int high);
};

} // namespace practice
