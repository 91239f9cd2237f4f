// Holds the stream back until the server's prompt shows or the line goes quiet, and hands it on in batches.
#include "session/TextPipeline.h"

#include "common/CaptureState.h"
#include "common/RaisedFlag.h"
#include "common/Text.h"
#include "common/modChess.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr int SilenceMs = 3000;
constexpr int LoneTailMs = 1000;
constexpr int CaptureMs = 5000;
constexpr std::size_t LongestWord = 9; // "password:"

// The prompt nearly always ends the text. An empty prompt counts as found.
bool holdsPrompt(std::string_view text) { return text.ends_with(modChess.gPrompt) || contains(text, modChess.gPrompt); }

// Looks for the colon first: it is rarer than the letters in front of it.
bool holdsWord(std::string_view text, std::string_view wordWithColon) {
    for (auto colon = text.find(':'); colon != text.npos; colon = text.find(':', colon + 1)) {
        if (text.substr(0, colon + 1).ends_with(wordWithColon)) return true;
    }
    return false;
}

using Flag = bool ModChess::*;

constexpr std::array<std::pair<std::int16_t, Flag>, 6> captureFlags{{{VarsState, &ModChess::gVarsCapture},
                                                                     {MovesState, &ModChess::MovesCapture},
                                                                     {SoughtState, &ModChess::gSoughtCapture},
                                                                     {NotesState, &ModChess::gNotesCapture},
                                                                     {HelpState, &ModChess::gHelpCapture},
                                                                     {HistoryState, &ModChess::HistoryCapture}}};

// HistoryCapture is left out on purpose: a history that never finishes is armed until its own end line.
constexpr std::array<Flag, 6> busyFlags{&ModChess::gNotesCapture,  &ModChess::gVarsCapture, &ModChess::gHelpCapture,
                                        &ModChess::gSoughtCapture, &ModChess::MovesCapture, &ModChess::NewGameFlag};

} // namespace

TextPipeline::TextPipeline(ServerLines& serverLines, PipelineHooks reachedOut)
    : lines(serverLines), hooks(std::move(reachedOut)) {
    lines.tailSeen = [this] { hooks.startTimer(SessionTimer::tmrPrompt, LoneTailMs); };
}

void TextPipeline::zDataArrival() {
    const std::size_t held = PendingText.size();
    PendingText += hooks.getData();
    if (ParseBusy) return;
    const RaisedFlag busy(ParseBusy);
    disarm();
    hooks.textArrived();
    takeArrival(held);
}

void TextPipeline::disarm() {
    hooks.stopTimer(SessionTimer::tmrPrompt);
    login = 0;
    hooks.clearMask();
    hooks.stopTimer(SessionTimer::tmrArrival);
    modChess.Deadlines[0] = 0;
}

// What is held was searched when it came, so that a long answer costs no more than its length. Another prompt than then
// may stand anywhere in it.
std::string_view TextPipeline::unsearched(std::size_t held) {
    if (searchedFor_ != modChess.gPrompt) held = 0;
    searchedFor_ = modChess.gPrompt;
    const std::size_t overlap = std::max(modChess.gPrompt.size(), LongestWord);
    return std::string_view(PendingText).substr(held - std::min(held, overlap));
}

void TextPipeline::takeArrival(std::size_t held) {
    const std::string_view text = unsearched(held);
    if (PassThroughCount != 0) {
        drain(held);
        --PassThroughCount;
    } else if (holdsWord(text, "login:")) {
        drain(held);
    } else if (holdsWord(text, "password:")) {
        learnHandle();
        drain(held);
        PassThroughCount = 5;
    } else if (holdsPrompt(text)) {
        drain(held);
    } else {
        hold(held);
    }
}

// Without it an answer of any length would wait for its prompt, and end the program when the prompt comes.
void TextPipeline::letGoFullBatches(std::size_t held) {
    if (held == 0) heldLines_ = {};
    heldLines_.add(std::string_view(PendingText).substr(held));
    while (held > 0 && heldLines_.overfull()) {
        const std::string batch = PendingText.substr(0, frontOfFullBatch(PendingText));
        PendingText.erase(0, batch.size());
        hooks.dataParse(batch);
        heldLines_ = {};
        heldLines_.add(PendingText);
    }
}

// What arrives while a batch is being read lands in PendingText.
void TextPipeline::drain(std::size_t held) {
    if (held > 0) letGoFullBatches(held);
    do {
        hooks.dataParse(std::exchange(PendingText, {}));
    } while (!PendingText.empty());
}

// What was sent last at this moment is the answer to "login:".
void TextPipeline::learnHandle() {
    modChess.MyHandle = modChess.gLastCmd;
    hooks.showHandle(modChess.MyHandle);
}

void TextPipeline::hold(std::size_t held) {
    letGoFullBatches(held);
    modChess.Deadlines[0] = hooks.millisecondsOfDay() + SilenceMs;
    hooks.startTimer(SessionTimer::tmrArrival, SilenceMs);
}

void TextPipeline::tmrArrival() {
    hooks.stopTimer(SessionTimer::tmrArrival);
    modChess.Deadlines[0] = -1;
    drain(0);
}

void TextPipeline::tmrPrompt() {
    hooks.stopTimer(SessionTimer::tmrPrompt);
    if (lines.PartialLine.size() < 2 || !lines.PartialLine.ends_with(' ')) return;
    modChess.gPrompt = lines.PartialLine;
    // The flip to stars and back is the visible beat of a session that repeats its prompt.
    hooks.setPromptCaption(hooks.promptCaption() != modChess.gPrompt ? modChess.gPrompt : "***");
}

void TextPipeline::zSetstate(std::int16_t state) {
    for (const auto& [code, flag] : captureFlags) {
        if (code == state) modChess.*flag = true;
    }
    hooks.startTimer(SessionTimer::tmrState, CaptureMs);
    modChess.Deadlines[1] = hooks.millisecondsOfDay() + CaptureMs;
}

void TextPipeline::tmrState() {
    for (const Flag flag : busyFlags) modChess.*flag = false;
    hooks.stopTimer(SessionTimer::tmrState);
    modChess.Deadlines[1] = -1;
}

bool TextPipeline::BusyTest() {
    return std::ranges::any_of(busyFlags, [](Flag flag) { return modChess.*flag; });
}
