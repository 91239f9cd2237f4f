// Lines of the server's lists of games, in their columns.
#pragma once

#include "records/HistoryLists.h"

#include <string>
#include <vector>

// As the classifier gets them.
inline const std::string GameRow =
    " 5: + 1735 W 1059 cesarCR       [ br  5  12] C53 Res Thu Oct 24, 16:32 EST 2002\r\n";
inline const std::string SlotRow = "%01: tentacle      2291    larsa         2050    [ lr  1   2] D35 Rep 1/2-1/2\r\n";
inline const std::string StoredRow =
    " 2: W PyChess         Y [psu  2  12] 39-39 W3   C20 Sun Jan 11, 17:40 ??? 2009\r\n";

inline std::string numbered(int number, const std::string& row) {
    const std::string digits = std::to_string(number);
    return std::string(2 - digits.size(), ' ') + digits + row.substr(2);
}

// The fields 0 to 10 of a row, the capture's reader being `read`.
template <typename Read>
std::vector<std::string> fieldsOf(Read read, const std::string& line) {
    HistoryLists lists;
    read(lists, line);
    if (lists.HistCount != 1) return {};
    return {lists.HistRows[0].begin(), lists.HistRows[0].end()};
}
