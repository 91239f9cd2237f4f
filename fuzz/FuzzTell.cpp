// Fuzzes the readers of tells. The first line of the input is the learnt prompt, the second the tell's target so far.
#include "Require.h"
#include "common/modChess.h"
#include "session/LinePhrases.h"
#include "session/TellLine.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

namespace {

// Takes the text up to the next LF from the front of `text`.
std::string takeLine(std::string_view& text) {
    const auto end = std::min(text.find('\n'), text.size());
    std::string line(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

void checkSender(std::string line) {
    const std::string whole = line;
    const std::string target = modChess.TellTarget;
    const std::string sender = zGetTell(line);
    require(whole.ends_with(line), "a tell loses text at its front alone");
    require(std::ranges::all_of(whole.substr(0, whole.size() - line.size()),
                                [](char c) { return static_cast<unsigned char>(c) < 33; }),
            "a tell loses blanks and control characters alone");
    require(line.starts_with(sender) || target.starts_with(sender), "the sender stands in front, or is the old target");
    require(modChess.TellTarget == target, "reading a sender changes no target");
}

void checkPhrases(std::string_view line) {
    const PhraseSet found = phrasesIn(line);
    require(found.has(Phrase::Login) == (line.find("login:") != line.npos), "login: is found wherever it stands");
    require(found.has(Phrase::Quillf) == (line.find("quillf") != line.npos), "quillf is found wherever it stands");
    require(found.has(Phrase::Draw) == (line.find("} 1/2-1/2") != line.npos), "a draw is found wherever it stands");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    modChess = {};
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    modChess.gPrompt = takeLine(rest);
    modChess.TellTarget = takeLine(rest);
    modChess.ChannelSender = "before";
    const std::int16_t type = zTellLine(rest);
    require((type >= NoTell && type <= Shout) || modChess.ChannelSender != "before" || rest.starts_with("before") ||
                rest.find("before(") != rest.npos,
            "a channel tell names its sender");
    require(type < ChannelTell || rest.find("):") != rest.npos, "a channel tell has its brackets");
    require(type >= ChannelTell || modChess.ChannelSender == "before" || type < NoTell || rest.find("):") != rest.npos,
            "only a channel tell names a channel's sender");
    checkSender(std::string(rest));
    checkPhrases(rest);
    return 0;
}
