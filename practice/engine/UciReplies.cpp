// Reads what the chess engine writes.
#include "practice/engine/UciReplies.h"

#include "practice/text/Text.h"

#include <cstdlib>

namespace practice {

namespace {

constexpr int mateScore = 30'000;

int signedNumber(const std::string& text) { return static_cast<int>(std::strtol(text.c_str(), nullptr, 10)); }

// "score cp 31" or "score mate -2" as one scale.
int scoreOf(const std::string& kind, const std::string& text) {
    const int value = signedNumber(text);
    if (kind != "mate") return value;
    return value > 0 ? mateScore - value : -mateScore - value;
}

} // namespace

bool isEngineMove(std::string_view text) {
    if (text.size() != 4 && text.size() != 5) return false;
    const bool drop = text[1] == '@' && std::string_view("PNBRQ").find(text[0]) != std::string_view::npos;
    if (drop) return text.size() == 4 && squareIndex(text.substr(2, 2)) >= 0;
    if (squareIndex(text.substr(0, 2)) < 0 || squareIndex(text.substr(2, 2)) < 0) return false;
    return text.size() == 4 || std::string_view("qrbnk").find(text[4]) != std::string_view::npos;
}

// Fen: rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq - 0 1
// Checkers:
// a7a6: 1
// Nodes searched: 20
bool FactsReader::take(std::string_view line) {
    const std::string text = trim(line);
    if (startsWith(text, "Fen: ")) {
        facts.fen = text.substr(5);
    } else if (startsWith(text, "Checkers:")) {
        facts.check = text.size() > 9;
    } else if (startsWith(text, "Nodes searched:")) {
        return true;
    } else if (const auto colon = text.find(": "); colon != std::string::npos && isEngineMove(text.substr(0, colon))) {
        facts.legal.push_back(text.substr(0, colon));
    }
    return false;
}

bool SearchReader::take(std::string_view line) {
    const auto parts = words(line);
    if (parts.empty()) return false;
    if (parts[0] == "info") takeInfo(parts);
    if (parts[0] != "bestmove") return false;
    if (parts.size() > 1 && isEngineMove(parts[1])) best_ = parts[1];
    return true;
}

// info depth 6 seldepth 8 multipv 2 score cp 31 nodes 4021 pv d2d4 d7d5
void SearchReader::takeInfo(const std::vector<std::string>& parts) {
    int rank = 1;
    Candidate candidate;
    for (std::size_t i = 1; i + 1 < parts.size(); ++i) {
        if (parts[i] == "multipv") rank = signedNumber(parts[i + 1]);
        if (parts[i] == "score" && i + 2 < parts.size()) candidate.score = scoreOf(parts[i + 1], parts[i + 2]);
        if (parts[i] == "pv" && isEngineMove(parts[i + 1])) candidate.move = parts[i + 1];
    }
    if (!candidate.move.empty()) ranked_[rank] = candidate;
}

std::vector<Candidate> SearchReader::candidates() const {
    std::vector<Candidate> result;
    for (const auto& [rank, candidate] : ranked_) result.push_back(candidate);
    if (result.empty() && !best_.empty()) result.push_back({best_, 0});
    return result;
}

} // namespace practice
