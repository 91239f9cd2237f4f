// The program without its windows: chat boxes, and what is typed there and in the console.
#include "StreamRig.h"

#include "Events.h"
#include "Require.h"
#include "common/Numbers.h"
#include "common/Text.h"
#include "common/modChess.h"
#include "platform/OpenWindows.h"

#include <utility>

namespace {

std::string withoutLineEnds(std::string text) {
    std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
    return text;
}

bool hasLineEnd(const std::string& text) { return text.find_first_of("\r\n") != text.npos; }

// Whether a tell of `target` belongs to the box of `buddy`.
bool isFor(const std::string& buddy, const std::string& target) {
    const bool handle = target.size() > 1 && leadingNumber(target) == 0;
    if (!handle) return buddy == target;
    const std::string whole = lower(trim(target));
    const std::string part = lower(trim(buddy));
    return whole.substr(0, part.size()) == part;
}

// What a box shows of a tell.
std::string shownPart(const std::string& line) {
    static const std::string Phrase = "tells you:";
    const auto place = line.find(Phrase);
    if (place == line.npos) return line;
    const auto start = place + Phrase.size() + 1;
    return start < line.size() ? line.substr(start) : "";
}

void checkHistory(const CommandHistory& history) {
    const std::int32_t cursor = history.CommandCursor;
    require(cursor == 0 || !history.entries[cursor].empty(), "Up and Down stop at the lines that were sent");
    for (int entry = 1; entry <= CommandHistory::Last; ++entry) {
        require(!hasLineEnd(history.entries[entry]), "a line of the history is one line");
    }
}

} // namespace

void StreamRig::typingEvent(const Tape::Segment& segment) {
    constexpr std::size_t MostChats = 12; // of which the tape can name four
    switch (segment.kind) {
    case Event::NewChat:
        if (chats_.size() < MostChats) session_.typingKeys.typingKeyDown(KeyF9, true);
        return;
    case Event::TypeLine:
        typed_ += withoutLineEnds(segment.text);
        return;
    case Event::LineKey:
        return lineKey(segment.choice());
    default:
        if (segment.which() < chats_.size()) chatEvent(segment, *chats_[segment.which()]);
    }
}

void StreamRig::lineKey(int choice) {
    static constexpr std::array Keys{KeyUp, KeyDown, KeyF5, KeyF7, KeyF8, KeyF9};
    const auto key = static_cast<std::size_t>(choice);
    if (key < Keys.size()) {
        session_.typingKeys.typingKeyDown(Keys[key], false);
    } else {
        session_.typingKeys.zTxtSend(KeyEnter);
    }
}

void StreamRig::chatEvent(const Tape::Segment& segment, RigChat& chat) {
    const std::int32_t cursor = chat.box.ChatHistory.CommandCursor;
    switch (segment.kind) {
    case Event::AskForBuddy:
        return askForBuddy(chat);
    case Event::NameChat:
        return nameChat(chat, segment.text, segment.choice() != 0);
    case Event::TypeTell:
        chat.typed += withoutLineEnds(segment.text);
        return;
    case Event::TypeTalk:
        for (const char c : segment.text) {
            const int code = static_cast<unsigned char>(c);
            if ((code >= ' ' && code != 127) || code == 8) chat.box.chatKeyPress(code);
        }
        if ((segment.choice() & 8) != 0) enterTell(chat, [&chat] { chat.box.chatKeyPress(KeyEnter); });
        return;
    case Event::TellEnter:
        return enterTell(chat, [this, &chat] {
            require(chat.box.zTxtTell(KeyEnter) == socket_.connected(), "Enter is taken while connected");
        });
    case Event::TellKey:
        chat.box.keyDown(segment.choice() == 0 ? KeyUp : KeyDown);
        require(chat.box.ChatHistory.CommandCursor == cursor ||
                    chat.typed == chat.box.ChatHistory.entries[chat.box.ChatHistory.CommandCursor],
                "a step through the history shows its line");
        return;
    case Event::CloseChat:
        return closeChat(chat);
    default:
        return;
    }
}

void StreamRig::openChat() {
    require(!modChess.AppClosing, "no chat box opens while the program closes");
    RigChat& chat = *chats_.emplace_back(std::make_unique<RigChat>(session_.road));
    openWindows.add({.className = "frmChat", .window = &chat, .unload = [] {}, .content = &chat.box});
}

// tmrStart: the question for the buddy comes up.
void StreamRig::askForBuddy(RigChat& chat) const {
    if (!std::exchange(chat.asked, true)) chat.proposal = modChess.NewBuddy;
}

void StreamRig::nameChat(RigChat& chat, const std::string& answer, bool proposal) {
    askForBuddy(chat);
    if (!chat.proposal) return;
    const std::string buddy = withoutLineEnds(proposal ? *chat.proposal : answer);
    chat.proposal.reset();
    if (buddy.empty()) return closeChat(chat);
    chat.box.name(buddy);
    require(chat.box.xBuddy == buddy, "a box has the buddy that was named");
    require(chat.caption == "Chat on " + buddy || chat.caption == "Chat with " + buddy, "a caption names the buddy");
}

