// The program without its windows: the panels of variables and notes open, ask, are answered, send and close, and what
// has to hold of them.
#include "Require.h"
#include "StreamRig.h"
#include "common/modChess.h"
#include "platform/OpenWindows.h"

#include <algorithm>

void StreamRig::panelsEvent(int choice) {
    enum { Open, Close, Okay, Choices };
    RigPanel& panel = (choice & 1) == 0 ? vars_ : notes_;
    switch (choice / 2 % Choices) {
    case Open:
        if (modChess.AppClosing) return;
        loadPanel(panel);
        panel.due = clock_.now;
        return;
    case Close:
        return closePanel(panel);
    default:
        if (panel.loaded) changePanel(panel);
    }
}

void StreamRig::loadPanel(RigPanel& panel) {
    if (panel.loaded) return;
    panel.loaded = std::make_shared<bool>(true);
    panel.due = clock_.now;
    openWindows.add({.className = panel.className, .window = &panel, .unload = [&panel] { closePanel(panel); }});
}

void StreamRig::closePanel(RigPanel& panel) {
    openWindows.remove(&panel);
    panel.loaded.reset();
    panel.due.reset();
}

bool StreamRig::panelAsks(std::int64_t at) {
    for (RigPanel* panel : {&vars_, &notes_}) {
        if (panel->due != at) continue;
        panel->due.reset();
        askFor(*panel);
        return true;
    }
    return false;
}

void StreamRig::askFor(const RigPanel& panel) {
    constexpr int Turn = 10; // ms
    const std::weak_ptr<bool> window = panel.loaded;
    panel.ask({.turn = {.BusyTest = TextPipeline::BusyTest,
                        .secondsOfDay = [this] { return clock_.millisecondsOfDay() / 1000.0; },
                        .pump =
                            [this] {
                                mayWait();
                                pass(Turn);
                            },
                        .isOpen = [window] { return !window.expired(); }},
               .zSetstate = [this](std::int16_t state) { session_.pipeline.zSetstate(state); },
               .zSendMsg = [this](const std::string& text) { session_.road.zSendMsg(text); }});
}

// Everything is changed, and sent; the panel may close meanwhile.
void StreamRig::changePanel(RigPanel& panel) {
    constexpr int Pause = 220; // ms
    const std::weak_ptr<bool> window = panel.loaded;
    const ChangeRoad road{.send =
                              [this](const std::string& text) {
                                  const auto before = modChess.LinesSent;
                                  if (!modChess.AppClosing) session_.road.zSendMsg(text);
                                  return modChess.LinesSent != before;
                              },
                          .pause =
                              [this] {
                                  mayWait();
                                  pass(Pause);
                              }};
    if (&panel == &vars_) {
        VarsChanges changes;
        changes.lblVar.fill(true);
        changes.chkVar[0] = changes.lblPrompt = true;
        changes.txtPrompt = "fics%";
        zSendChanges(changes, road);
    } else {
        NotesChanges changes;
        changes.lblNote.fill(true);
        zSendChanges(changes, road);
    }
    if (!window.expired()) closePanel(panel);
}

// The answer is complete. What is loaded for it asks from the message loop, never here.
void StreamRig::answerPanel(RigPanel& panel) {
    require(draining_, "an answer is complete at one of its lines");
    require(!(&panel == &vars_ ? modChess.gVarsCapture : modChess.gNotesCapture), "its flag has dropped before");
    loadPanel(panel);
    if (&panel == &notes_) return;
    const ServerVars before = said_;
    said_.zParseVars(modChess.VarsBlock);
    require(modChess.VarsBlock.find("Prompt:") != std::string::npos, "the variables end with a prompt");
    require(!said_.VarPrompt.empty() || before.VarPrompt.empty(), "a prompt is not lost");
}
