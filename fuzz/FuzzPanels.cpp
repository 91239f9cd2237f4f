// Fuzzes the readers of the server's variables and of finger notes, beside a second writing of them, and what is sent
// of them. The first line of the input is the learnt prompt, the second what a user types into each field; the others
// are read as lines of an answer, the last one as its unfinished end.
#include "Require.h"
#include "common/Fault.h"
#include "common/Numbers.h"
#include "common/modChess.h"
#include "panels/FingerNotes.h"
#include "panels/ServerVars.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

bool has(const std::string& text, const std::string& part) { return text.find(part) != text.npos; }

// The fault of `act`, if it has one.
std::optional<FaultKind> faultOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const Fault& fault) {
        return fault.kind();
    }
    return std::nullopt;
}

// Variables

struct VarsModel {
    std::string block;
    std::map<std::string, double> values; // by key
    std::string prompt;

    bool take(const std::string& line) {
        if (has(line, "Variable settings")) {
            block.clear();
            return false;
        }
        if (has(line, "Prompt:") || has(line, "=")) block += line;
        return has(line, "Prompt:");
    }
    void parse() {
        const auto value = [this](const std::string& key) {
            const auto at = block.find(key);
            if (at != block.npos) values[key] = roundHalfEven(leadingNumber(block.substr(at + key.size())));
        };
        for (const ServerVar& var : numberVars) value(var.key);
        for (const ServerVar& var : flagVars) value(var.key);
        const auto at = block.find("Prompt:");
        if (at == block.npos) return;
        std::string text = block.substr(at + 7);
        while (!text.empty() && text.front() == ' ') text.erase(0, 1);
        while (!text.empty() && text.back() == ' ') text.pop_back();
        if (text.size() > 2) prompt = text.substr(0, text.size() - 2);
    }
    bool tooLarge() const {
        for (const auto& [key, value] : values) {
            if (value < -32768 || value > 32767) return true;
        }
        return false;
    }
};

template <typename Vars, typename Values>
void compare(const VarsModel& model, const Vars& vars, const Values& said) {
    long index = 0;
    for (const ServerVar& var : vars) {
        const auto found = model.values.find(var.key);
        require(said[index++] == (found == model.values.end() ? 0 : found->second),
                "a value is the number behind the first of its key");
    }
}

void readVars(const std::vector<std::string>& lines) {
    VarsModel model;
    ServerVars said;
    for (const std::string& line : lines) {
        const bool done = zVarsLines(line);
        require(done == model.take(line), "the line with the prompt is the end");
        require(modChess.VarsBlock == model.block, "lines with a value are put end to end");
        if (!done) continue;
        model.parse();
        const auto fault = faultOf([&said] { said.zParseVars(modChess.VarsBlock); });
        require(fault.has_value() == model.tooLarge(), "a number beyond 16 bits faults, and nothing else");
        if (fault) return require(*fault == FaultKind::Overflow, "it is an overflow");
        compare(model, numberVars, said.VarNumber);
        compare(model, flagVars, said.VarFlag);
        require(said.VarPrompt == model.prompt, "the prompt is what stands behind its word");
    }
}

// Notes

void readNotes(const std::vector<std::string>& lines) {
    std::map<int, std::string> model;
    for (const std::string& line : lines) {
        bool done = false;
        const auto fault = faultOf([&] { done = zNotesLines(line); });
        const bool isShort = line.size() < 11;
        require(done == (isShort && line == modChess.gPrompt), "a short line that is the prompt is the end");
        const bool note = !isShort && line[2] == ':';
        const double number = note ? roundHalfEven(leadingNumber(line.substr(0, 2)) - 1) : 0;
        require(fault.has_value() == (note && (number < 0 || number > 9)), "a note's number is 1 to 10");
        if (fault) return require(*fault == FaultKind::Subscript, "it is a subscript");
        if (note) model[static_cast<int>(number)] = line.substr(4, line.size() - 6);
        for (int index = 0; index < 10; ++index) {
            require(modChess.NotesText[index] == model[index], "a note is what stands from column 5 on");
        }
    }
}

// Sends

struct Sent {
    std::vector<std::string> lines;
    std::size_t pauses = 0;

    ChangeRoad road(std::size_t most) {
        return {.send =
                    [this, most](const std::string& text) {
                        if (lines.size() == most) return false;
                        lines.push_back(text);
                        return true;
                    },
                .pause = [this] { ++pauses; }};
    }
};

void sendVars(const std::string& typed, std::size_t most) {
    VarsChanges changes;
    std::vector<std::string> expected;
    for (std::size_t index = 0; index < numberVars.size(); ++index) {
        const auto said = static_cast<std::int16_t>(index);
        changes.txtVar[index] = typed;
        changes.lblVar[index] = isOtherNumber(said, typed);
        require(changes.lblVar[index] == (leadingNumber(typed) != static_cast<double>(said)), "a number is compared");
        if (changes.lblVar[index]) expected.push_back("Set " + std::string(numberVars[index].caption) + " " + typed);
    }
    for (std::size_t index = 0; index < flagVars.size(); ++index) {
        changes.chkVar[index] = typed.size() % (index + 2) == 0;
        if (changes.chkVar[index]) expected.push_back("Set " + std::string(flagVars[index].caption));
    }
    changes.lblPrompt = !typed.empty();
    changes.txtPrompt = typed;
    const std::size_t paused = std::min(most, expected.size());
    if (changes.lblPrompt) expected.push_back("Set Prompt " + typed);
    const std::string prompt = changes.lblPrompt ? typed + " " : modChess.gPrompt;
    Sent sent;
    zSendChanges(changes, sent.road(most));
    expected.resize(std::min(most, expected.size()));
    require(sent.lines == expected, "what is marked is sent in order, up to the first that does not go out");
    require(sent.pauses == paused, "a pause stands behind each but the prompt");
    require(modChess.gPrompt == prompt, "the prompt is the new one, if there is one");
}

void sendNotes(const std::string& typed, std::size_t most) {
    NotesChanges changes;
    std::vector<std::string> expected;
    for (std::size_t index = 0; index < FingerNotes; ++index) {
        changes.txtNote[index] = typed;
        changes.lblNote[index] = typed.size() % (index + 2) != 0;
        if (changes.lblNote[index]) expected.push_back("Set " + std::to_string(index + 1) + " " + typed);
    }
    expected.resize(std::min(most, expected.size()));
    Sent sent;
    zSendChanges(changes, sent.road(most));
    require(sent.lines == expected && sent.pauses == expected.size(), "notes are sent in order");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::vector<std::string> lines{{}};
    for (const char c : text) {
        if (c == '\n') {
            lines.back() += lines.size() <= 2 ? "" : "\r\n";
            lines.emplace_back();
        } else {
            lines.back() += c;
        }
    }
    modChess = {};
    modChess.gPrompt = lines.front();
    const std::string typed = lines.size() > 1 ? lines[1] : std::string();
    lines.erase(lines.begin(), lines.begin() + static_cast<long>(std::min<std::size_t>(2, lines.size())));
    readVars(lines);
    readNotes(lines);
    sendNotes(typed, size % 12);
    sendVars(typed, size % 40);
    return 0;
}
