// The engines behind the hall: one that knows the rules, and two that think.
#pragma once

#include "practice/engine/EngineProcess.h"
#include "practice/engine/SearchOrder.h"
#include "practice/engine/UciReplies.h"

#include <QTemporaryFile>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace practice {

// Where the engine program is: `wanted` if given, else "fairy-stockfish" in PATH, /usr/games or /usr/bin. Empty if
// there is no such program.
QString findEngine(const QString& wanted);

// Owns the engine processes. All answers come from the event loop.
class Engines {
public:
    // Starts three processes; `onGone` is called when one of them cannot be kept alive.
    Engines(const QString& program, const std::function<void()>& onGone);

    // Plays `move` (none if empty) on `fen` and hands over what is legal then, and how the position counts if nothing
    // is.
    void rules(const Rules& rules, const std::string& fen, const std::string& move,
               std::function<void(PositionFacts)> then);

    // Looks for moves; the thinker with the shorter queue gets the order.
    void search(const SearchOrder& order, std::function<void(std::vector<Candidate>)> then);

private:
    // Asks how the game stands that `move` on `fen` has ended.
    void judgeEnd(const Rules& rules, const std::string& fen, const std::string& move,
                  std::function<void(Outcome)> then);

    QTemporaryFile ownRules_; // read by each engine when it starts
    std::unique_ptr<EngineProcess> judge_;
    std::vector<std::unique_ptr<EngineProcess>> thinkers_;
};

} // namespace practice
