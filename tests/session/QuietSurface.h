// A session's surroundings in which nothing is connected and nothing happens; a test replaces what it looks at.
#pragma once

#include "session/SessionSurface.h"

inline SessionSurface quietSurface() {
    const auto nothing = [] {};
    const auto takeText = [](const std::string&) {};
    const auto noText = [] { return std::string(); };
    return {
        .socket = {.getData = noText,
                   .sendData = takeText,
                   .state = [] { return std::int16_t{0}; },
                   .connectTo = [](const std::string&, std::int32_t) {},
                   .close = nothing},
        .timers = {
            .start = [](SessionTimer, int) {}, .stop = [](SessionTimer) {}, .millisecondsOfDay = [] { return 0; }},
        .console = {.setColor = [](std::int32_t) {},
                    .setEmphasis = nothing,
                    .insert = takeText,
                    .moveToEnd = nothing,
                    .length = [] { return std::size_t{0}; }},
        .typing = {.text = noText,
                   .setText = takeText,
                   .caretToEnd = nothing,
                   .focus = nothing,
                   .activate = nothing,
                   .mask = [](bool) {}},
        .client = {.caption = noText,
                   .setCaption = takeText,
                   .promptCaption = noText,
                   .setPromptCaption = takeText,
                   .ticksChanged = nothing},
        .windows = {.openBoard = nothing,
                    .openChat = nothing,
                    .showSeek = nothing,
                    .unloadSeek = nothing,
                    .startHistory = nothing,
                    .startHelp = nothing,
                    .zParseVars = nothing,
                    .zParseNotes = nothing},
        .user = {.beep = nothing,
                 .playSound = [](std::string_view, std::int16_t) {},
                 .message = takeText,
                 .yesNo = [](const std::string&) { return false; },
                 .input = [](const std::string&, const std::string&) { return std::string(); }},
        .bridge = {.wait = [](double) {},
                   .programFound = [] { return false; },
                   .startProgram = [](const std::vector<std::string>&) {},
                   .zTimeSealHandle = [] { return 0; },
                   .requestEnd = [](std::int32_t) {}},
    };
}
