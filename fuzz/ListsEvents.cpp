// The program without its windows: the window of listed games opens, asks, is answered and closes, and what has to hold
// of it.
#include "Require.h"
#include "StreamRig.h"
#include "common/modChess.h"
#include "platform/OpenWindows.h"

#include <utility>

void StreamRig::listsEvent(int choice) {
    constexpr int Return = 3;
    constexpr int Exit = 4;
    constexpr int Entry = 5;
    if (choice == Entry && !modChess.AppClosing) return openHistory();
    if (!history_ || choice > Exit) return;
    if (choice == Exit) return closeHistory();
    if (choice == Return) return goFor("History");
    askForList(static_cast<std::int16_t>(choice));
}

void StreamRig::openHistory() {
    if (history_) return;
    history_ = std::make_shared<RigHistory>(session_);
    history_->due = clock_.now + RigHistory::FirstTick;
    session_.historyLists.handleRead = [this](const std::string& title) {
        const std::string& handle = session_.historyLists.HistHandle;
        require(!handle.empty() && handle.find(':') == handle.npos, "a title names somebody");
        history_->player = handle;
        history_->caption = title + handle;
    };
    openWindows.add({.className = "frmHistory",
                     .window = history_.get(),
                     .unload = [this] { closeHistory(); },
                     .answered = [this] { showList(); }});
}

void StreamRig::startHistory() {
    require(!draining_, "no window opens in the middle of a batch but boards and the seek graph");
    if (modChess.AppClosing) return;
    openHistory();
    history_->due = clock_.now + RigHistory::FirstTick;
}

void StreamRig::closeHistory() {
    session_.historyLists.handleRead = [](const std::string&) {};
    openWindows.remove(history_.get());
    history_.reset();
}

void StreamRig::tmrHist() {
    history_->due.reset();
    if (modChess.gHelpTopic.empty()) {
        history_->player = session_.logOn.handle;
    } else {
        history_->player = std::exchange(modChess.gHelpTopic, {});
        askForList(HistoryKindGames);
    }
}

void StreamRig::askForList(std::int16_t kind) {
    modChess.HistoryKind = kind;
    history_->rows = 0;
    goFor(lookOf(kind).command);
}

TurnHooks StreamRig::turnOf(std::function<bool()> isOpen) {
    constexpr int Turn = 10; // ms
    return {.BusyTest = TextPipeline::BusyTest,
            .secondsOfDay = [this] { return clock_.millisecondsOfDay() / 1000.0; },
            .pump =
                [this] {
                    mayWait();
                    pass(Turn);
                },
            .isOpen = std::move(isOpen)};
}

void StreamRig::goFor(const std::string& command) {
    const std::weak_ptr<RigHistory> window = history_;
    zGo(command, session_.historyLists,
        {.turn = turnOf([window] { return !window.expired(); }),
         .player = [window] { return window.lock()->player; },
         .setCaption = [window](const std::string& caption) { window.lock()->caption = caption; },
         .zSetstate = [this](std::int16_t state) { session_.pipeline.zSetstate(state); },
         .zSendMsg = [this](const std::string& text) { session_.road.zSendMsg(text); }});
}

void StreamRig::showList() {
    require(modChess.HistoryCapture, "the list is shown before its flag drops");
    history_->rows = session_.historyLists.HistCount;
    if (history_->rows == 0) session_.tell(history_->player + lookOf(modChess.HistoryKind).empty);
}

void StreamRig::checkLists() const noexcept {
    const HistoryLists& lists = session_.historyLists;
    require(lists.HistCount >= 0 && lists.HistCount <= lists.HistRows.last + 1, "a list has ten rows at most");
    if (!history_) return;
    require(history_->rows <= lists.HistRows.last + 1, "ten rows at most are on show");
}
