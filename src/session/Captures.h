// The running captures: answers of the server that a panel or a board collects line by line.
#pragma once

#include "session/ServerLines.h"

#include <cstdint>
#include <functional>
#include <string>

// One reader of one kind of answer.
struct CaptureConsumer {
    // Takes the line, which may be changed, and its index in the batch; true when the answer is complete.
    std::function<bool(std::string& line, int index)> line;
    // Shows the complete answer.
    std::function<void()> done;
};

// A done routine: hands the complete answer to the window of this class, if one is loaded (OpenWindow::answered).
std::function<void()> answersTo(const char* className);

// The consumers by kind. One that is not there must not be waited for: a flag that rises without it ends the program.
// The flags that arm them live in modChess; the order in which the flags are looked at and what each kind does with its
// lines is the table in Captures.cpp.
struct Captures {
    CaptureConsumer help;    // zHandleHelp, frmChessHelp.zShowHelp
    CaptureConsumer history; // zHistoryLines, frmHistory.zHistoryList: modChess.HistoryKind 0
    CaptureConsumer journal; // zJournalLines, frmHistory.zJournalList: HistoryKind 1
    CaptureConsumer stored;  // zStoredLines, frmHistory.zStoredList: any other HistoryKind
    CaptureConsumer sought;  // zSoughtLines, frmSeek.zGraph
    CaptureConsumer vars;    // zVarsLines, frmICSVars.zParseVars
    CaptureConsumer notes;   // zNotesLines, frmNotes.zParseNotes

    // A move list has one reader and, by modChess.MovesTarget, three takers. Window numbers are -1 for none.
    std::function<bool(std::string& line, int index)> zMovesLines;
    std::function<void()> writePgn;                   // MovesToFile
    std::function<int()> zFindReviewBoard;            // MovesToReview
    std::function<void(int board)> zReviewGame;       // MovesToReview, never with -1
    std::function<int(std::int16_t game)> zFindBoard; // any other target
    std::function<void(int board)> zParseMoves;       // any other target, never with -1

    // Offers line `index` to the first capture whose flag is up; false if no flag is up. Lines are blanked through
    // `lines`. Faults of the consumers pass through.
    bool route(ServerLines& lines, int index);
};
