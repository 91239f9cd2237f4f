// The console window: how chat boxes are opened and how tells reach them.
#include "session/frmChessClient.h"

#include "common/modChess.h"
#include "platform/MenuEntry.h"
#include "platform/OpenWindows.h"

void frmChessClient::wireChat() {
    chatRoads_.store = roads_.store;
    chatRoads_.typingFont = [this] { return txtSend->font(); };
    chatRouting.consoleLength = [this] { return txtOutput->length(); };
    ClassifierHooks& hooks = classifier.hooks;
    hooks.zChatBox = [this](const std::string& line) { return chatRouting.zChatBox(line); };
    hooks.findChat = findChat;
    hooks.setChatCaption = [](int chat, const std::string& caption) {
        openWindows.windows.at(static_cast<std::size_t>(chat)).chat->hooks.setCaption(caption);
    };
    typingKeys.hooks.zNewChat = [this] { zNewChat(); };
    const auto chat = [this] {
        txtSend->setFocus();
        zNewChat();
    };
    onChosen(menus.mnuChat, this, chat);
    connect(cmdChat, &QPushButton::clicked, this, chat);
}

void frmChessClient::zNewChat() {
    if (modChess.AppClosing) return;
    proposeBuddy();
    auto* box = new frmChat(road, chatRoads_); // deletes itself after closing
    box->load();
}

void frmChessClient::showChat() {
    const int open = modChess.TellTarget.empty() ? -1 : findChat(modChess.TellTarget);
    if (open == -1) {
        zNewChat();
        return;
    }
    const ChatBox& box = *openWindows.windows.at(static_cast<std::size_t>(open)).chat;
    box.hooks.bringToFront();
    box.hooks.focus();
}
