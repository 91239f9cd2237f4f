// Help pages of a server in blocks, as the tests need them.
#pragma once

#include <string>
#include <vector>

inline const std::string Invitation = "Type [next] to see next page.\r\n";

// The lines of a page, from number 1 on: "line 1".
inline std::vector<std::string> helpLines(int count, int first = 1) {
    std::vector<std::string> lines;
    for (int i = 0; i < count; ++i) lines.push_back("line " + std::to_string(first + i) + "\r\n");
    return lines;
}

// As a server writes them.
inline std::string onWire(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line.substr(0, line.size() - 2) + "\n\r";
    return text;
}
