// The table of captures, in the order in which their flags are looked at.
#include "session/Captures.h"

#include "common/modChess.h"
#include "platform/OpenWindows.h"

#include <array>
#include <stdexcept>

namespace {

// What happens first when the answer is complete; the routine may look at its own flag.
enum class AtDone { ClearFlagFirst, CallRoutineFirst };

struct Row {
    bool ModChess::*flag;
    bool (*expected)(); // false: the flag drops and the line stays as it is
    bool (*takeLine)(const Captures&, std::string& line, int index);
    void (*finish)(const Captures&);
    AtDone atDone;
    bool blanksEachLine;
    int blanksBehindLast; // lines behind the last one of the answer
};

bool always() { return true; }

bool soughtWasLastSent() { return modChess.gLastCmd == "sought"; }

using Reader = std::function<bool(std::string& line, int index)>;

bool read(const Reader& reader, std::string& line, int index) {
    if (!reader) throw std::logic_error("an answer is waited for that nothing reads");
    return reader(line, index);
}

template <CaptureConsumer Captures::*consumer>
bool takeLine(const Captures& captures, std::string& line, int index) {
    return read((captures.*consumer).line, line, index);
}

template <CaptureConsumer Captures::*consumer>
void finish(const Captures& captures) {
    (captures.*consumer).done();
}

bool takeMovesLine(const Captures& captures, std::string& line, int index) {
    return read(captures.zMovesLines, line, index);
}

void handOverMoves(const Captures& captures) {
    if (modChess.MovesTarget == MovesToFile) {
        captures.writePgn();
    } else if (modChess.MovesTarget == MovesToReview) {
        const int board = captures.zFindReviewBoard();
        if (board != -1) captures.zReviewGame(board);
    } else {
        const int board = captures.zFindBoard(modChess.MovesTarget);
        if (board != -1) captures.zParseMoves(board);
    }
}

const CaptureConsumer& listConsumer(const Captures& captures) {
    if (modChess.HistoryKind == 0) return captures.history;
    if (modChess.HistoryKind == 1) return captures.journal;
    return captures.stored;
}

bool takeListLine(const Captures& captures, std::string& line, int index) {
    return read(listConsumer(captures).line, line, index);
}

void finishList(const Captures& captures) { listConsumer(captures).done(); }

void drawGraph(const Captures& captures) {
    if (modChess.gSeekOn) captures.sought.done();
}

using enum AtDone;

// clang-format off
constexpr std::array<Row, 6> rows{{
    // flag                     expected           takeLine                   finish                   atDone            each  behind
    {&ModChess::gHelpCapture,   always,            takeLine<&Captures::help>,   finish<&Captures::help>,  CallRoutineFirst, true,  0},
    {&ModChess::MovesCapture,   always,            takeMovesLine,               handOverMoves,            ClearFlagFirst,   false, 2},
    {&ModChess::HistoryCapture, always,            takeListLine,                finishList,               CallRoutineFirst, true,  0},
    {&ModChess::gSoughtCapture, soughtWasLastSent, takeLine<&Captures::sought>, drawGraph,                ClearFlagFirst,   false, 1},
    {&ModChess::gVarsCapture,   always,            takeLine<&Captures::vars>,   finish<&Captures::vars>,  ClearFlagFirst,   true,  0},
    {&ModChess::gNotesCapture,  always,            takeLine<&Captures::notes>,  finish<&Captures::notes>, ClearFlagFirst,   true,  0},
}};
// clang-format on

void finishAnswer(const Row& row, const Captures& captures) {
    if (row.atDone == ClearFlagFirst) modChess.*row.flag = false;
    row.finish(captures);
    if (row.atDone == CallRoutineFirst) modChess.*row.flag = false;
}

void offer(const Row& row, const Captures& captures, ServerLines& lines, int index) {
    if (!row.expected()) {
        modChess.*row.flag = false;
        return;
    }
    const bool done = row.takeLine(captures, lines[index], index);
    if (done) finishAnswer(row, captures);
    if (row.blanksEachLine) lines.zClearLines(index);
    if (!done) return;
    for (int behind = 1; behind <= row.blanksBehindLast; ++behind) lines.zClearLines(index + behind);
}

} // namespace

std::function<void()> answersTo(const char* className) {
    return [className] { openWindows.answer(className); };
}

bool Captures::route(ServerLines& lines, int index) {
    for (const Row& row : rows) {
        if (!(modChess.*row.flag)) continue;
        offer(row, *this, lines, index);
        return true;
    }
    return false;
}
