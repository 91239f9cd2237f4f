// The user's ten finger notes on the server: how its answer is read, and what is sent back of those that were changed.
#pragma once

#include "panels/ChangeRoad.h"

#include <array>
#include <string>
#include <string_view>

inline constexpr std::size_t FingerNotes = 10;

// Takes one line of the answer to "finger", CR LF included, into modChess.NotesText; true when it is the prompt, which
// ends the answer. A note is a line of 11 characters or more with ":" as its third, " 3: some text"; all other lines
// are passed over. Faults (subscript) on a note's number outside 1..10.
bool zNotesLines(std::string_view line);

// What the fields of the panel hold, and which of them are marked as changed.
struct NotesChanges {
    std::array<std::string, FingerNotes> txtNote;
    std::array<bool, FingerNotes> lblNote{};
};

// Sends what is marked, in order, with a pause behind each command. A note that was emptied is sent too.
void zSendChanges(const NotesChanges& changes, const ChangeRoad& road);
