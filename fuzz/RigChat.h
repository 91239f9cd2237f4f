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

    explicit RigChat(ServerRoad& road) : box(road, hooks()) {}

private:
    ChatHooks hooks() {
        return {
            .setCaption = [this](const std::string& text) { caption = text; },
            .bringToFront = [] {},
            .setColor = [](std::int32_t) {},
            .insert =
                [this](const std::string& text) {
                    talk.insert(caret, text);
                    caret += text.size();
                },
            .moveTo = [this](std::size_t position) { caret = std::min(position, talk.size()); },
            .moveToEnd = [this] { caret = talk.size(); },
            .text = [this] { return typed; },
            .setText = [this](const std::string& text) { typed = text; },
            .focus = [] {},
        };
    }
};
