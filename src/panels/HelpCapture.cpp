// Reads the server's answer to "help".
#include "panels/HelpCapture.h"

#include "common/CaptureState.h"
#include "common/Numbers.h"
#include "common/Text.h"
#include "common/modChess.h"

#include <utility>

namespace {

// "Type [next] to see next page."
void fetchNext(HelpCapture& capture, const HelpHooks& hooks) {
    modChess.HelpBlock = toInt16(modChess.HelpBlock + 1);
    capture.blockRead("Received Blk " + std::to_string(modChess.HelpBlock));
    hooks.zSendMsg("Next");
    capture.NextPending = true;
    hooks.zSetstate(HelpState);
}

void keep(HelpCapture& capture, const std::string& line) {
    modChess.HelpLines[modChess.HelpCount] = line;
    modChess.HelpCount = toInt16(modChess.HelpCount + 1);
    capture.NextPending = false;
}

} // namespace

bool zHandleHelp(HelpCapture& capture, const std::string& line, const HelpHooks& hooks) {
    if (contains(line, "Type [next]")) {
        fetchNext(capture, hooks);
        return false;
    }
    if (contains(line, modChess.gPrompt)) return !std::exchange(capture.NextPending, false);
    keep(capture, line);
    return contains(line, "No help available");
}
