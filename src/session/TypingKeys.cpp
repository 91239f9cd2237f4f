// The keys of the typing line txtSend, of the buttons beside it, and of the console above it.
#include "session/TypingKeys.h"

#include "common/Abbrev.h"

#include <utility>

namespace {

bool opensPanel(std::string text) { return zAbbrev(text, "help", 2) || zAbbrev(text, "history", 2); }

} // namespace

TypingKeys::TypingKeys(ServerRoad& serverRoad, LogOn& log, TypingHooks reachedOut)
    : road(serverRoad), logOn(log), hooks(std::move(reachedOut)) {}

void TypingKeys::enter(const std::string& text) {
    hooks.setText(text);
    zTxtSend(KeyEnter);
}

bool TypingKeys::zTxtSend(int keyAscii) {
    if (keyAscii != KeyEnter) return false;
    const std::string text = hooks.text();
    if (road.hooks.socketState() != ServerRoad::Connected && !opensPanel(text)) return false;
    road.zSend(text);
    hooks.setText({});
    return true;
}

bool TypingKeys::typingKeyDown(int key, bool shift) {
    if (key == KeyF9 && shift) {
        hooks.zNewChat();
        hooks.caretToEnd();
        return false;
    }
    const bool prompted = key == KeyUp && logOn.answer();
    const TypingAnswer answer = prompted ? TypingAnswer{true, {}} : typingAnswer(key, road.history, hooks.text());
    if (answer.text) hooks.setText(*answer.text);
    if (answer.taken) hooks.caretToEnd();
    if (key == KeyF7 || key == KeyF8) hooks.focus();
    return answer.taken;
}

void TypingKeys::pressButton(const std::string& command) {
    if (command.empty()) return;
    hooks.setText(command);
    hooks.focus();
    zTxtSend(KeyEnter);
}

bool TypingKeys::consoleKeyDown(int key) { return key == KeyUp && logOn.answer(); }

bool TypingKeys::consoleKeyPress(int keyAscii) {
    if (keyAscii == 3 || keyAscii == 22 || keyAscii == 24) return false;
    hooks.setText(hooks.text() + static_cast<char>(keyAscii));
    hooks.caretToEnd();
    hooks.focus();
    return true;
}
