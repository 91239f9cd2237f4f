// A player's list of games as the server's latest answer told it: his last ones, his journal, or those adjourned.
#pragma once

#include "common/FixedArray.h"

#include <cstdint>
#include <functional>
#include <string>

// Values of modChess.HistoryKind; any other stands for stored games.
inline constexpr std::int16_t HistoryKindGames = 0;
inline constexpr std::int16_t HistoryKindJournal = 1;
inline constexpr std::int16_t HistoryKindStored = 2;

// One game by its fields, 0 to 10. Texts are as received, outer blanks and even line ends included.
using HistoryRow = FixedArray<std::string, 10, "fields of a listed game">;

// Filled by the capture, shown by frmHistory. Fields that a kind of list does not write keep what an earlier list left
// in them, and so do the rows behind the last one.
struct HistoryLists {
    FixedArray<HistoryRow, 9, "listed games"> HistRows;
    std::int16_t HistCount = 0; // rows filled
    std::string HistHandle;     // from the answer's title; empty while it has none

    // HistHandle has been read behind `title`: "History for ".
    std::function<void(const std::string& title)> handleRead = [](const std::string&) {};
};
