// Move lists to read: recorded ones, and lines as the pipeline cuts them.
#pragma once

#include "common/RecordedText.h"
#include "common/Text.h"
#include "records/MoveListCapture.h"

#include <string>
#include <vector>

// The lines of `text`, each with CR LF, whatever ended it.
inline std::vector<std::string> linesWithEnds(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find_first_of("\r\n", at), text.size());
        lines.push_back(text.substr(at, end - at) + "\r\n");
        at = end + (end + 1 < text.size() && areBreakPair(text[end], text[end + 1]) ? 2 : 1);
    }
    return lines;
}

inline bool isHeader(const std::string& line) { return contains(line, ") vs. ") && contains(line, " --- "); }
inline bool isResultLine(const std::string& line) { return line.starts_with("      ") && contains(line, "} "); }

// The move lists of a file: from each header to the result line or, without one, to the prompt or the next header.
inline std::vector<std::vector<std::string>> moveListsIn(const std::string& file) {
    std::vector<std::vector<std::string>> lists;
    bool inside = false;
    for (const std::string& line : linesWithEnds(recordedText(file))) {
        if (isHeader(line)) {
            lists.emplace_back();
            inside = true;
        }
        inside = inside && !line.starts_with("fics% ");
        if (inside) lists.back().push_back(line);
        inside = inside && !isResultLine(line);
    }
    return lists;
}

// Reads the lines one after the other up to the last one of the answer; whether there was one.
inline bool readMoveList(const std::vector<std::string>& lines, GameRecord& record) {
    for (const std::string& line : lines) {
        if (zMovesLines(line, record).done) return true;
    }
    return false;
}

// "e4 (0:00) e5 (0:00); Nf3 (0:00)": the moves of the record with their times.
inline std::string movesOf(const GameRecord& record) {
    std::string text;
    for (int number = 1; number <= GameRecord::LastNumber; ++number) {
        const std::string& white = record.WhiteMoves[number];
        const std::string& black = record.BlackMoves[number];
        if (white.empty() && black.empty()) continue;
        text += (text.empty() ? "" : "; ") + white + " " + record.WhiteTimes[number];
        if (!black.empty()) text += " " + black + " " + record.BlackTimes[number];
    }
    return text;
}
