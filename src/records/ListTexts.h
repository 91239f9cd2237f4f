// What the window of listed games says of each kind of list: its columns, and its words.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

enum class ListAlignment { Left, Right, Centre };

// One column of the list.
struct ListColumn {
    const char* heading;
    int twips; // its least width
    ListAlignment alignment;
    int field;           // of HistoryRow; -1 for a column without content
    const char* meaning; // of the heading, in words
    const char* widest;  // a text that has to fit
};

// One kind of list.
struct ListLook {
    const char* command; // what the server is asked, a player's handle behind it
    const char* title;   // of the window, his handle behind it
    const char* empty;   // what a box says of him when the list has no rows
    std::array<ListColumn, 10> columns;
    bool addsToJournal; // mnuAddJourn shows
    bool removes;       // mnuRemove shows
};

// By modChess.HistoryKind; any other than those of HistoryLists.h is that of stored games.
const ListLook& lookOf(std::int16_t historyKind);

// The text of a cell in words: "win" for the sign of a won game, "white" for "W". What has none is itself, without its
// outer blanks. `column` counts from 0.
std::string spokenCell(const ListLook& look, int column, std::string_view text);
