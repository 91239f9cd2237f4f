// The program without its windows: the help panel and the self check open, are worked and close, and what has to hold
// of them.
#include "Require.h"
#include "StreamRig.h"
#include "common/modChess.h"
#include "panels/HelpRequest.h"
#include "platform/OpenWindows.h"

#include <algorithm>
#include <utility>

namespace {

enum class HelpEvent { Go, Enter, Clear, AutoClear, Exit, Entry };
enum class SelfCheckEvent { Entry, Close, Force, FirstBox };

bool isFull(const SelfCheckSheet& sheet) {
    const auto filled = [](const SelfCheckSheet::Tally& box) { return box.has_value(); };
    return std::ranges::all_of(sheet.txtAgainst, filled) && std::ranges::all_of(sheet.txtBy, filled);
}

bool isEmpty(const SelfCheckSheet& sheet) {
    const auto filled = [](const SelfCheckSheet::Tally& box) { return box.has_value(); };
    return std::ranges::none_of(sheet.txtAgainst, filled) && std::ranges::none_of(sheet.txtBy, filled);
}

} // namespace

// The help panel

void StreamRig::helpEvent(int choice) {
    const auto event = static_cast<HelpEvent>(choice);
    if (event == HelpEvent::Entry && !modChess.AppClosing) return openHelp();
    if (!help_) return;
    switch (event) {
    case HelpEvent::Go:
        return goForHelp();
    case HelpEvent::Enter:
        return askForHelp();
    case HelpEvent::Clear:
        return help_->pane.clear();
    case HelpEvent::AutoClear:
        help_->autoClear = !help_->autoClear;
        return;
    case HelpEvent::Exit:
        return closeHelp();
    default:
        return;
    }
}

void StreamRig::openHelp() {
    if (help_) return;
    help_ = std::make_shared<RigHelp>();
    help_->due = clock_.now + RigHelp::FirstTick;
    session_.helpCapture.blockRead = [this](const std::string& progress) {
        require(modChess.gHelpCapture && draining_, "a block comes in an answer");
        help_->progress = progress;
    };
    openWindows.add({.className = "frmChessHelp",
                     .window = help_.get(),
                     .unload = [this] { closeHelp(); },
                     .answered = [this] { showHelp(); }});
}

void StreamRig::startHelp() {
    require(!draining_, "no window opens in the middle of a batch but boards and the seek graph");
    if (modChess.AppClosing) return;
    openHelp();
    help_->due = clock_.now + RigHelp::FirstTick;
}

void StreamRig::closeHelp() {
    session_.helpCapture.blockRead = [](const std::string&) {};
    openWindows.remove(help_.get());
    help_.reset();
}

void StreamRig::tmrHelp() {
    help_->due.reset();
    if (modChess.gHelpTopic.empty()) return;
    help_->topic = std::exchange(modChess.gHelpTopic, {});
    goForHelp();
}

void StreamRig::goForHelp() {
    help_->progress = "Sending Help Cmd";
    modChess.HelpBlock = 0;
    askForHelp();
}

void StreamRig::askForHelp() {
    if (help_->autoClear) help_->pane.clear();
    const std::weak_ptr<RigHelp> window = help_;
    zGo({.turn = turnOf([window] { return !window.expired(); }),
         .topic = [window] { return window.lock()->topic; },
         .zSetstate = [this](std::int16_t state) { session_.pipeline.zSetstate(state); },
         .zSendMsg = [this](const std::string& text) { session_.road.zSendMsg(text); }});
}

void StreamRig::showHelp() {
    require(modChess.gHelpCapture, "a page is shown before its flag drops");
    for (std::int16_t i = 0; i < modChess.HelpCount; ++i) {
        const std::string& line = modChess.HelpLines[i];
        require(line.find("Type [next]") == line.npos, "no invitation reaches the pane");
        if (line != modChess.gPrompt) help_->pane += line;
    }
    help_->progress.clear();
}

// The self check

void StreamRig::selfCheckEvent(int choice) {
    const auto event = static_cast<SelfCheckEvent>(choice);
    if (event == SelfCheckEvent::Entry && !modChess.AppClosing) return openSelfCheck();
    if (!selfCheck_) return;
    SelfCheckSheet& sheet = selfCheck_->sheet;
    if (event == SelfCheckEvent::Close) {
        closeSelfCheck();
    } else if (event == SelfCheckEvent::Force) {
        sheet.force(!sheet.chkForced);
        require(modChess.SelfCheckOK == (sheet.chkForced || isFull(sheet)), "a click on the tick box decides anew");
    } else if (event >= SelfCheckEvent::FirstBox) {
        workBox(choice - static_cast<int>(SelfCheckEvent::FirstBox));
    }
}

// Ten boxes each under the left button, the right one, a digit, Backspace and Delete; from 50 on all get a 0.
void StreamRig::workBox(int choice) {
    SelfCheckSheet& sheet = selfCheck_->sheet;
    SelfCheckSheet::Tally& box = choice % 10 < 5 ? sheet.txtAgainst[choice % 5] : sheet.txtBy[choice % 5];
    const bool before = modChess.SelfCheckOK;
    switch (choice / 10) {
    case 0:
    case 1:
        sheet.press(box, choice < 10);
        break;
    case 2:
        sheet.type(box, choice % 10);
        break;
    case 3:
        sheet.eraseDigit(box);
        break;
    case 4:
        sheet.empty(box);
        break;
    default:
        for (int row = 0; row < 5; ++row) {
            sheet.type(sheet.txtAgainst[row], 0);
            sheet.type(sheet.txtBy[row], 0);
        }
    }
    require(modChess.SelfCheckOK == (before || sheet.chkForced || isFull(sheet)), "a box may open the way alone");
    require(!box || *box >= 0, "no tally goes below 0");
}

void StreamRig::openSelfCheck() {
    if (selfCheck_) return;
    selfCheck_ = std::make_unique<RigSelfCheck>();
    SelfCheckSheet::load();
    openWindows.add({.className = "frmSelfCheck",
                     .window = selfCheck_.get(),
                     .unload = [this] { closeSelfCheck(); },
                     .content = &selfCheck_->sheet});
}

void StreamRig::closeSelfCheck() {
    SelfCheckSheet::unload();
    openWindows.remove(selfCheck_.get());
    selfCheck_.reset();
}

// What a board has of the panel.
void StreamRig::moveMade() {
    resetSelfCheck();
    if (!selfCheck_) return;
    const SelfCheckSheet& sheet = selfCheck_->sheet;
    require(isEmpty(sheet) && !sheet.chkForced && !modChess.SelfCheckOK, "a piece that was dropped empties the sheet");
    require(std::exchange(selfCheck_->shownAnew, false), "and its panel shows so");
}

void StreamRig::checkHelp() const noexcept {
    require(modChess.HelpCount >= 0 && modChess.HelpCount <= HelpPage::last + 1, "a page has 501 lines at most");
    require(modChess.SelfCheckOpen == (selfCheck_ != nullptr), "the panel's flag says whether it is open");
}
