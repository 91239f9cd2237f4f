// How much of the text that is held for its prompt has to go ahead, since one batch can not hold it all.
#pragma once

#include <cstddef>
#include <string_view>

// The length of the front of `text` that goes ahead as a batch of its own; 0 while `text` fits into one batch of
// ServerLines. A line counts once for each 1,024 bytes begun, so that a line without end is bounded too. The batch
// behind the cut does not begin with a Style 12 line, nor with the line behind one or behind a bughouse line, wherever
// that can be had: the classifier reads these together with their neighbours.
std::size_t frontOfFullBatch(std::string_view text);
