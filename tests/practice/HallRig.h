// A hall without sockets and engines: its clock stands still until told, and its rules are mechanical.
#pragma once

#include "practice/commands/Commands.h"
#include "practice/hall/Hall.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

// Moves are carried out on the board whatever they are, in crazyhouse with hands and drops; the legal moves of a
// position are those of `known` whose piece belongs to the side to move. A search answers with `proposals`; without any
// the first legal move is played.
struct HallRig {
    practice::Hall hall;
    std::int64_t now = 1'000'000;
    std::vector<std::string> known{"e2e4", "d2d4", "e7e5", "g1f3", "f3g1", "b8c6",
                                   "g8f6", "f6g8", "f1c4", "d1h5", "h5f7"};
    std::vector<practice::Candidate> proposals;
    bool check = false;                       // what the rules say of the next position
    std::optional<practice::Outcome> outcome; // of a position without moves; else lost in check and drawn without
    practice::Rules askedRules;               // what the last question to the rules was about
    bool holdRules = false;                   // keep the rules' answers back until release()
    std::map<std::string, std::string> shown; // all blocks by handle, each behind a "|"
    std::map<std::string, int> resumed;       // how often a player's lines could go on

    HallRig();
    HallRig(const HallRig&) = delete;
    HallRig& operator=(const HallRig&) = delete;

    // Logs somebody on: a guest without a rating, or a registered player.
    practice::Player& enter(const std::string& name, const std::string& rating = "++++");

    // Runs a typed line and gives the answer's text.
    std::string type(const std::string& name, const std::string& line);

    // Seeks and plays: a running game with `white` and `black`, whose blocks are forgotten.
    practice::Game& match(const std::string& white, const std::string& black, const std::string& times = "5 0");

    // What was shown to a player since the last call.
    std::string takeShown(const std::string& name);

    // Lets time pass and runs what falls due.
    void pass(std::int64_t milliseconds);

    // How many things wait for their time.
    std::size_t timers() const { return timers_.size(); }

    // Gives the rules' answers that were kept back.
    void release();

private:
    struct Timer {
        std::int64_t due;
        std::function<void()> what;
    };

    practice::PositionFacts factsOf(const std::string& fen, const std::string& move) const;

    std::vector<Timer> timers_;
    std::vector<std::function<void()>> held_;
};
