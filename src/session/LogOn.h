// The one-key answer to the server's "login:" and "password:".
#pragma once

#include "common/ServerRoad.h"
#include "session/TextPipeline.h"

#include <functional>
#include <string>

// Answers with the handle and the password of the settings, which the options dialog edits.
struct LogOn {
    TextPipeline& pipeline;
    ServerRoad& road;
    std::string handle;
    std::string password;

    // Puts the text into the typing line and presses Enter there; does nothing until set.
    std::function<void(const std::string& text)> enter = [](const std::string&) {};

    LogOn(TextPipeline& textPipeline, ServerRoad& serverRoad) : pipeline(textPipeline), road(serverRoad) {}

    // The Up key: answers a pending prompt and clears `login`; false if there is none. The handle goes out as a typed
    // command, the password by the raw road, neither echoed nor kept, and only while connected.
    bool answer();

private:
    void sendPassword();
};
