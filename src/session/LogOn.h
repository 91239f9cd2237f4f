// The answers to the server's "login:" and "password:": by one key, or by themselves.
#pragma once

#include "common/Needed.h"
#include "common/ServerRoad.h"
#include "session/TextPipeline.h"

#include <array>
#include <string>
#include <utility>

struct LogOnHooks {
    Needed<void()> maskTyping;                   // txtSend shows stars
    Needed<bool()> mnuAutoLogon;                 // the tick: prompts are answered from the settings
    Needed<void()> takeKeyboard;                 // the console comes up with the focus on txtSend
    Needed<void(int milliseconds)> startTimer;   // anew; runs LogOn::timer from the message loop
    Needed<void(const std::string& text)> enter; // puts the text into txtSend and presses Enter there
};

// Answers with the handle and the password of the settings, which the options dialog edits.
struct LogOn {
    TextPipeline& pipeline;
    ServerRoad& road;
    LogOnHooks hooks;
    std::string handle;
    std::string password;

    LogOn(TextPipeline& textPipeline, ServerRoad& serverRoad, LogOnHooks reachedOut)
        : pipeline(textPipeline), road(serverRoad), hooks(std::move(reachedOut)) {}

    // A prompt stands at the end of the stream: 1 "login:", 2 "password:". With mnuAutoLogon it is answered from the
    // message loop, behind its own line: the first of each kind on a connection at once, each further one after a pause
    // that doubles from one second.
    void prompt(std::int16_t login);
    // The automatic key: answers the prompt, if it is still pending and mnuAutoLogon still ticked.
    void timer();
    // The connection ends or a new one is made: a key that still waits is not for it, and its first prompts are
    // answered at once.
    void connectionChanges();

    // The Up key: answers a pending prompt and clears `login`; false if there is none. The handle goes out as a typed
    // command, the password by the raw road, neither echoed nor kept, and only while connected.
    bool answer();

private:
    static int pause(int keysBefore); // milliseconds
    int& keysAt(std::int16_t login) { return keys_.at(static_cast<std::size_t>(login - 1)); }

    std::array<int, 2> keys_{}; // automatic ones on this connection, by prompt
    bool keyWaits_ = false;     // an automatic one
};
