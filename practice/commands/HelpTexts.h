// The server's help.
#pragma once

#include <string>

namespace practice {

// The text of a topic, found by its name or its first letters; the overview for an empty name, and a sentence that
// begins "No help available" for an unknown one. Lines end with LF, the last one has no end.
std::string helpOn(const std::string& topic);

} // namespace practice
