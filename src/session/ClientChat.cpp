// The console window: how chat boxes are opened.
#include "session/frmChessClient.h"

#include "platform/ConsoleFont.h"
#include "platform/HelpFile.h"
#include "platform/MenuEntry.h"
#include "session/frmChat.h"

ChatRoads frmChessClient::chatRoads() {
    return {
        .store = roads_.store,
        .showHelp = [this] { showHelpFile(this); },
    };
}

void frmChessClient::connectChat() {
    const auto chat = [this] {
        txtSend->setFocus();
        session.zNewChat();
    };
    onChosen(menus.mnuChat, this, chat);
    connect(row_->cmdChat, &QPushButton::clicked, this, chat);
}

void frmChessClient::openChat() {
    auto* box = new frmChat(session.road, chatRoads_); // deletes itself after closing
    box->load();
}
