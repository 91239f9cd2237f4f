// The one road to the server: every line that goes out passes here.
#pragma once

#include "common/CommandHistory.h"
#include "common/Needed.h"

#include <cstdint>
#include <string>
#include <utility>

// What the road reaches out to.
struct RoadHooks {
    // Writes bytes to the socket; a closed socket faults.
    Needed<void(const std::string& bytes)> sendData;
    // The socket's state, 7 for connected.
    Needed<std::int16_t()> socketState;
    // The pending log-on prompt: 0 none, 1 "login:", 2 "password:".
    Needed<std::int16_t()> login;
    // The setting Handle.
    Needed<std::string()> handle;
    // Prints `text`, which ends in CR LF, at the end of the console in Color_Copy, and goes back to Color_Main.
    Needed<void(const std::string& text)> echo;
    // Opens the help or the history panel, or starts it anew if it is open, with modChess.gHelpTopic.
    Needed<void()> showHelp;
    Needed<void()> showHistory;
};

struct ServerRoad {
    static constexpr std::int16_t Connected = 7;

    RoadHooks hooks;
    CommandHistory history;        // of the typing line
    std::string txtOld;            // the last line through zSendMsg, zSend or a chat box
    std::int32_t idleSeconds = -1; // since the latest line sent, 0 to 20 and round again; -1 while not connected

    explicit ServerRoad(RoadHooks reachedOut) : hooks(std::move(reachedOut)) {}

    // Writes `text` and one LF and counts it in modChess.LinesSent. Does not test the socket, so a closed one faults.
    void zSendRaw(const std::string& text);

    // The road of commands that the program makes up: no echo, no history, and nothing at all while not connected.
    // Passes over faults.
    void zSendMsg(const std::string& text);

    // The road of typed commands. "help" and "history", abbreviated to two letters or more, open panels; all else goes
    // to the server. Echoed and kept in the history unless a log-on prompt is pending. A closed socket faults.
    void zSend(const std::string& text);

    // Sends `password` raw, neither echoed nor kept in the history; nothing at all while not connected.
    void sendPassword(const std::string& password);
    // A sent password has been answered: it is not kept as the last command any longer.
    void forgetPassword();

    // A second has passed; counts it while `connected`.
    void countIdle(bool connected);

private:
    bool localCommand(const std::string& text);

    bool passwordSent_ = false; // gLastCmd is a password, and so is gLastTyped if it is the same
};
