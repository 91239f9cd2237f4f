// What the closing of a board leads to.
#include "board/CloseRules.h"

#include "board/BoardRig.h"

#include <gtest/gtest.h>

namespace {

CloseDecision closing(int relation, const CloseFacts& facts = {}) {
    BoardRig rig;
    rig.open({.game = 12, .relation = relation});
    return queryUnload(rig.game, facts);
}

} // namespace

TEST(CloseRules, AnIdleBoardClosesWithoutAWord) {
    BoardRig rig;
    const auto decision = queryUnload(rig.game, {});
    EXPECT_FALSE(decision.refused);
    EXPECT_FALSE(decision.ask);
    EXPECT_EQ(decision.send, "");
    EXPECT_TRUE(decision.unloadPanels);
}

TEST(CloseRules, ABoardWhoseGameHasEndedClosesWithoutAWord) {
    BoardRig rig;
    rig.open({.relation = 1});
    rig.game.zEndParms();
    const auto decision = queryUnload(rig.game, {});
    EXPECT_FALSE(decision.ask);
    EXPECT_EQ(decision.send, "");
}

TEST(CloseRules, APlayedGameAsks) {
    for (const int relation : {1, -1, -2, -3}) {
        const auto decision = closing(relation);
        EXPECT_TRUE(decision.ask) << relation;
        EXPECT_EQ(decision.send, "") << relation;
        EXPECT_FALSE(decision.refused) << relation;
    }
    EXPECT_EQ(CloseBoxTitle, "Game in progress");
    EXPECT_EQ(CloseBoxText, "Board will close.  Type 'ref' to re-open");
}

TEST(CloseRules, APlayedGameDoesNotAskWhenTheProgramCloses) { EXPECT_FALSE(closing(1, {.appClosing = true}).ask); }

TEST(CloseRules, AnObservedGameSendsUnobAndTheNumber) {
    EXPECT_EQ(closing(0).send, "unob 12");
    EXPECT_FALSE(closing(0).ask);
    BoardRig first;
    first.open({.game = 1, .relation = 0});
    EXPECT_EQ(queryUnload(first.game, {}).send, "unob 1");
}

TEST(CloseRules, AnExaminedGameSendsUnex) { EXPECT_EQ(closing(2).send, "unex"); }

TEST(CloseRules, ANumberWithoutAGameTextAtMinus100ClosesWithoutAWord) {
    BoardRig rig;
    rig.game.gameIndex = 9;
    EXPECT_FALSE(queryUnload(rig.game, {}).ask);
    rig.game.currentGame = "a - b";
    EXPECT_TRUE(queryUnload(rig.game, {}).ask);
}

TEST(CloseRules, TheLastBoardEnablesTheBoardMenu) {
    EXPECT_TRUE(closing(0, {.openBoards = 1}).enableBoardMenu);
    EXPECT_FALSE(closing(0, {.openBoards = 2}).enableBoardMenu);
}

TEST(CloseRules, WithNoBoardOpenAClosingByTheUserIsRefused) {
    EXPECT_TRUE(closing(0, {.openBoards = 0}).refused);
    EXPECT_EQ(closing(0, {.openBoards = 0}).send, "");
    EXPECT_FALSE(closing(0, {.openBoards = 0, .byProgram = true}).refused);
}

TEST(CloseRules, TheFirstCloseOnlyClosesTheChooser) {
    const auto decision = closing(0, {.openBoards = 1, .pgnInUse = true});
    EXPECT_TRUE(decision.closeChooser);
    EXPECT_TRUE(decision.refused);
    EXPECT_TRUE(decision.enableBoardMenu) << "the menu is set before the chooser is looked at";
    EXPECT_FALSE(decision.unloadPanels);
    EXPECT_EQ(decision.send, "");
}
