// Cuts one batch of server text into lines.
#pragma once

#include "common/FixedArray.h"

#include <functional>
#include <string>
#include <string_view>

// The lines of the batch being read; index 0 is the first. A complete line ends in CR LF whatever ended it on the
// wire. Never emptied between batches: a line is overwritten by the next batch or blanked by whoever takes it.
struct ServerLines {
    static constexpr int Last = 1000;

    FixedArray<std::string, Last, "lines of one batch"> lines;
    std::string PartialLine; // the latest unterminated tail; kept while batches end cleanly
    bool verbose = false;    // the tick of mnuStupid: nothing is blanked
    // Called for each unterminated tail: starts tmrPrompt. The cut itself needs nobody who hears it.
    std::function<void()> tailSeen = [] {};

    // The line at `index`; faults (subscript) outside 0..1000.
    std::string& operator[](long index) { return lines[index]; }
    const std::string& operator[](long index) const { return lines[index]; }

    // Fills `lines` from `text` and gives the number filled, 1 for an empty text. A line whose first character has a
    // code below 32 is stored empty. Faults (subscript) on line 1002 of a batch. `text` must not lie in `lines`.
    int zParse(std::string_view text);

    // Blanks the line at `index`, unless `verbose`. An index outside 0..1000 is ignored.
    void zClearLines(long index);
};
