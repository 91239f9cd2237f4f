// The program without its windows: what has to hold of batches, and of what the console shows of them.
#include "StreamRig.h"

#include "ConsoleModel.h"
#include "Require.h"
#include "common/modChess.h"

#include <functional>
#include <map>
#include <optional>

namespace {

constexpr std::size_t MostLines = ServerLines::Last + 1;

bool isBreak(char c) { return c == '\r' || c == '\n'; }

// Where the prompt begins whose line ends `text`, "...\n\rfics% \n\r".
std::optional<std::size_t> promptsLine(std::string_view text, std::string_view prompt) {
    if (text.empty() || !isBreak(text.back())) return std::nullopt;
    const char last = text.back();
    text.remove_suffix(1);
    if (!text.empty() && isBreak(text.back()) && text.back() != last) text.remove_suffix(1);
    if (!text.ends_with(prompt)) return std::nullopt;
    text.remove_suffix(prompt.size());
    if (!text.empty() && !isBreak(text.back())) return std::nullopt;
    return text.size();
}

} // namespace

void StreamRig::parseBatch(const std::string& batch, const std::function<void()>& act) {
    require(!draining_, "a batch is read to its end before the next one");
    require(socket_.text().compare(parsed_, batch.size(), batch) == 0, "the batches put together are the arrivals");
    checkSize(batch);
    batch_ = {parsed_, letThrough_ == parsed_, {}, {}};
    parsed_ += batch.size();
    const std::size_t before = console_.size() + modChess.BlockedText.size();
    const bool promptShown = session_.classifier.PromptShown;
    const bool passes = session_.pipeline.PassThroughCount != 0;
    draining_ = true;
    act();
    draining_ = false;
    if (passes) letThrough_ = parsed_;
    checkPasswordKept();
    const std::string added = shown().substr(before);
    checkConsole(batch, added, promptShown);
    const bool anyTaken = !batch_.toBoards.empty() || !batch_.toChats.empty();
    if (session_.serverLines.verbose || !anyTaken) return;
    checkBlanked(batch, added);
    checkFront();
}

void StreamRig::takeLine12(const std::string& line, bool delivered) {
    relationFaked_ = relationFaked_ || modChess.Record.Relation == -100;
    if (!delivered) return;
    batch_.toBoards.push_back(lineNumber(line));
    require(batch_.toBoards.back() != -1, "a record is a line of the batch");
}

// The number of a line that is passed as it stands in the batch; -1 for any other.
int StreamRig::lineNumber(const std::string& line) const {
    const ServerLines& lines = session_.serverLines;
    const std::less<> before;
    if (before(&line, &lines[0]) || before(&lines[ServerLines::Last], &line)) return -1;
    return static_cast<int>(&line - &lines[0]);
}

void StreamRig::checkSize(const std::string& batch) const noexcept {
    if (batch.size() <= MostLines) return;
    require(linesOf(batch).size() <= MostLines || linesOf(socket_.lastArrival()).size() > MostLines,
            "no batch is longer than the classifier takes, unless one arrival is");
}

void StreamRig::checkConsole(const std::string& batch, const std::string& added, bool promptShown) const noexcept {
    if (modChess.gConsoleQuiet || modChess.AppClosing) {
        require(added.empty(), "a quiet console shows nothing, nor does one that closes");
    } else if (!session_.serverLines.verbose) {
        require(isLeftOf(squeezed(added), squeezed(batch)), "the console shows only what arrived, in its order");
    } else if (const auto expected = verboseText(batch, modChess.gPrompt, promptShown)) {
        require(squeezed(added) == *expected, "in Verbose Mode the console shows every line once");
    }
}

// What a board or a chat box took is not shown, nor is the line in front of it, nor are short ones behind a record.
void StreamRig::checkBlanked(const std::string& batch, const std::string& added) const noexcept {
    const std::vector<std::string> lines = linesOf(batch);
    std::vector<bool> blanked(lines.size());
    const auto blank = [&](int number) {
        if (number >= 0 && static_cast<std::size_t>(number) < lines.size()) {
            blanked[static_cast<std::size_t>(number)] = true;
        }
    };
    for (const auto* taken : {&batch_.toBoards, &batch_.toChats}) {
        for (const int number : *taken) {
            if (number == 0 && taken == &batch_.toBoards) continue; // a record in front of all is shown as it came
            blank(number - 1);
            blank(number);
        }
    }
    for (const int number : batch_.toBoards) {
        if (number > 0) blankShort(lines, number + 1, blank);
    }
    std::map<std::string, int> visible; // how often a text may be shown
    for (std::size_t number = 0; number < lines.size(); ++number) {
        visible[visibleText(lines[number])] += blanked[number] ? 0 : 1;
    }
    for (const std::string& line : linesOf(added)) {
        const auto found = visible.find(visibleText(line));
        require(found == visible.end() || found->first.empty() || --found->second >= 0,
                "what a board or a chat box took is not shown");
    }
}

// Only a record that is the first line of its batch is shown, and one batch ends between a prompt's line and a record
// only where the line was quiet, within the prompt or behind it.
void StreamRig::checkFront() const noexcept {
    const auto& taken = batch_.toBoards;
    if (taken.empty() || taken.front() != 0 || modChess.gPrompt.empty()) return;
    const auto before = std::string_view(socket_.text()).substr(0, batch_.begin);
    const auto prompt = promptsLine(before, modChess.gPrompt);
    require(!prompt || socket_.quietBetween(*prompt, batch_.begin) || batch_.behindLetThrough,
            "a record behind a prompt's line is not the first of its batch");
}
