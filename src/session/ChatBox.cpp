// A chat box without its window: the buddy it is bound to, what its keys do, and what it sends.
#include "session/ChatBox.h"

#include "common/Numbers.h"
#include "common/Text.h"
#include "common/modChess.h"

namespace {

constexpr int Backspace = 8;

// "tell bob hi" is a command of the user's own. It takes five characters to be one.
bool isTellCommand(const std::string& text) { return text.size() >= 5 && lower(text.substr(0, 4)) == "tell"; }

} // namespace

void ChatBox::name(const std::string& buddy) {
    xBuddy = buddy;
    const bool channel = buddy.size() == 1 || leadingNumber(buddy) != 0;
    hooks.setCaption((channel ? "Chat on " : "Chat with ") + buddy);
}

void ChatBox::show(const std::string& text, std::size_t position) {
    hooks.setColor(modChess.ColorTell);
    hooks.insert(text);
    hooks.moveTo(position);
}

bool ChatBox::zTxtTell(int keyAscii) {
    if (keyAscii != KeyEnter || road.hooks.socketState() != ServerRoad::Connected) return false;
    const std::string typed = hooks.text();
    const std::string sent = isTellCommand(typed) ? typed : "Tell " + xBuddy + " " + typed;
    road.zSendRaw(sent);
    road.idleSeconds = 0;
    modChess.gLastCmd = sent;
    modChess.gLastTyped = sent;
    modChess.LastBuddy = xBuddy;
    zShiftReg(typed);
    hooks.moveToEnd();
    hooks.setColor(modChess.ColorCopy);
    hooks.insert(typed + "\r\n");
    hooks.moveToEnd();
    hooks.setColor(modChess.ColorTell);
    road.txtOld = sent;
    hooks.setText({});
    return true;
}

bool ChatBox::keyDown(int key) {
    if (key != KeyUp && key != KeyDown) return false;
    const auto text = key == KeyUp ? ChatHistory.up(hooks.text()) : ChatHistory.down();
    hooks.setText(text.value_or(hooks.text()));
    return true;
}

void ChatBox::chatKeyPress(int keyAscii) {
    if (keyAscii == KeyEnter) zTxtTell(KeyEnter);
    std::string text = hooks.text();
    if (keyAscii == Backspace) {
        if (!text.empty()) text.pop_back();
    } else if (keyAscii != KeyEnter) {
        text += static_cast<char>(keyAscii);
    }
    hooks.setText(text);
    hooks.focus();
}
