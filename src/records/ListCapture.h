// Reads the server's answers to "history", "journal" and "stored": a title, and one game a line in fixed columns.
#pragma once

#include "records/HistoryLists.h"

#include <string>

// Each takes one line of the answer as received, CR LF included; true when it is the prompt, which ends the answer. A
// line of the length of a row fills the next of ten rows if its separators are in place; of the others, the one with
// the title gives HistHandle. All others are passed over. None faults.
bool zHistoryLines(HistoryLists& lists, const std::string& line);
bool zJournalLines(HistoryLists& lists, const std::string& line);
bool zStoredLines(HistoryLists& lists, const std::string& line);

// Takes what stands between `title` and the first ":" of the line for HistHandle. A line without the two in this order,
// or with nothing between them, changes nothing.
void zCheckHistHandle(HistoryLists& lists, const std::string& title, const std::string& line);
