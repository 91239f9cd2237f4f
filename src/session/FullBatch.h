// What one batch can hold, and how much goes ahead of text that is held for its prompt and has become too much.
#pragma once

#include "session/ServerLines.h"

#include <cstddef>
#include <string_view>

// Counts the lines that ServerLines makes of a text which comes in pieces.
class LineCount {
public:
    void add(std::string_view piece);
    std::size_t lines() const { return ended_ + (tail_ ? 1 : 0); }
    bool overfull() const { return lines() > ServerLines::Last + 1; }

private:
    std::size_t ended_ = 0;
    bool tail_ = false;
    char single_ = 0; // the CR or LF at the end, whose partner may come; 0 if there is none
};

// The length of the front of `text`, which is overfull, that goes ahead as a batch of its own: nearly all that one can
// hold. What follows does not begin with a Style 12 line, nor with the line behind one or behind a bughouse line,
// wherever that can be had: the classifier reads these together with their neighbours.
std::size_t frontOfFullBatch(std::string_view text);
