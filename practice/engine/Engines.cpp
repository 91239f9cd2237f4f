// The engines behind the hall: one that knows the rules, and two that think.
#include "practice/engine/Engines.h"

#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace practice {

namespace {

constexpr int thinkerCount = 2;
constexpr const char* smallEngine = "setoption name Threads value 1\nsetoption name Hash value 4\n";

// Told before each question: the same engine serves games of all kinds.
std::string rulesText(const Rules& rules) {
    return "setoption name UCI_Chess960 value " + std::string(rules.chess960 ? "true" : "false") +
           "\nsetoption name UCI_Variant value " + rules.engineName + "\n";
}

std::string positionCommand(const SearchOrder& order) {
    std::string text = "position fen " + order.startFen + " moves";
    for (const std::string& move : order.moves) text += " " + move;
    return text + "\n";
}

// A fresh table before each search keeps a seed's games the same, whatever was asked before.
std::string searchText(const SearchOrder& order) {
    return rulesText(order.rules) + "ucinewgame\nsetoption name MultiPV value " + std::to_string(order.proposals) +
           "\n" + positionCommand(order) + "go depth " + std::to_string(order.depth) + "\n";
}

// A question whose answer `reader` collects, from the start again if the question is put again.
template <class Reader>
EngineProcess::Request question(std::string text, const std::shared_ptr<Reader>& reader, std::function<void()> done) {
    return {std::move(text), [reader] { *reader = {}; }, [reader](std::string_view line) { return reader->take(line); },
            std::move(done)};
}

} // namespace

QString findEngine(const QString& wanted) {
    if (!wanted.isEmpty()) return QFileInfo(wanted).isExecutable() ? wanted : QStandardPaths::findExecutable(wanted);
    const QString name = QStringLiteral("fairy-stockfish");
    const QString found = QStandardPaths::findExecutable(name);
    if (!found.isEmpty()) return found;
    return QStandardPaths::findExecutable(name, {QStringLiteral("/usr/games"), QStringLiteral("/usr/bin")});
}

Engines::Engines(const QString& program, const std::function<void()>& onGone) {
    std::string setup = smallEngine;
    if (ownRules_.open()) {
        ownRules_.write(QByteArray::fromStdString(std::string(practice::ownRules())));
        ownRules_.close();
        setup += "setoption name VariantPath value " + ownRules_.fileName().toLocal8Bit().toStdString() + "\n";
    }
    judge_ = std::make_unique<EngineProcess>(program, "rules", setup, onGone);
    for (int i = 0; i < thinkerCount; ++i) {
        thinkers_.push_back(std::make_unique<EngineProcess>(program, "thinking", setup, onGone));
    }
}

// The board is asked for before the moves: the last line of the second answer ends both.
void Engines::rules(const Rules& rules, const std::string& fen, const std::string& move,
                    std::function<void(PositionFacts)> then) {
    const auto reader = std::make_shared<FactsReader>();
    auto done = [this, rules, fen, move, reader, then = std::move(then)] {
        if (!reader->facts.legal.empty() || move.empty()) return then(reader->facts);
        judgeEnd(rules, fen, move, [reader, then](Outcome outcome) {
            reader->facts.outcome = outcome;
            then(reader->facts);
        });
    };
    judge_->ask(question(rulesText(rules) + "position fen " + fen + (move.empty() ? "" : " moves " + move) +
                             "\nd\ngo perft 1\n",
                         reader, std::move(done)));
}

// A search of the last move alone: two plies deep it sees every end, stalemates that win or lose among them.
void Engines::judgeEnd(const Rules& rules, const std::string& fen, const std::string& move,
                       std::function<void(Outcome)> then) {
    const auto reader = std::make_shared<SearchReader>();
    auto done = [reader, then = std::move(then)] {
        const auto found = reader->candidates();
        const int score = found.empty() ? 0 : found.front().score;
        then(score >= mateInSight ? Outcome::Lost : score <= -mateInSight ? Outcome::Won : Outcome::Drawn);
    };
    judge_->ask(question(rulesText(rules) + "position fen " + fen + "\ngo depth 2 searchmoves " + move + "\n", reader,
                         std::move(done)));
}

void Engines::search(const SearchOrder& order, std::function<void(std::vector<Candidate>)> then) {
    const auto reader = std::make_shared<SearchReader>();
    const auto least = std::min_element(thinkers_.begin(), thinkers_.end(),
                                        [](const auto& a, const auto& b) { return a->waiting() < b->waiting(); });
    (*least)->ask(
        question(searchText(order), reader, [reader, then = std::move(then)] { then(reader->candidates()); }));
}

} // namespace practice
