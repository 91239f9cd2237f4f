// The console window: how chat boxes are opened.
#include "session/frmChessClient.h"

#include "platform/HelpFile.h"
#include "session/frmChat.h"

void frmChessClient::connectChat() {
    chatRoads_.store = roads_.store;
    chatRoads_.typingFont = [this] { return txtSend->font(); };
    chatRoads_.showHelp = [this] { showHelpFile(this); };
    const auto chat = [this] {
        txtSend->setFocus();
        session.zNewChat();
    };
    connect(menus.mnuChat, &QAction::triggered, this, chat);
    connect(row_->cmdChat, &QPushButton::clicked, this, chat);
}

void frmChessClient::openChat() {
    auto* box = new frmChat(session.road, chatRoads_); // deletes itself after closing
    box->load();
}
