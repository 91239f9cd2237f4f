// The user's variables on the server.
#include "panels/ServerVars.h"

#include "common/Numbers.h"
#include "common/Text.h"
#include "common/modChess.h"

#include <optional>
#include <vector>

namespace {

constexpr const char* Title = "Variable settings";
constexpr const char* PromptKey = "Prompt:";
constexpr std::size_t LineEnd = 2; // characters

// time=2       private=0     shout=1         pin=0           style=12
std::optional<std::int16_t> valueOf(std::string_view block, const char* key) {
    const auto at = block.find(key);
    if (at == block.npos) return std::nullopt;
    return toInt16(leadingNumber(block.substr(block.find('=', at) + 1)));
}

template <typename Vars, typename Values>
void readValues(std::string_view block, const Vars& vars, Values& values) {
    for (std::size_t index = 0; index < vars.size(); ++index) {
        const auto value = valueOf(block, vars[index].key);
        if (value) values[static_cast<long>(index)] = *value;
    }
}

std::vector<std::string> linesOf(const VarsChanges& changes) {
    std::vector<std::string> lines;
    for (std::size_t index = 0; index < numberVars.size(); ++index) {
        if (changes.lblVar[index])
            lines.push_back(std::string("Set ") + numberVars[index].caption + " " + changes.txtVar[index]);
    }
    for (std::size_t index = 0; index < flagVars.size(); ++index) {
        if (changes.chkVar[index]) lines.push_back(std::string("Set ") + flagVars[index].caption);
    }
    return lines;
}

} // namespace

// Prompt: fics%
void ServerVars::zParseVars(std::string_view block) {
    readValues(block, numberVars, VarNumber);
    readValues(block, flagVars, VarFlag);
    const auto prompt = block.find(PromptKey);
    if (prompt == block.npos) return;
    const std::string_view text = trim(block.substr(block.find(':', prompt) + 1));
    if (text.size() > LineEnd) VarPrompt = text.substr(0, text.size() - LineEnd);
}

bool zVarsLines(std::string_view line) {
    if (contains(line, Title)) {
        modChess.VarsBlock.clear();
        return false;
    }
    const bool last = contains(line, PromptKey);
    if (last || contains(line, "=")) modChess.VarsBlock += line;
    return last;
}

bool isOtherNumber(std::int16_t said, std::string_view typed) { return leadingNumber(typed) != said; }

void zSendChanges(const VarsChanges& changes, const ChangeRoad& road) {
    const bool allSent = sendEach(linesOf(changes), road);
    if (!changes.lblPrompt) return;
    if (allSent) road.send("Set Prompt " + changes.txtPrompt);
    modChess.gPrompt = changes.txtPrompt + " ";
}
