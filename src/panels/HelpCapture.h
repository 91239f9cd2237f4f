// Reads the server's answer to "help", which may come in several blocks, and fetches the next one of them.
#pragma once

#include "common/Needed.h"

#include <cstdint>
#include <functional>
#include <string>

// Lives with the session. The lines of the answer are in modChess: HelpLines, HelpCount, HelpBlock.
struct HelpCapture {
    bool NextPending = false; // "Next" has just been sent

    // A block has come, and the next one is asked for: "Received Blk 2".
    std::function<void(const std::string& progress)> blockRead = [](const std::string&) {};
};

// The session's; neither runs the message loop.
struct HelpHooks {
    Needed<void(const std::string& text)> zSendMsg;
    Needed<void(std::int16_t state)> zSetstate;
};

// Takes one line of the answer as received, CR LF included; true when the answer is complete. The server's invitation
// to type next is answered, and a line that holds the prompt ends the answer unless "Next" was just sent; all others
// are kept. Faults (subscript) on line 502, and (overflow) on block 32768.
bool zHandleHelp(HelpCapture& capture, const std::string& line, const HelpHooks& hooks);
