// One game: who plays and what was moved.
#pragma once

#include "practice/chess/GameClock.h"
#include "practice/chess/Position.h"
#include "practice/chess/Variants.h"
#include "practice/games/Terms.h"

#include <array>
#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace practice {

// A half-move with its texts, as the board line and the move list show them.
struct PlayedMove {
    std::string engineForm; // "g1f3"
    std::string verbose;    // "N/g1-f3"
    std::string pretty;     // "Nf3+"
    std::int64_t taken = 0; // milliseconds
    int doublePushFile = -1;
    std::string fen{};     // the position after it
    GameClock clock{};     // as it stood after it
    std::string triedBy{}; // the examiner who moved; empty for a move that was played
};

// A game that is played or examined. `facts` always belongs to the position after the last of `moves`, unless `pending`
// is true: then a move is on its way through the rules engine and nothing else may be moved.
struct Game {
    // Clients hold 200 moves of each side; one less leaves them room for the position after the last.
    static constexpr std::size_t plyLimit = 398;

    std::uint64_t serial = 0; // never used twice, unlike the number
    int number = 0;
    std::array<std::string, 2> names;   // white, black; without titles
    std::array<std::string, 2> ratings; // "1711", "++++", "----" without blanks in front
    Terms terms;
    Rules rules;
    std::string startFen;
    std::string startedAt; // "Sat Nov 21, 02:42 UTC 2026"
    GameClock firstClock;  // before the first move
    GameClock clock;
    std::vector<PlayedMove> moves; // oldest first
    PositionFacts facts;
    std::mt19937 dice; // the game's own, so that others do not change its course
    bool pending = false;
    bool isPrivate = false;          // nobody may observe it
    std::map<std::string, int> seen; // how often each position stood, by its repetition key
    std::uint64_t course = 0;        // grows with each move made or taken back
    int computerScore = 0;           // what the computer at the board thought of its chances, in hundredths of a pawn
    std::vector<std::string> observers; // handles, in the order in which they came
    std::vector<std::string> examiners; // handles, the first to come first; none for a game that is played
    std::vector<PlayedMove> mainLine;   // what was played in an examined game; `moves` is what is shown of it or tried
    std::string mainEnd;                // "Ada resigns 1-0": how an examined game ended

    // The side to move: 0 white, 1 black.
    int toMove() const;

    // 0 for white's handle, 1 for black's, -1 for any other name; letter case counts. An examined game has no players.
    int sideOf(const std::string& name) const;

    // The handle of a side: 0 white, 1 black.
    const std::string& nameOf(int side) const { return names[side == 0 ? 0U : 1U]; }

    // True while somebody examines it.
    bool isExamined() const { return !examiners.empty(); }

    // True for one of the examiners' handles, and for one of the observers'.
    bool isExaminer(const std::string& name) const;
    bool isObserver(const std::string& name) const;

    // The other player's handle, for one of the two.
    const std::string& opponentOf(const std::string& name) const { return names[names[0] == name ? 1U : 0U]; }

    // The number of the move about to be made, from 1 on.
    int moveNumber() const;
};

} // namespace practice
