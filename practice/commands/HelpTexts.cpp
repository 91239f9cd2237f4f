// The server's help.
#include "practice/commands/HelpTexts.h"

#include "practice/commands/CommandNames.h"
#include "practice/commands/HelpPages.h"
#include "practice/text/Text.h"

namespace practice {

namespace {

// Four to a line, the last with its blanks as well.
std::string commandList() {
    std::string text;
    std::size_t column = 0;
    for (const std::string& name : commandNames()) {
        if (column == 4) text += "\n";
        column = column % 4 + 1;
        text += padRight(name, 19);
    }
    return text;
}

std::string manual() {
    std::string text = "All commands";
    for (const auto& [topic, page] : commandPages()) text += "\n\n" + page;
    return text;
}

// The page of a topic that begins with `head`, a whole name before a longer one; empty if there is none.
std::string pageIn(const HelpPages& pages, const std::string& head) {
    const auto at = pages.lower_bound(head);
    return at != pages.end() && startsWith(at->first, head) ? at->second : std::string();
}

} // namespace

std::string helpOn(const std::string& topic) {
    const std::string wanted = topic.empty() ? "help" : lower(trim(topic));
    if (wanted == "commands") return commandList();
    if (wanted == "manual") return manual();
    for (const HelpPages* pages : {&commandPages(), &guidePages()}) {
        if (std::string page = pageIn(*pages, wanted); !page.empty()) return page;
    }
    return "No help available on \"" + wanted + "\".";
}

} // namespace practice
