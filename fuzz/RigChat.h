// A chat box without a window: the box, what its two texts hold, its caption, and the question for the buddy.
#pragma once

#include "session/ChatBox.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>

struct RigChat {
    ChatBox box;
    std::string caption = "Chat";
    std::string talk;                    // txtChat
    std::size_t caret = 0;               // in `talk`
    std::string typed;                   // txtTell
    bool asked = false;                  // the question for the buddy has been asked, as it is once
    std::optional<std::string> proposal; // of the question while it is up

    explicit RigChat(ServerRoad& road) : box(road) {
        ChatHooks& hooks = box.hooks;
        hooks.setCaption = [this](const std::string& text) { caption = text; };
        hooks.insert = [this](const std::string& text) {
            talk.insert(caret, text);
            caret += text.size();
        };
        hooks.moveTo = [this](std::size_t position) { caret = std::min(position, talk.size()); };
        hooks.moveToEnd = [this] { caret = talk.size(); };
        hooks.text = [this] { return typed; };
        hooks.setText = [this](const std::string& text) { typed = text; };
    }
};
