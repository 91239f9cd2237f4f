// What a command is: its arguments, its routine and its answer.
#pragma once

#include "practice/hall/Hall.h"

#include <map>
#include <string>
#include <vector>

namespace practice {

// What a command has to say. Empty text with a prompt gives the prompt alone.
struct Answer {
    std::string text;
    bool prompt = true;   // false when nothing is said and the effect shows as blocks, at once or later
    bool leaving = false; // the session ends after the text
};

// What a command did shows as blocks of its own.
inline const Answer quiet{{}, false, false};

// Complaints of several subjects; `word` is what was typed for a handle.
inline const Answer notPlaying{"You are not playing a game."};
inline const Answer noGameAtHand{"You are neither playing, observing nor examining a game."};
Answer noSuchPlayer(const std::string& word);
Answer notOnline(const std::string& word);

// What follows a command's word.
struct Arguments {
    std::vector<std::string> words;
    std::string rest; // the same in one piece, blanks inside kept

    // The word at `index`; empty if there are fewer.
    std::string word(std::size_t index) const { return index < words.size() ? words[index] : std::string(); }

    // What follows the first word.
    std::string restBehindFirst() const;
};

// A command's routine.
using CommandRoutine = Answer (*)(Hall& hall, Player& player, const Arguments& arguments);

// The routines of one subject by the full names of their commands.
using CommandTable = std::map<std::string, CommandRoutine>;

} // namespace practice
