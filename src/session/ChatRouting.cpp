// Which chat box a tell goes to.
#include "session/ChatRouting.h"

#include "common/Abbrev.h"
#include "common/Fault.h"
#include "common/Numbers.h"
#include "common/Text.h"
#include "common/modChess.h"
#include "platform/OpenWindows.h"
#include "session/ChatBox.h"

namespace {

constexpr std::string_view TellsYou = "tells you:";

// How a box stands to the sender of the tell: not his, his by the exact name, or his by a name that may be abbreviated.
enum class Standing { None, Exact, Prefix };

bool isHandle(const std::string& target) { return target.size() > 1 && leadingNumber(target) == 0; }

Standing standingOf(const ChatBox& box) {
    const std::string& target = modChess.TellTarget;
    if (isHandle(target)) return zPrefixMatch(box.xBuddy, target) ? Standing::Prefix : Standing::None;
    return box.xBuddy == target ? Standing::Exact : Standing::None;
}

// "Bob(TM) tells you: hi" without its front; a channel tell, "Bob(50): hi", whole.
std::string shownPart(const std::string& line) {
    const auto place = line.find(TellsYou);
    if (place == line.npos) return line;
    return std::string(mid(line, static_cast<long>(place + TellsYou.size() + 2)));
}

void takeTell(ChatBox& box, Standing standing, const std::string& line, std::size_t consoleLength) {
    const std::string& target = modChess.TellTarget;
    if (standing == Standing::Exact) {
        box.hooks.setCaption("Chat on " + target);
        if (modChess.MyHandle == modChess.ChannelSender) return; // his own words, which the box showed when he typed
    } else {
        box.xBuddy = target;
        box.hooks.setCaption("Chat with " + target);
    }
    box.show(shownPart(line), consoleLength);
}

} // namespace

bool ChatRouting::zChatBox(const std::string& line) const {
    for (const OpenWindow& open : openWindows.windows) {
        ChatBox* chat = chatOf(open);
        const Standing standing = chat ? standingOf(*chat) : Standing::None;
        if (standing == Standing::None) continue;
        takeTell(*chat, standing, line, consoleLength());
        return true;
    }
    return false;
}

int findChat(const std::string& buddy) {
    for (std::size_t number = 0; number < openWindows.windows.size(); ++number) {
        const ChatBox* chat = chatOf(openWindows.windows[number]);
        if (chat && chat->xBuddy == buddy) return static_cast<int>(number);
    }
    return -1;
}

ChatBox* chatOf(const OpenWindow& window) {
    ChatBox* const* chat = std::any_cast<ChatBox*>(&window.content);
    return chat ? *chat : nullptr;
}

ChatBox& chatAt(int windowNumber) {
    const auto number = static_cast<std::size_t>(windowNumber);
    ChatBox* chat =
        windowNumber >= 0 && number < openWindows.windows.size() ? chatOf(openWindows.windows[number]) : nullptr;
    if (!chat) throw Fault(FaultKind::Subscript, "window " + std::to_string(windowNumber) + " is no chat box");
    return *chat;
}

void proposeBuddy() {
    modChess.NewBuddy = modChess.TellTarget;
    if (findChat(modChess.NewBuddy) != -1) modChess.NewBuddy.clear();
}
