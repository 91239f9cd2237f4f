// Fuzzes the reader of help pages, beside a second writing of it. The first line of the input is the learnt prompt; the
// others are read as lines of answers, one after the other, the last one as its unfinished end.
#include "Require.h"
#include "common/Fault.h"
#include "common/modChess.h"
#include "panels/HelpCapture.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct Model {
    std::vector<std::string> page;
    int blocks = 0;
    bool skipsPrompt = false;
    std::vector<std::string> done;

    bool has(const std::string& line, const std::string& words) const { return line.find(words) != line.npos; }

    // Whether the answer is complete.
    bool take(const std::string& line) {
        done.clear();
        if (has(line, "Type [next]")) {
            ++blocks;
            skipsPrompt = true;
            done = {"Received Blk " + std::to_string(blocks), "Next", "8"};
            return false;
        }
        const bool skipped = skipsPrompt;
        skipsPrompt = false;
        if (has(line, modChess.gPrompt)) return !skipped;
        page.push_back(line);
        return has(line, "No help available");
    }
};

constexpr std::size_t Most = 501;

void compare(const Model& model, const HelpCapture& capture, const std::vector<std::string>& done) {
    require(done == model.done, "an invitation alone is told, answered, and starts the time-out anew, in this order");
    require(capture.NextPending == model.skipsPrompt, "a prompt is passed over behind an invitation alone");
    require(modChess.HelpBlock == model.blocks, "blocks are counted");
    require(static_cast<std::size_t>(modChess.HelpCount) == model.page.size(), "lines are counted");
    for (std::size_t i = 0; i < model.page.size(); ++i) {
        require(modChess.HelpLines[static_cast<long>(i)] == model.page[i], "lines are kept as they came");
    }
}

// False when the program has ended.
bool read(Model& model, HelpCapture& capture, const std::string& line) {
    std::vector<std::string> done;
    capture.blockRead = [&done](const std::string& progress) { done.push_back(progress); };
    const HelpHooks hooks{.zSendMsg = [&done](const std::string& text) { done.push_back(text); },
                          .zSetstate = [&done](std::int16_t state) { done.push_back(std::to_string(state)); }};
    const bool complete = model.take(line);
    try {
        require(zHandleHelp(capture, line, hooks) == complete, "an answer ends where it ends");
    } catch (const Fault& fault) {
        require(fault.kind() == FaultKind::Subscript && model.page.size() == Most + 1, "the 502nd line is the limit");
        return false;
    }
    compare(model, capture, done);
    if (complete) { // as the next question does
        modChess.HelpCount = 0;
        model.page.clear();
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::vector<std::string> lines{{}};
    for (const char c : text) {
        if (c == '\n') {
            lines.back() += lines.size() == 1 ? "" : "\r\n";
            lines.emplace_back();
        } else {
            lines.back() += c;
        }
    }
    modChess = {};
    modChess.gPrompt = lines.front();
    Model model;
    HelpCapture capture;
    for (std::size_t number = 1; number < lines.size(); ++number) {
        if (!read(model, capture, lines[number])) break;
    }
    return 0;
}
