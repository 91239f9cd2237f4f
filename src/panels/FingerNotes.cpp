// The user's ten finger notes on the server.
#include "panels/FingerNotes.h"

#include "common/Numbers.h"
#include "common/Text.h"
#include "common/modChess.h"

#include <vector>

namespace {

constexpr std::size_t ShortBelow = 11; // characters, line end included
constexpr std::size_t LineEnd = 2;

} // namespace

// 10: The tenth note
bool zNotesLines(std::string_view line) {
    if (line.size() < ShortBelow) return line == modChess.gPrompt;
    line.remove_suffix(LineEnd);
    if (mid(line, 3, 1) == ":") {
        const double number = leadingNumber(mid(line, 1, 2));
        modChess.NotesText[toInt32(number - 1)] = mid(line, 5);
    }
    return false;
}

void zSendChanges(const NotesChanges& changes, const ChangeRoad& road) {
    std::vector<std::string> lines;
    for (std::size_t index = 0; index < FingerNotes; ++index) {
        if (changes.lblNote[index]) lines.push_back("Set " + std::to_string(index + 1) + " " + changes.txtNote[index]);
    }
    sendEach(lines, road);
}
