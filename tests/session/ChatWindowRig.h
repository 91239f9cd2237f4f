// Chat boxes as windows, beside a whole console window.
#pragma once

#include "session/ClientRig.h"
#include "session/frmChat.h"

// The question for the buddy is answered at once with `buddy`; nothing is Cancel.
class ChatWindowRig : public ClientRig {
protected:
    ChatWindowRig() {
        roads.playSound = [this](std::string_view name, std::int16_t) { sounds.emplace_back(name); };
        boxes.inputAt = [this](QWidget*, int left, int top, const std::string& prompt, const std::string& title,
                               const std::string& proposal) {
            messages.push_back(title + ": " + prompt + "/" + proposal);
            askedAt = {left, top};
            if (whileAsked) whileAsked();
            return buddy;
        };
    }
    ~ChatWindowRig() override {
        for (const frmChat* chat : chats()) delete chat;
    }

    // Open boxes, the oldest first.
    static std::vector<frmChat*> chats() {
        std::vector<frmChat*> found;
        for (const OpenWindow& open : openWindows.windows) {
            for (QWidget* window : QApplication::topLevelWidgets()) {
                if (window == open.window && chatOf(open)) found.push_back(qobject_cast<frmChat*>(window));
            }
        }
        return found;
    }
    // Opens a box by the menu; it is bound to `name`.
    frmChat& openChat(const std::string& name) {
        buddy = name;
        const std::size_t asked = messages.size();
        entry("mnuChat").trigger();
        EXPECT_TRUE(waitUntil([&] { return messages.size() > asked; }));
        return *chats().back();
    }
    // The corner of the window's frame and the size of what it holds, as settings keep them.
    static QRect shownAt(const frmChat& chat) { return {chat.pos(), chat.size()}; }
    static void put(frmChat& chat, const QRect& place) {
        chat.move(place.topLeft());
        chat.resize(place.size());
    }
    static Console& txtChat(const frmChat& chat) { return *chat.findChild<Console*>(QStringLiteral("txtChat")); }
    static TypingLine& txtTell(const frmChat& chat) { return *chat.findChild<TypingLine*>(QStringLiteral("txtTell")); }
    static std::string caption(const frmChat& chat) { return chat.windowTitle().toStdString(); }

    std::optional<std::string> buddy = "Bob";
    std::function<void()> whileAsked;
    QPoint askedAt;
    std::vector<std::string> sounds;
};
