// Chat boxes without windows: open ones in openWindows, whose surfaces write down what reaches them.
#pragma once

#include "common/modChess.h"
#include "platform/OpenWindows.h"
#include "session/ChatBox.h"
#include "session/QuietSurface.h"
#include "session/Session.h"

#include <algorithm>
#include <list>
#include <string>
#include <vector>

// One open box and what its window would show.
struct RecordedChat {
    ChatBox box;
    std::string caption;
    std::string conversation;
    std::vector<std::string> steps; // "color 2", "insert hi", "move 7", "end", in order
    std::string typing;
    int focused = 0;

    explicit RecordedChat(ServerRoad& road) : box(road, hooks()) {
        openWindows.add({.className = "frmChat", .window = this, .unload = {}, .content = &box});
    }
    ~RecordedChat() { openWindows.remove(this); }
    RecordedChat(const RecordedChat&) = delete;
    RecordedChat& operator=(const RecordedChat&) = delete;

private:
    ChatHooks hooks() {
        return {
            .setCaption = [this](const std::string& text) { caption = text; },
            .bringToFront = [] {},
            .setColor = [this](std::int32_t color) { steps.push_back("color " + std::to_string(color)); },
            .insert =
                [this](const std::string& text) {
                    conversation += text;
                    steps.push_back("insert " + text);
                },
            .moveTo = [this](std::size_t position) { steps.push_back("move " + std::to_string(position)); },
            .moveToEnd = [this] { steps.emplace_back("end"); },
            .text = [this] { return typing; },
            .setText = [this](const std::string& text) { typing = text; },
            .focus = [this] { ++focused; },
        };
    }
};

// A road whose socket is connected until a test closes it, and any number of boxes.
struct ChatRig {
    Session session{quietSurface()};
    ServerRoad& road = session.road;
    ChatRouting& routing = session.chatRouting;
    std::list<RecordedChat> chats;
    std::vector<std::string> sent;
    std::int16_t socket = ServerRoad::Connected;

    ChatRig() {
        modChess = {};
        openWindows = {};
        modChess.ColorTell = 2;
        modChess.ColorCopy = 4;
        road.hooks.socketState = [this] { return socket; };
        road.hooks.sendData = [this](const std::string& bytes) { sent.push_back(bytes); };
        routing.consoleLength = [] { return std::size_t{1000}; };
    }
    ~ChatRig() {
        chats.clear();
        openWindows = {};
        modChess = {};
    }
    ChatRig(const ChatRig&) = delete;
    ChatRig& operator=(const ChatRig&) = delete;

    RecordedChat& open(const std::string& buddy) {
        RecordedChat& chat = chats.emplace_back(road);
        chat.box.xBuddy = buddy;
        return chat;
    }
    void close(const RecordedChat& chat) {
        chats.remove_if([&chat](const RecordedChat& open) { return &open == &chat; });
    }
};
