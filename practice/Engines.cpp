// The engines behind the hall: one that knows the rules, and two that think.
#include "practice/Engines.h"

#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace practice {

namespace {

constexpr int thinkerCount = 2;
constexpr const char* smallEngine = "setoption name Threads value 1\nsetoption name Hash value 4\n";

std::string positionCommand(const SearchOrder& order) {
    std::string text = "position startpos moves";
    for (const std::string& move : order.moves) text += " " + move;
    return text + "\n";
}

// A fresh table before each search keeps a seed's games the same, whatever was asked before.
std::string searchText(const SearchOrder& order) {
    return "ucinewgame\nsetoption name MultiPV value " + std::to_string(order.proposals) + "\n" +
           positionCommand(order) + "go depth " + std::to_string(order.depth) + "\n";
}

} // namespace

QString findEngine(const QString& wanted) {
    if (!wanted.isEmpty()) return QFileInfo(wanted).isExecutable() ? wanted : QStandardPaths::findExecutable(wanted);
    const QString name = QStringLiteral("fairy-stockfish");
    const QString found = QStandardPaths::findExecutable(name);
    if (!found.isEmpty()) return found;
    return QStandardPaths::findExecutable(name, {QStringLiteral("/usr/games"), QStringLiteral("/usr/bin")});
}

Engines::Engines(const QString& program, const std::function<void()>& onGone)
    : judge_(std::make_unique<EngineProcess>(program, "rules", smallEngine, onGone)) {
    for (int i = 0; i < thinkerCount; ++i) {
        thinkers_.push_back(std::make_unique<EngineProcess>(program, "thinking", smallEngine, onGone));
    }
}

// The board is asked for before the moves: the last line of the second answer ends both.
void Engines::rules(const std::string& fen, const std::string& move, std::function<void(PositionFacts)> then) {
    const auto reader = std::make_shared<FactsReader>();
    EngineProcess::Request request;
    request.text = "position fen " + fen + (move.empty() ? "" : " moves " + move) + "\nd\ngo perft 1\n";
    request.restart = [reader] { *reader = {}; };
    request.take = [reader](std::string_view line) { return reader->take(line); };
    request.done = [reader, then = std::move(then)] { then(reader->facts); };
    judge_->ask(std::move(request));
}

void Engines::search(const SearchOrder& order, std::function<void(std::vector<Candidate>)> then) {
    const auto reader = std::make_shared<SearchReader>();
    EngineProcess::Request request;
    request.text = searchText(order);
    request.restart = [reader] { *reader = {}; };
    request.take = [reader](std::string_view line) { return reader->take(line); };
    request.done = [reader, then = std::move(then)] { then(reader->candidates()); };
    const auto least = std::min_element(thinkers_.begin(), thinkers_.end(),
                                        [](const auto& a, const auto& b) { return a->waiting() < b->waiting(); });
    (*least)->ask(std::move(request));
}

} // namespace practice
