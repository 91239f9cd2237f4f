// Asking the server for a game's move list.
#include "records/MoveListRequest.h"

#include "common/CaptureState.h"
#include "common/modChess.h"

namespace {

void ask(const std::string& command, const MoveListHooks& hooks) {
    modChess.MovesRecord.WhiteMoves = {};
    modChess.MovesRecord.BlackMoves = {};
    hooks.zSendMsg(command);
    hooks.zSetstate(MovesState);
}

// "examine foo 3" asks for "smoves foo 3".
void askForExamined(const MoveListHooks& hooks) {
    const std::string last = modChess.gLastCmd;
    const std::size_t blank = last.find(' ');
    modChess.ExamineNoMoves = blank == std::string::npos;
    if (!modChess.ExamineNoMoves) ask("smoves" + last.substr(blank), hooks);
}

} // namespace

void zGetMoves(std::int16_t relation, const std::string& gameOrArguments, const MoveListHooks& hooks) {
    if (relation >= -2 && relation <= 1) {
        ask("moves " + gameOrArguments, hooks);
    } else if (relation == 2) {
        askForExamined(hooks);
    } else if (relation == ByHandle) {
        ask("smoves " + gameOrArguments, hooks);
    }
}
