// A player's settings on the server.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace practice {

// Settings by their small-letter names; switches hold 0 or 1. All names that can be set are always there. As they stand
// at first they are a registered player's.
struct Variables {
    std::map<std::string, int> numbers;
    std::string prompt = "fics% ";
    std::string interfaceName;
    std::vector<std::string> notes = std::vector<std::string>(10); // notes 1..10 of finger, empty if unset

    Variables();

    // The value of a variable; 0 for a name that does not exist.
    int value(const std::string& name) const;

    // The number of the last note that is set, 0..10.
    int noteCount() const;
};

// Carries out "set WORD VALUE" and gives the answer; a switch without a value toggles. WORD may be a variable or its
// first letters, "prompt", "interface", or a note's number 1..10, whose text is emptied by an empty value.
std::string applySetting(Variables& variables, const std::string& word, const std::string& value);

// The answer to "variables" for a player of this name: the columns, the prompt's line, the interface if it is known,
// and an empty line. The last line has no end.
std::string variablesTable(const std::string& name, const Variables& variables);

} // namespace practice