void StreamRig::closeChat(RigChat& chat) {
    openWindows.remove(&chat);
    std::erase_if(chats_, [&](const auto& open) { return open.get() == &chat; });
}

// Enter in the line, or on the conversation.
void StreamRig::enterTell(RigChat& chat, const std::function<void()>& pressEnter) {
    const std::string typed = chat.typed;
    const std::string talk = chat.talk;
    const std::int32_t sent = modChess.LinesSent;
    const ServerRoad& road = session_.road;
    pressEnter();
    require(modChess.LinesSent == sent + (socket_.connected() ? 1 : 0), "Enter sends one line");
    if (!socket_.connected()) {
        require(chat.typed == typed && chat.talk == talk, "the text stays while not connected");
        return;
    }
    const bool command = typed.size() >= 5 && lower(typed.substr(0, 4)) == "tell";
    require(lastSent_ == (command ? typed : "Tell " + chat.box.xBuddy + " " + typed), "a box sends tells alone");
    require(modChess.gLastCmd == lastSent_ && modChess.gLastTyped == lastSent_ && road.txtOld == lastSent_,
            "what a box sent is the last line");
    require(modChess.LastBuddy == chat.box.xBuddy && road.idleSeconds == 0, "the buddy spoken to is known");
    require(chat.typed.empty() && chat.talk == talk + typed + "\r\n", "the conversation ends with the own words");
    require(chat.caret == chat.talk.size(), "the insertion point is behind the own words");
    require(chat.box.ChatHistory.entries[1] == typed, "the text goes into the history");
}

bool StreamRig::routeTell(const std::string& line, const std::function<bool()>& act) {
    const auto taker =
        std::ranges::find_if(chats_, [](const auto& chat) { return isFor(chat->box.xBuddy, modChess.TellTarget); });
    const auto talked = [this] {
        std::size_t size = 0;
        for (const auto& chat : chats_) size += chat->talk.size();
        return size;
    };
    const std::size_t talkedBefore = talked();
    const std::size_t shownBefore = console_.size();
    const std::size_t takerBefore = taker == chats_.end() ? 0 : (*taker)->talk.size();
    const std::size_t insertAt = taker == chats_.end() ? 0 : (*taker)->caret;

    const int number = lineNumber(line);
    const bool handled = act();
    require(handled == (taker != chats_.end()), "a tell goes to a box when one is there for it");
    require(console_.size() == shownBefore, "the box takes a tell from the console");
    if (!handled) return false;
    batch_.toChats.push_back(number);
    const std::size_t added = (*taker)->talk.size() - takerBefore;
    require(talked() == talkedBefore + added, "the oldest box that fits takes a tell alone");
    checkTaken(line, taker->get(), (*taker)->talk.substr(insertAt, added));
    return true;
}

void StreamRig::checkTaken(const std::string& line, const RigChat* taker, const std::string& inserted) const noexcept {
    const std::string& target = modChess.TellTarget;
    const bool handle = target.size() > 1 && leadingNumber(target) == 0;
    require(taker->box.xBuddy == target, "a tell completes the buddy's name");
    require(taker->caption == (handle ? "Chat with " : "Chat on ") + target, "a tell completes the caption");
    if (!handle && modChess.MyHandle == modChess.ChannelSender) {
        require(inserted.empty(), "the own words on a channel are not shown again");
        return;
    }
    require(inserted == shownPart(line), "a box shows what was said");
    require(taker->caret == std::min(console_.size(), taker->talk.size()), "the insertion point is the console's");
}

void StreamRig::checkChatCaption(int window, const std::string& caption) const noexcept {
    const std::string& buddy = chatAt(window).xBuddy;
    require(buddy == modChess.LastBuddy, "the answer to a tell goes to the box that told");
    require(caption.starts_with("Chatting with " + buddy) && !hasLineEnd(caption), "a caption is one line");
}

void StreamRig::checkSent(const std::string& bytes) noexcept {
    require(socket_.connected(), "nothing is written to a closed socket");
    require(bytes.ends_with('\n'), "what is sent is a line");
    lastSent_ = bytes.substr(0, bytes.size() - 1);
    require(!hasLineEnd(lastSent_), "what is sent is one line");
}

void StreamRig::checkChats() const noexcept {
    std::vector<const ChatBox*> listed;
    for (const OpenWindow& window : openWindows.windows) {
        if (const ChatBox* box = chatOf(window)) listed.push_back(box);
    }
    require(std::ranges::equal(listed, chats_, {}, {}, [](const auto& chat) { return &chat->box; }),
            "the open boxes are listed in order of creation");
    for (const auto& chat : chats_) {
        checkHistory(chat->box.ChatHistory);
        require(chat->caption.starts_with("Chat"), "a box says with whom it is");
    }
    checkHistory(session_.road.history);
}
