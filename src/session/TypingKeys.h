// The keys of the typing line txtSend, of the buttons beside it, and of the console above it.
#pragma once

#include "common/ServerRoad.h"
#include "common/TypingKey.h"
#include "session/LogOn.h"

#include <functional>
#include <string>

// What the keys reach out to: the typing line. Unset members do nothing.
struct TypingHooks {
    std::function<std::string()> text = [] { return std::string(); };
    std::function<void(const std::string& text)> setText = [](const std::string&) {};
    std::function<void()> caretToEnd = [] {};
    std::function<void()> focus = [] {};
    // zNewChat: opens a chat box.
    std::function<void()> zNewChat = [] {};
};

struct TypingKeys {
    ServerRoad& road;
    LogOn& logOn;
    TypingHooks hooks;

    // Answers the "login:" prompt of `log` through this typing line.
    TypingKeys(ServerRoad& serverRoad, LogOn& log);
    TypingKeys(const TypingKeys&) = delete;
    TypingKeys& operator=(const TypingKeys&) = delete;

    // KeyPress of txtSend: Enter (13) sends the line by the typed road and empties it; true if the key is consumed.
    // While not connected the text stays, unless it is a help or history command, which needs no server.
    bool zTxtSend(int keyAscii);

    // KeyDown of txtSend; true if the key is consumed. Up answers a pending log-on prompt; Shift+F9 asks for a chat box
    // and stays; all else as typingAnswer() says.
    bool typingKeyDown(int key, bool shift);

    // A button with a stored command: types it and presses Enter; an empty command does nothing.
    void pressButton(const std::string& command);

    // KeyDown of the console: Up answers a log-on prompt; all else scrolls. True if the key is consumed.
    bool consoleKeyDown(int key);

    // KeyPress of the console: the character goes to the end of the typing line. False, and so left to the console, for
    // Ctrl+C, Ctrl+V and Ctrl+X (codes 3, 22 and 24).
    bool consoleKeyPress(int keyAscii);
};
