// What asking for a help page does, and when it does nothing.
#include "panels/HelpRequest.h"

#include "common/modChess.h"

#include <gmock/gmock.h>

#include <functional>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct HelpRequest : testing::Test {
    HelpRequest() {
        modChess = {};
        modChess.HelpCount = 7;
        modChess.HelpBlock = 3;
    }
    ~HelpRequest() override { modChess = {}; }

    void go() {
        zGo({.turn = {.BusyTest = [this] { return busy; },
                      .secondsOfDay = [this] { return now; },
                      .pump =
                          [this] {
                              now += 0.5;
                              inPump();
                          },
                      .isOpen = [this] { return open; }},
             .topic = [this] { return topic; },
             .zSetstate = [this](std::int16_t state) { done.push_back("state " + std::to_string(state)); },
             .zSendMsg = [this](const std::string& text) { done.push_back(text); }});
    }
    void expectNothing() const {
        EXPECT_THAT(done, IsEmpty());
        EXPECT_EQ(modChess.HelpCount, 7);
    }

    bool busy = false;
    bool open = true;
    double now = 1000;
    std::string topic = "seek";
    std::function<void()> inPump = [] {};
    std::vector<std::string> done;
};

} // namespace

TEST_F(HelpRequest, TheCaptureIsArmedAndTheTopicAskedForWithACapital) {
    go();
    EXPECT_THAT(done, ElementsAre("state 8", "Help seek"));
    EXPECT_EQ(modChess.HelpCount, 0);
}

TEST_F(HelpRequest, ItDoesNotBeginToCountBlocksAnew) {
    go();
    EXPECT_EQ(modChess.HelpBlock, 3);
}

TEST_F(HelpRequest, WithoutATopicTheBlankStays) {
    topic.clear();
    go();
    EXPECT_EQ(done.back(), "Help ");
}

TEST_F(HelpRequest, AnotherAnswerIsWaitedFor) {
    busy = true;
    inPump = [this] { busy = now < 1003; };
    go();
    EXPECT_THAT(done, ElementsAre("state 8", "Help seek"));
}

TEST_F(HelpRequest, TheTopicIsThatOfTheEndOfTheWait) {
    busy = true;
    inPump = [this] {
        topic = "later";
        busy = false;
    };
    go();
    EXPECT_EQ(done.back(), "Help later");
}

TEST_F(HelpRequest, AfterFourSecondsItGivesUpWithoutAsking) {
    busy = true;
    go();
    expectNothing();
    EXPECT_EQ(now, 1004.5);
}

TEST_F(HelpRequest, AWindowThatClosesInTheWaitAsksNothing) {
    busy = true;
    inPump = [this] { open = busy = false; };
    go();
    expectNothing();
}
