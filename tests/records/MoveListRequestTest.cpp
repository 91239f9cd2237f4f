// What is asked for a move list, by the relation to the game.
#include "records/MoveListRequest.h"

#include "common/modChess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct MoveListRequest : testing::Test {
    std::vector<std::string> events;

    MoveListRequest() {
        modChess = {};
        modChess.MovesRecord.WhiteMoves[3] = "e4";
        modChess.MovesRecord.BlackMoves[200] = "e5";
        modChess.MovesRecord.WhiteTimes[3] = "(0:01)";
        modChess.MovesRecord.LastMove = 7;
    }
    ~MoveListRequest() override { modChess = {}; }

    void ask(int relation, const std::string& argument) {
        zGetMoves(static_cast<std::int16_t>(relation), argument,
                  {.zSendMsg = [this](const std::string& text) { events.push_back(text); },
                   .zSetstate = [this](std::int16_t state) { events.push_back("state " + std::to_string(state)); }});
    }
    static std::string moves() { return modChess.MovesRecord.WhiteMoves[3] + modChess.MovesRecord.BlackMoves[200]; }
};

} // namespace

TEST_F(MoveListRequest, APlayedOrWatchedGameIsAskedForByItsNumber) {
    for (const int relation : {-2, -1, 0, 1}) {
        events.clear();
        ask(relation, "12");
        EXPECT_THAT(events, ElementsAre("moves 12", "state 4"));
    }
}

TEST_F(MoveListRequest, OnlyTheMovesAreEmptied) {
    ask(0, "12");
    EXPECT_EQ(moves(), "");
    EXPECT_EQ(modChess.MovesRecord.WhiteTimes[3], "(0:01)");
    EXPECT_EQ(modChess.MovesRecord.LastMove, 7);
}

TEST_F(MoveListRequest, AnExaminedGameIsAskedForByTheWordsBehindTheLastCommand) {
    modChess.gLastCmd = "examine foo 3";
    modChess.ExamineNoMoves = true;
    ask(2, "12");
    EXPECT_THAT(events, ElementsAre("smoves foo 3", "state 4"));
    EXPECT_EQ(moves(), "");
    EXPECT_FALSE(modChess.ExamineNoMoves);
}

TEST_F(MoveListRequest, WithoutWordsBehindItNothingIsAskedAndNothingEmptied) {
    modChess.gLastCmd = "examine";
    ask(2, "12");
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(moves(), "e4e5");
    EXPECT_TRUE(modChess.ExamineNoMoves);
}

TEST_F(MoveListRequest, AHandlesGameIsAskedForByHandleAndNumber) {
    ask(ByHandle, "Anders 17");
    EXPECT_THAT(events, ElementsAre("smoves Anders 17", "state 4"));
    EXPECT_EQ(moves(), "");
}

TEST_F(MoveListRequest, AnyOtherRelationAsksNothing) {
    for (const int relation : {-3, -4, -100, 3, 99}) ask(relation, "12");
    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(moves(), "e4e5");
}
