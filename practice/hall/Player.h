// One who is logged on.
#pragma once

#include "practice/games/Offers.h"
#include "practice/people/Variables.h"

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace practice {

struct Game;

// What a player does by himself. A client does nothing: his user types. A computer's own room fills it in.
struct Reactions {
    std::function<void(Game&)> toMove = [](Game&) {}; // it is his move, and the position is known
    std::function<void(const PendingOffer&)> challenged = [](const PendingOffer&) {};
    std::function<void()> gameOver = [] {}; // a game of his has ended and is gone
};

// Somebody who is logged on: a client at its socket, or a computer.
struct Player {
    std::string name;
    std::string title;  // "", "(U)" for a guest, "(C)" for a computer that says what it is
    std::string rating; // four columns: "1711", " 886", "++++" for a guest, "----" for a player without rated games
    Variables variables;
    std::set<int> channels{1, 50};
    std::vector<int> observing; // game numbers, oldest first
    bool computer = false;      // not a client
    bool manyGames = false;     // a computer that plays several at once
    int playing = 0;            // game number; 0 for none and always 0 for one who plays several at once
    int examining = 0;          // game number; 0 for none
    char promotion = 'q';       // taken when a move names no piece
    std::string lastOpponent;   // for "say" after the game
    Terms lastTerms;            // of the last game, for "rematch"
    std::string lastTold;       // for "tell ."
    std::string unread;         // of the latest help, for "next"
    std::int64_t since = 0;
    std::int64_t lastTyped = 0;
    std::function<void(const std::string&)> show = [](const std::string&) {}; // a block that was not asked for
    std::function<void()> resume = [] {}; // the rules answered: go on reading this player's lines
    Reactions reactions;

    // Somebody without an account.
    bool isGuest() const { return title == "(U)"; }

    // True for a game of his own and the setting to be left alone in it.
    bool playsInSilence() const { return playing != 0 && variables.value("silence") != 0; }

    // The rating without the blanks that fill its four columns, and as a number: 0 for none.
    std::string shortRating() const;
    int ratingValue() const;

    // The handle with its title: "Willow(C)".
    std::string titled() const { return name + title; }
};

} // namespace practice
