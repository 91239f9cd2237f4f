// What one batch can hold, and how much goes ahead of text that is held for its prompt and has become too much.
#pragma once

#include "session/ServerLines.h"

#include <cstddef>
#include <string_view>

// What may be held for its prompt: far more than any answer has, and little enough that a line without an end is
// bounded.
inline constexpr std::size_t MostHeldBytes = 1'048'576;

// Counts the bytes of a text which comes in pieces, and the lines that ServerLines makes of it.
class LineCount {
public:
    void add(std::string_view piece);
    std::size_t lines() const { return ended_ + (tail_ ? 1 : 0); }
    bool overfull() const { return lines() > ServerLines::Last + 1 || bytes_ > MostHeldBytes; }

private:
    std::size_t bytes_ = 0;
    std::size_t ended_ = 0;
    bool tail_ = false;
    char single_ = 0; // the CR or LF at the end, whose partner may come; 0 if there is none
};

// The length of the front of `text`, which is overfull, that goes ahead as a batch of its own: nearly all that one can
// hold, and never all of `text`. What follows does not begin with a Style 12 line, nor with the line behind one or
// behind a bughouse line, wherever that can be had: the classifier reads these together with their neighbours. A line
// is cut only where it fills the batch alone.
std::size_t frontOfFullBatch(std::string_view text);
