// Reads the server's answer to "sought": one ad a line in fixed columns, and a line that counts them.
#pragma once

#include "seek/SeekAds.h"

#include <functional>
#include <string>

// True if the line, CR LF included, belongs to such an answer. Stores nothing and never faults. An untimed ad of 0 0 is
// none here, and the columns behind a name of 18 characters are not moved.
bool zSoughtLine(const std::string& line);

// Reads the line into `table`; true when it ends the answer. A line that was taken is removed by `zClearLines`, which
// may empty `line`. Faults (subscript) on an ad behind the last entry, and (overflow) on a number beyond 16 bits.
bool zSoughtLines(SeekTable& table, const std::string& line, const std::function<void()>& zClearLines);
