// The keys of the typing line txtSend, of the buttons beside it, and of the console above it.
#pragma once

#include "common/Needed.h"
#include "common/ServerRoad.h"
#include "common/TypingKey.h"
#include "session/LogOn.h"

#include <string>

// What the keys reach out to: the typing line.
struct TypingHooks {
    Needed<std::string()> text;
    Needed<void(const std::string& text)> setText;
    Needed<void()> caretToEnd;
    Needed<void()> focus;
    // zNewChat: opens a chat box.
    Needed<void()> zNewChat;
};

struct TypingKeys {
    ServerRoad& road;
    LogOn& logOn;
    TypingHooks hooks;

    TypingKeys(ServerRoad& serverRoad, LogOn& log, TypingHooks reachedOut);
    TypingKeys(const TypingKeys&) = delete;
    TypingKeys& operator=(const TypingKeys&) = delete;

    // KeyPress of txtSend: Enter (13) sends the line by the typed road and empties it; true if the key is consumed.
    // While not connected the text stays, unless it is a help or history command, which needs no server.
    bool zTxtSend(int keyAscii);

    // KeyDown of txtSend; true if the key is consumed. Up answers a pending log-on prompt; Shift+F9 asks for a chat box
    // and stays; all else as typingAnswer() says.
    bool typingKeyDown(int key, bool shift);

    // Puts `text` into the line and presses Enter.
    void enter(const std::string& text);

    // A button with a stored command: types it and presses Enter; an empty command does nothing.
    void pressButton(const std::string& command);

    // KeyDown of the console: Up answers a log-on prompt; all else scrolls. True if the key is consumed.
    bool consoleKeyDown(int key);

    // KeyPress of the console: the character goes to the end of the typing line. False, and so left to the console, for
    // Ctrl+C, Ctrl+V and Ctrl+X (codes 3, 22 and 24).
    bool consoleKeyPress(int keyAscii);
};
