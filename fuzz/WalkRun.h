// One walk through games on a board, beside a model: what fuzz_walk feeds.
#pragma once

#include "WalkModel.h"
#include "board/MoveInput.h"

#include <cstdint>
#include <string_view>
#include <vector>

// An input of fuzz_walk: two bytes a step. Bits 0 to 3 of the first say what happens, the second and the other four
// bits of the first how; WalkRun.cpp has the table. The server has a game of its own, and what it shows comes when the
// input says so: late, twice, or another position than was asked for. A fault past row 200 is an end that the rules
// provide for; any other is a finding.
class WalkRun {
public:
    explicit WalkRun(std::string_view bytes);

    // Gives the number of steps that were walked.
    int run();

private:
    void step(int what, int how);
    void ownMove(int how);
    void tryAnyMove(int how);
    void serverMoves(int how);
    void serverShows(bool newGame);
    void beginGame(int how);
    void newBoard();
    void loadTexts(int how);
    void writeText(int how);
    void check() const;
    void checkList() const;

    std::string_view rest_;
    std::unique_ptr<Game> game_ = quietGame();
    MoveInput input_;
    WalkModel model_;
    std::string label_;
    std::vector<std::string> sent_;

    std::unique_ptr<Game> server_ = quietGame();
    std::vector<Style12Record> shown_; // the server's game, position by position
    std::size_t place_ = 0;
    std::int16_t relation_ = 0;
};
