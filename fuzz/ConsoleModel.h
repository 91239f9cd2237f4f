// What the console has to show of one batch in Verbose Mode, worked out apart from the classifier.
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// `text` without blanks and control characters, which the console may drop in front of a tell.
inline std::string squeezed(std::string_view text) {
    std::string result(text);
    std::erase_if(result, [](char c) { return static_cast<unsigned char>(c) < 33; });
    return result;
}

// The lines of a batch, each with CR LF but the last, which may be a tail. Any of CR, LF, CR LF and LF CR ends a line,
// and a line that begins with a control character counts as empty.
inline std::vector<std::string> linesOf(std::string_view batch) {
    const auto isBreak = [](char c) { return c == '\r' || c == '\n'; };
    std::vector<std::string> lines;
    while (!batch.empty()) {
        const auto end = batch.find_first_of("\r\n");
        std::string line(batch.substr(0, end));
        batch.remove_prefix(line.size());
        if (!batch.empty()) {
            const bool pair = batch.size() > 1 && isBreak(batch[1]) && batch[1] != batch[0];
            batch.remove_prefix(pair ? 2 : 1);
            line += "\r\n";
        }
        lines.push_back(std::move(line));
    }
    for (std::string& each : lines) {
        const auto first = static_cast<unsigned char>(each.front());
        if (first < 32 && !isBreak(each.front())) each = each.ends_with("\r\n") ? "\r\n" : "";
    }
    return lines;
}

// The squeezed text that a batch adds to the console in Verbose Mode; nothing when squeezing hides whether a line is
// the prompt or a continuation.
inline std::optional<std::string> verboseText(std::string_view batch, const std::string& prompt, bool promptShown) {
    std::string shown;
    for (std::string line : linesOf(batch)) {
        if (line.empty()) continue;
        const std::string visible = squeezed(line);
        if (line != prompt && visible == squeezed(prompt)) return std::nullopt;
        if (line.front() != '\\' && visible.starts_with('\\')) return std::nullopt;
        if (line.front() == '\\') {
            line.erase(0, 1);
            line.erase(0, line.find_first_not_of(' '));
        }
        const bool isPrompt = line == prompt;
        if (!promptShown || !isPrompt) shown += squeezed(line);
        promptShown = isPrompt;
    }
    return shown;
}

// The squeezed text of a line as the console shows it: a continuation without its backslash.
inline std::string visibleText(const std::string& line) {
    return squeezed(line.starts_with('\\') ? line.substr(1) : line);
}

// Calls `blank` for the lines from `number` on that vanish with the record in front of them: short ones, and those of
// bughouse.
template <typename Blank>
void blankShort(const std::vector<std::string>& lines, int number, Blank blank) {
    constexpr std::size_t Short = 15;
    for (auto at = static_cast<std::size_t>(number); at < lines.size(); ++at) {
        if (lines[at].size() > Short && lines[at].find("<b1>") == std::string::npos) return;
        blank(static_cast<int>(at));
    }
}

// True when `text` comes out of `whole` by leaving bytes out.
inline bool isLeftOf(std::string_view text, std::string_view whole) {
    std::size_t at = 0;
    for (const char c : whole) {
        if (at < text.size() && text[at] == c) ++at;
    }
    return at == text.size();
}
