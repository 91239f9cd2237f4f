// A chat box without its window: the buddy it is bound to, what its keys do, and what it sends.
#pragma once

#include "common/CommandHistory.h"
#include "common/Needed.h"
#include "common/ServerRoad.h"
#include "common/TypingKey.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

// What a box reaches out to: its window. Every member must be given.
struct ChatHooks {
    Needed<void(const std::string& caption)> setCaption;
    // Shows the box above all other windows.
    Needed<void()> bringToFront;

    // The conversation, txtChat
    // Colour (0xBBGGRR) of what is inserted from now on.
    Needed<void(std::int32_t color)> setColor;
    // At the insertion point.
    Needed<void(const std::string& text)> insert;
    // The insertion point goes behind that many characters, or to the end if there are fewer.
    Needed<void(std::size_t position)> moveTo;
    Needed<void()> moveToEnd;

    // The typing line, txtTell; its text has no line ends
    Needed<std::string()> text;
    // The insertion point goes to the end of the new text.
    Needed<void(const std::string& text)> setText;
    Needed<void()> focus;
};

// One box of frmChat. Its window keeps it in openWindows, where ChatRouting finds it.
struct ChatBox {
    ServerRoad& road;
    ChatHooks hooks;

    // A handle, which may be abbreviated until the first tell completes it, or a channel number in digits; empty until
    // the user has named one.
    std::string xBuddy;
    CommandHistory ChatHistory; // ChatCursor is its CommandCursor

    ChatBox(ServerRoad& serverRoad, ChatHooks window) : road(serverRoad), hooks(std::move(window)) {}

    // Binds the box to `buddy` and says so in the caption.
    void name(const std::string& buddy);

    // Shows what the buddy said; the insertion point then goes to `position` (see ChatHooks::moveTo).
    void show(const std::string& text, std::size_t position);

    // KeyPress of the typing line: Enter (13) tells its text to the buddy, or sends it as it is if it is a tell
    // command. True if the key is consumed; while not connected nothing happens and the text stays.
    bool zTxtTell(int keyAscii);

    // Makes `text` the newest line of ChatHistory.
    void zShiftReg(const std::string& text) { ChatHistory.zPushCommand(text); }

    // KeyDown of the typing line and of the conversation: Up and Down walk through ChatHistory. True if consumed.
    bool keyDown(int key);

    // KeyPress of the conversation, always consumed: the character goes to the end of the typing line; code 8 takes the
    // last one off, Enter (13) sends. The typing line gets the focus, with the insertion point at its end.
    void chatKeyPress(int keyAscii);
};
