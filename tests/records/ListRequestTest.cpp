// What asking for a list of games does, how long it waits for other answers, and when it gives up.
#include "records/ListRequest.h"

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct ListRequest : testing::Test {
    ListRequest() {
        lists.HistCount = 7;
        lists.HistHandle = "before";
    }

    ListRequestHooks hooks() {
        return {
            .turn = {.BusyTest = [this] { return busy; },
                     .secondsOfDay = [this] { return now; },
                     .pump =
                         [this] {
                             now += 0.5;
                             ++pumps;
                             inPump();
                         },
                     .isOpen = [this] { return open; }},
            .player = [this] { return player; },
            .setCaption = [this](const std::string& caption) { done.push_back("caption " + caption); },
            .zSetstate = [this](std::int16_t state) { done.push_back("state " + std::to_string(state)); },
            .zSendMsg = [this](const std::string& text) { done.push_back(text); },
        };
    }
    void go(const char* command) { zGo(command, lists, hooks()); }
    void expectNothing() const {
        EXPECT_THAT(done, IsEmpty());
        EXPECT_EQ(lists.HistCount, 7);
        EXPECT_EQ(lists.HistHandle, "before");
    }

    HistoryLists lists;
    bool busy = false;
    bool open = true;
    double now = 1000;
    int pumps = 0;
    std::string player = "foo";
    std::function<void()> inPump = [] {};
    std::vector<std::string> done;
};

} // namespace

TEST_F(ListRequest, ThePlayersListIsAskedForWithItsCapitalTheCaptureBefore) {
    go("History");
    EXPECT_THAT(done, ElementsAre("caption History for foo", "state 9", "History foo"));
    EXPECT_EQ(lists.HistCount, 0);
    EXPECT_EQ(lists.HistHandle, "");
    EXPECT_EQ(pumps, 0);
}

TEST_F(ListRequest, StoredGamesHaveAnotherCaption) {
    go("Stored");
    go("Journal");
    EXPECT_THAT(done, ElementsAre("caption Stored games for foo", "state 9", "Stored foo", "caption Journal for foo",
                                  "state 9", "Journal foo"));
}

TEST_F(ListRequest, ItWaitsForOtherAnswersAndTakesThePlayerOfThen) {
    busy = true;
    inPump = [this] {
        busy = pumps < 3;
        player = "bar";
    };
    go("History");
    EXPECT_EQ(pumps, 3);
    EXPECT_THAT(done, ElementsAre("caption History for bar", "state 9", "History bar"));
}

TEST_F(ListRequest, WithoutATurnItGivesUpSilently) {
    busy = true;
    go("History");
    expectNothing();
}

TEST_F(ListRequest, AWindowThatClosesInTheWaitAsksNothing) {
    busy = true;
    inPump = [this] {
        busy = false;
        open = false;
    };
    go("History");
    expectNothing();
}

TEST_F(ListRequest, ASecondOneRunsBesideTheFirst) {
    busy = true;
    inPump = [this] {
        inPump = [this] { busy = false; };
        go("Journal");
    };
    go("History");
    EXPECT_THAT(done, ElementsAre("caption Journal for foo", "state 9", "Journal foo", "caption History for foo",
                                  "state 9", "History foo"));
}
