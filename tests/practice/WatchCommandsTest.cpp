// Tests of games, observing, boards and move lists.
#include "practice/HallRig.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

struct WatchCommandsTest : testing::Test {
    HallRig rig;

    WatchCommandsTest() {
        rig.enter("Ada", "1711");
        rig.enter("Bert");
        rig.enter("Cora");
    }
};

TEST_F(WatchCommandsTest, GamesAreListedWithTheirCount) {
    EXPECT_EQ(rig.type("Cora", "games"), "There are no games in progress.");
    rig.match("Ada", "Bert");
    EXPECT_EQ(rig.type("Cora", "games"),
              "  1 1711 Ada         ++++ Bert       [ bu  5   0]   5:00 -  5:00 (39-39) W:  1\n\n"
              "  1 game displayed (of   1 in progress).");
    EXPECT_EQ(rig.type("Cora", "games zorro"), "\n  0 games displayed (of   1 in progress).");
}

TEST_F(WatchCommandsTest, ObservingShowsTitleAndBoard) {
    rig.match("Ada", "Bert");
    const std::string board = "Game 1: Ada (1711) Bert (++++) unrated blitz 5 0\n\n"
                              "<12> rnbqkbnr pppppppp -------- -------- -------- -------- PPPPPPPP RNBQKBNR W -1 1 1 1 "
                              "1 0 1 Ada Bert 0 5 0 39 39 "
                              "300 300 1 none (0:00) none 0 0 0";
    EXPECT_EQ(rig.type("Cora", "observe 1"), "You are now observing game 1.\n" + board);
    EXPECT_EQ(rig.type("Cora", "observe ada"), "You are already observing game 1.");
    EXPECT_EQ(rig.type("Cora", "ref"), board);
}

TEST_F(WatchCommandsTest, APrivateGameIsListedWithALetterAndCannotBeObserved) {
    rig.type("Bert", "set private 1");
    rig.match("Ada", "Bert");
    EXPECT_NE(rig.type("Cora", "games").find(" Bert       [pbu  5   0]"), std::string::npos);
    EXPECT_EQ(rig.type("Cora", "observe 1"), "Game 1 is private.");
    rig.type("Ada", "resign");
    rig.type("Ada", "examine -1");
    EXPECT_TRUE(rig.type("Cora", "observe 1").starts_with("You are now observing game 1."));
}

TEST_F(WatchCommandsTest, OneOfTheTwoIsEnoughToMakeAGamePrivate) {
    for (const char* shy : {"Ada", "Bert"}) {
        rig.type(shy, "set private 1");
        rig.match("Ada", "Bert");
        EXPECT_EQ(rig.type("Cora", "observe 1"), "Game 1 is private.") << shy;
        rig.type("Ada", "resign");
        rig.type(shy, "set private 0");
    }
    rig.match("Ada", "Bert");
    EXPECT_TRUE(rig.type("Cora", "observe 1").starts_with("You are now observing game 1."));
}

TEST_F(WatchCommandsTest, AGameIsFoundByAPlayersFirstLetters) {
    rig.match("Ada", "Bert");
    EXPECT_TRUE(rig.type("Cora", "ob be").starts_with("You are now observing game 1.\n"));
}

TEST_F(WatchCommandsTest, GamesThatAreNotThereCannotBeObserved) {
    EXPECT_EQ(rig.type("Cora", "observe 5"), "There is no such game.");
    EXPECT_EQ(rig.type("Cora", "observe bert"), "There is no such game.");
    EXPECT_EQ(rig.type("Cora", "observe"), "There are no games in progress.");
}

TEST_F(WatchCommandsTest, PlayersDoNotObserve) {
    rig.match("Ada", "Bert");
    EXPECT_EQ(rig.type("Ada", "observe 1"), "You are still playing a game.");
}

TEST_F(WatchCommandsTest, WhoExaminesDoesNotObserveNotEvenHisOwnGame) {
    rig.match("Ada", "Bert");
    rig.type("Cora", "examine");
    for (const char* line : {"observe", "observe 1", "observe cora"}) {
        EXPECT_EQ(rig.type("Cora", line), "You are still examining a game.") << line;
    }
    EXPECT_TRUE(rig.hall.find("Cora")->observing.empty());
}

TEST_F(WatchCommandsTest, ObservingEndsByNumberOrForAll) {
    rig.enter("Dora");
    rig.enter("Emil");
    rig.match("Ada", "Bert");
    rig.match("Dora", "Emil");
    EXPECT_EQ(rig.type("Cora", "unobserve"), "You are not observing any games.");
    rig.type("Cora", "observe 1");
    rig.type("Cora", "observe 2");
    EXPECT_EQ(rig.type("Cora", "unob 2"), "Removing game 2 from observation list.");
    EXPECT_EQ(rig.type("Cora", "unob 2"), "You are not observing that game.");
    rig.type("Cora", "observe 2");
    EXPECT_EQ(rig.type("Cora", "unob"),
              "Removing game 1 from observation list.\nRemoving game 2 from observation list.");
    rig.type("Ada", "e4");
    EXPECT_EQ(rig.takeShown("Cora"), "");
}

TEST_F(WatchCommandsTest, ObservingEndsWhenTheObserverStartsToPlay) {
    rig.enter("Dora");
    rig.match("Ada", "Bert");
    rig.type("Cora", "observe 1");
    rig.type("Dora", "match cora 5 0");
    rig.takeShown("Cora");
    rig.type("Cora", "accept");
    EXPECT_TRUE(rig.takeShown("Cora").starts_with("|Removing game 1 from observation list.|Creating: "));
    EXPECT_TRUE(rig.hall.game(1)->observers.empty());
    EXPECT_TRUE(rig.hall.find("Cora")->observing.empty());
}

TEST_F(WatchCommandsTest, ObservingEndsWhenTheObserverExamines) {
    rig.match("Ada", "Bert");
    rig.type("Cora", "observe 1");
    EXPECT_TRUE(
        rig.type("Cora", "examine")
            .starts_with("Removing game 1 from observation list.\nStarting a game in examine (scratch) mode.\n"));
    EXPECT_TRUE(rig.hall.game(1)->observers.empty());
}

TEST_F(WatchCommandsTest, TheMoveListBeginsWithAnEmptyLine) {
    rig.match("Ada", "Bert");
    rig.type("Ada", "e4");
    EXPECT_TRUE(rig.type("Cora", "moves 1").starts_with("\nMovelist for game 1:\n\nAda (1711) vs. Bert (++++) --- "));
    EXPECT_TRUE(rig.type("Ada", "moves").ends_with("\n  1.  e4      (0:00)    \n      {Still in progress} *\n"));
    EXPECT_EQ(rig.type("Cora", "moves"), "You are neither playing, observing nor examining a game.");
    EXPECT_EQ(rig.type("Cora", "moves 9"), "There is no such game.");
}

TEST_F(WatchCommandsTest, ObserversAreListed) {
    rig.match("Ada", "Bert");
    rig.type("Cora", "observe 1");
    EXPECT_EQ(rig.type("Ada", "allobservers"),
              "Observing 1 [Ada vs. Bert]: Cora(U) (1 user)\n  1 game displayed (of 1 in progress).");
}

TEST_F(WatchCommandsTest, TimesAreToldInWords) {
    rig.match("Ada", "Bert");
    EXPECT_EQ(rig.type("Ada", "time"),
              "Game 1: Ada (1711) Bert (++++) unrated blitz 5 0\nWhite Clock : 5:00\nBlack Clock : 5:00");
}

} // namespace
} // namespace practice
