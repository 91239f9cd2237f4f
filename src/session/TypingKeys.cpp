// The keys of the typing line txtSend, of the buttons beside it, and of the console above it.
#include "session/TypingKeys.h"

#include "common/Abbrev.h"
#include "common/modChess.h"

namespace {

constexpr int Enter = 13;

bool opensPanel(std::string text) { return zAbbrev(text, "help", 2) || zAbbrev(text, "history", 2); }

} // namespace

TypingKeys::TypingKeys(ServerRoad& serverRoad, LogOn& log) : road(serverRoad), logOn(log) {
    logOn.enter = [this](const std::string& text) {
        hooks.setText(text);
        zTxtSend(Enter);
    };
}

bool TypingKeys::zTxtSend(int keyAscii) {
    if (keyAscii != Enter) return false;
    const std::string text = hooks.text();
    if (road.hooks.socketState() != ServerRoad::Connected && !opensPanel(text)) return false;
    road.zSend(text);
    hooks.setText({});
    return true;
}

bool TypingKeys::typingKeyDown(int key, bool shift) {
    switch (key) {
    case KeyUp:
        if (!logOn.answer()) walkUp();
        hooks.caretToEnd();
        return true;
    case KeyDown:
        walkDown();
        return true;
    case KeyF5:
        show("Say ");
        return true;
    case KeyF7:
        return wordKey("Kibitz ");
    case KeyF8:
        return wordKey("Whisper ");
    case KeyF9:
        return tellKey(shift);
    default:
        return false;
    }
}

void TypingKeys::pressButton(const std::string& command) {
    if (command.empty()) return;
    hooks.setText(command);
    hooks.focus();
    zTxtSend(Enter);
}

bool TypingKeys::consoleKeyDown(int key) { return key == KeyUp && logOn.answer(); }

bool TypingKeys::consoleKeyPress(int keyAscii) {
    if (keyAscii == 3 || keyAscii == 22 || keyAscii == 24) return false;
    show(hooks.text() + static_cast<char>(keyAscii));
    hooks.focus();
    return true;
}

void TypingKeys::show(const std::string& text) {
    hooks.setText(text);
    hooks.caretToEnd();
}

void TypingKeys::walkUp() {
    if (const auto text = road.history.up(hooks.text())) hooks.setText(*text);
}

void TypingKeys::walkDown() {
    if (const auto text = road.history.down()) hooks.setText(*text);
    hooks.caretToEnd();
}

bool TypingKeys::tellKey(bool shift) {
    if (shift) {
        hooks.zNewChat();
        hooks.caretToEnd();
        return false;
    }
    show("Tell " + modChess.TellTarget + " ");
    return true;
}

bool TypingKeys::wordKey(const std::string& word) {
    show(word);
    hooks.focus();
    return true;
}
