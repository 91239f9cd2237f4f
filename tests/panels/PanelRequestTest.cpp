// What the panels ask the server, and when they do not.
#include "panels/PanelRequest.h"

#include "common/modChess.h"

#include <gmock/gmock.h>

#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct PanelRequest : testing::Test {
    PanelRequest() { modChess = {}; }
    ~PanelRequest() override { modChess = {}; }

    PanelRequestHooks hooks() {
        return {.turn = {.BusyTest = [this] { return busy; },
                         .secondsOfDay = [this] { return now += 1; },
                         .pump = [this] { inPump(); },
                         .isOpen = [this] { return open; }},
                .zSetstate = [this](std::int16_t state) { asked.push_back("state " + std::to_string(state)); },
                .zSendMsg = [this](const std::string& text) { asked.push_back(text); }};
    }

    std::vector<std::string> asked;
    bool busy = false;
    bool open = true;
    double now = 1000;
    std::function<void()> inPump = [] {};
};

} // namespace

TEST_F(PanelRequest, VariablesAreCapturedAndAskedFor) {
    askForVars(hooks());
    EXPECT_THAT(asked, ElementsAre("state 3", "Vars"));
}

TEST_F(PanelRequest, NotesAreEmptiedCapturedAndAskedFor) {
    modChess.NotesText.fill("old");
    askForNotes(hooks());
    EXPECT_THAT(asked, ElementsAre("state 7", "Fi"));
    for (const std::string& note : modChess.NotesText) EXPECT_EQ(note, "");
}

TEST_F(PanelRequest, BehindAnotherAnswerTheyAsk) {
    busy = true;
    inPump = [this] { busy = false; };
    askForVars(hooks());
    busy = true;
    askForNotes(hooks());
    EXPECT_THAT(asked, ElementsAre("state 3", "Vars", "state 7", "Fi"));
}

TEST_F(PanelRequest, WithoutATurnTheyAskNothingAndTheNotesStay) {
    busy = true;
    modChess.NotesText.fill("old");
    askForVars(hooks());
    askForNotes(hooks());
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_EQ(modChess.NotesText[9], "old");
}

TEST_F(PanelRequest, AWindowThatClosesInTheWaitAsksNothing) {
    busy = true;
    inPump = [this] { busy = open = false; };
    askForVars(hooks());
    EXPECT_THAT(asked, IsEmpty());
}
