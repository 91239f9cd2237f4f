// A hall without sockets and engines: its clock stands still until told, and its rules are mechanical.
#include "practice/HallRig.h"

#include <algorithm>
#include <utility>

using practice::Position;

namespace {

std::string placement(const Position& position) {
    std::string text;
    for (int rank = 8; rank >= 1; --rank) {
        int empty = 0;
        for (const char piece : position.rank(rank)) {
            if (piece == '-') {
                ++empty;
                continue;
            }
            if (empty > 0) text += std::to_string(empty);
            empty = 0;
            text += piece;
        }
        if (empty > 0) text += std::to_string(empty);
        if (rank > 1) text += "/";
    }
    return text;
}

char ofSide(char piece, bool white) { return static_cast<char>(white ? piece & ~0x20 : piece | 0x20); }

void drop(Position& position, char piece, const std::string& square) {
    position.hand.erase(position.hand.find(piece), 1);
    position.board[static_cast<std::size_t>(practice::squareIndex(square))] = piece;
}

void step(Position& position, const std::string& move, bool keepTaken) {
    const auto from = static_cast<std::size_t>(practice::squareIndex(move.substr(0, 2)));
    const auto to = static_cast<std::size_t>(practice::squareIndex(move.substr(2, 2)));
    const bool irreversible = position.board[to] != '-' || position.board[from] == 'P' || position.board[from] == 'p';
    position.halfmoves = irreversible ? 0 : position.halfmoves + 1;
    if (keepTaken && position.board[to] != '-') position.hand += ofSide(position.board[to], position.whiteToMove);
    position.board[to] = std::exchange(position.board[from], '-');
}

void carryOut(Position& position, const std::string& move, bool keepTaken) {
    if (move[1] == '@') {
        drop(position, ofSide(move[0], position.whiteToMove), move.substr(2));
    } else {
        step(position, move, keepTaken);
    }
    if (!position.whiteToMove) ++position.moveNumber;
    position.whiteToMove = !position.whiteToMove;
}

} // namespace

HallRig::HallRig() {
    hall.outside.now = [this] { return now; };
    hall.outside.wallClock = [] { return std::string("Sat Nov 21, 02:42 UTC 2026"); };
    hall.outside.later = [this](int milliseconds, std::function<void()> what) {
        timers_.push_back({now + milliseconds, std::move(what)});
    };
    hall.outside.rules = [this](const practice::Rules& rules, const std::string& fen, const std::string& move,
                                auto then) {
        askedRules = rules;
        auto answer = [this, fen, move, then] { then(factsOf(fen, move)); };
        if (holdRules) return held_.push_back(answer);
        answer();
    };
    hall.outside.search = [this](const practice::SearchOrder&, auto then) {
        timers_.push_back({now, [this, then] { then(proposals); }});
    };
    hall.start = factsOf(std::string(practice::startFen), {});
}

practice::Player& HallRig::enter(const std::string& name, const std::string& rating) {
    auto& player = hall.enter(name, rating == "++++" ? "(U)" : "", rating);
    player.show = [this, name](const std::string& text) { shown[name] += "|" + text; };
    player.resume = [this, name] { ++resumed[name]; };
    return player;
}

std::string HallRig::type(const std::string& name, const std::string& line) {
    return practice::runCommand(hall, *hall.find(name), line).text;
}

practice::Game& HallRig::match(const std::string& white, const std::string& black, const std::string& times) {
    type(white, "seek " + times + " unrated white");
    type(black, "play " + white);
    shown.clear();
    return *hall.game(hall.find(white)->playing);
}

std::string HallRig::takeShown(const std::string& name) { return std::exchange(shown[name], {}); }

void HallRig::pass(std::int64_t milliseconds) {
    const std::int64_t end = now + milliseconds;
    while (true) {
        const auto next = std::min_element(timers_.begin(), timers_.end(),
                                           [](const Timer& a, const Timer& b) { return a.due < b.due; });
        if (next == timers_.end() || next->due > end) break;
        const Timer timer = *next;
        timers_.erase(next);
        now = std::max(now, timer.due);
        timer.what();
    }
    now = end;
}

void HallRig::release() {
    for (const auto& answer : std::exchange(held_, {})) answer();
}

practice::PositionFacts HallRig::factsOf(const std::string& fen, const std::string& move) const {
    auto position = practice::readFen(fen).value();
    const bool drops = askedRules.engineName == "crazyhouse";
    if (!move.empty()) carryOut(position, move, drops);
    practice::PositionFacts facts;
    facts.fen = placement(position) + (drops ? "[" + position.hand + "]" : std::string()) +
                (position.whiteToMove ? " w KQkq - " : " b KQkq - ") + std::to_string(position.halfmoves) + " " +
                std::to_string(position.moveNumber);
    facts.check = check;
    facts.outcome = outcome.value_or(check ? practice::Outcome::Lost : practice::Outcome::Drawn);
    for (const std::string& each : known) {
        const bool fromHand =
            each[1] == '@' && position.hand.find(ofSide(each[0], position.whiteToMove)) != std::string::npos;
        const char piece = fromHand ? ofSide(each[0], position.whiteToMove) : position.at(each.substr(0, 2));
        if (piece != '-' && (piece < 'a') == position.whiteToMove) facts.legal.push_back(each);
    }
    return facts;
}
