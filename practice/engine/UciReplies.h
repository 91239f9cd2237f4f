// Reads what the chess engine writes.
#pragma once

#include "practice/chess/Position.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace practice {

// Scores beyond this on either side are mates in sight, or other ends of the game.
inline constexpr int mateInSight = 29'000;

// A move that a search proposes, with its worth for the side to move in hundredths of a pawn; mates stand beyond
// `mateInSight` on either side.
struct Candidate {
    std::string move;
    int score = 0;
};

// True if `text` has the form of an engine's move: "e2e4", "e7e8q" or "N@f3".
bool isEngineMove(std::string_view text);

// Collects the answer to "d" followed by "go perft 1".
struct FactsReader {
    PositionFacts facts;

    // Takes one line without its end; true once the last line of the answer came.
    bool take(std::string_view line);
};

// Collects a search's answer: the last proposal for each rank of its lines.
struct SearchReader {
    // Takes one line without its end; true once the line with the best move came.
    bool take(std::string_view line);

    // The proposals, best first; the best move alone when the engine told no scores, and nothing when the game is over.
    std::vector<Candidate> candidates() const;

private:
    void takeInfo(const std::vector<std::string>& parts);

    std::map<int, Candidate> ranked_;
    std::string best_;
};

} // namespace practice
