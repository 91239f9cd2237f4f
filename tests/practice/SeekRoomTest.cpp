// Tests of ads in the hall.
#include "practice/HallRig.h"
#include "practice/play/Departure.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

struct SeekRoomTest : testing::Test {
    HallRig rig;

    SeekRoomTest() {
        rig.enter("Ada", "1711");
        rig.enter("Bert");
    }
};

TEST_F(SeekRoomTest, AnAdIsAnnouncedToThoseWhoWantAds) {
    rig.enter("Cora");
    rig.type("Cora", "set seek 0");
    EXPECT_EQ(rig.type("Ada", "seek 10 5 unrated white"),
              "Your seek has been posted with index 1.\n(1 player saw the seek.)");
    EXPECT_EQ(rig.takeShown("Bert"), "|Ada (1711) seeking 10 5 unrated blitz [white] (\"play 1\" to respond)");
    EXPECT_EQ(rig.takeShown("Cora"), "");
    EXPECT_EQ(rig.takeShown("Ada"), "");
}

TEST_F(SeekRoomTest, PlayersAtTheBoardAreNotDisturbed) {
    rig.enter("Cora");
    rig.match("Ada", "Bert");
    EXPECT_EQ(rig.type("Cora", "seek 5 0"), "Your seek has been posted with index 2.\n(0 players saw the seek.)");
    EXPECT_EQ(rig.takeShown("Ada"), "");
}

TEST_F(SeekRoomTest, AGuestsAdBecomesUnrated) {
    EXPECT_TRUE(rig.type("Bert", "seek 5 0 rated").starts_with("You are unregistered - setting to unrated.\n"));
    EXPECT_FALSE(rig.hall.seeks.open.at(1).terms.rated);
}

TEST_F(SeekRoomTest, WithoutTimesTheVariablesCount) {
    rig.type("Ada", "set time 7");
    rig.type("Ada", "set inc 3");
    rig.type("Ada", "seek");
    EXPECT_EQ(rig.hall.seeks.open.at(1).terms.minutes, 7);
    EXPECT_EQ(rig.hall.seeks.open.at(1).terms.increment, 3);
    EXPECT_TRUE(rig.hall.seeks.open.at(1).terms.rated);
}

TEST_F(SeekRoomTest, AdsAreTakenBack) {
    EXPECT_EQ(rig.type("Ada", "unseek"), "You have no active seeks.");
    rig.type("Ada", "seek 5 0");
    rig.type("Ada", "seek 3 0");
    EXPECT_EQ(rig.type("Bert", "unseek 1"), "That is no ad of yours.");
    EXPECT_EQ(rig.type("Ada", "unseek 1"), "Your seek 1 has been removed.");
    EXPECT_EQ(rig.type("Ada", "unseek"), "Your seeks have been removed.");
    EXPECT_EQ(rig.type("Ada", "sought"), "0 ads displayed.");
}

TEST_F(SeekRoomTest, ThreeAdsAreEnoughForOne) {
    for (int i = 0; i < 3; ++i) rig.type("Ada", "seek 5 0");
    EXPECT_TRUE(rig.type("Ada", "seek 5 0").starts_with("You have three ads already"));
}

TEST_F(SeekRoomTest, AdsThatCannotBeTakenSayWhy) {
    for (const char* stale : {"play 7", "play 0", "play 999999"})
        EXPECT_EQ(rig.type("Bert", stale), "That seek is not available.") << stale;
    EXPECT_EQ(rig.type("Bert", "play"), "Usage: play NUMBER|NAME, with a number or a name of \"sought\".");
    rig.type("Ada", "seek 5 0 rated");
    EXPECT_EQ(rig.type("Ada", "play 1"), "You cannot answer your own ad.");
    EXPECT_EQ(rig.type("Bert", "play 1"), "This ad is for a rated game, and you are not registered.");
    rig.enter("Cora", "1200");
    rig.type("Ada", "seek 5 0 1500-1800");
    EXPECT_EQ(rig.type("Cora", "play 2"), "Your rating is outside of what this ad asks for.");
    rig.enter("Dora", "1801");
    EXPECT_EQ(rig.type("Dora", "play 2"), "Your rating is outside of what this ad asks for.");
}

TEST_F(SeekRoomTest, AStaleNumberIsNobodyElsesAd) {
    rig.type("Ada", "seek 5 0 unrated");
    rig.type("Ada", "unseek");
    rig.type("Ada", "seek 3 0 unrated");
    EXPECT_EQ(rig.type("Bert", "play 1"), "That seek is not available.");
    EXPECT_EQ(rig.type("Bert", "play 2"), "");
}

TEST_F(SeekRoomTest, AnAdIsTakenByItsOwnersName) {
    EXPECT_EQ(rig.type("Bert", "play ada"), "Ada is not seeking any games.");
    EXPECT_EQ(rig.type("Bert", "play nobody"), "No player named \"nobody\" is online.");
    rig.type("Ada", "seek 5 0 unrated");
    rig.type("Ada", "seek 3 0 unrated");
    EXPECT_EQ(rig.type("Bert", "Play Ada"), "Ada is seeking several games.");
    rig.type("Ada", "unseek 1");
    EXPECT_EQ(rig.type("Bert", "Play Ada"), "");
    EXPECT_EQ(rig.hall.game(1)->terms.minutes, 3);
}

TEST_F(SeekRoomTest, SoughtTakesAllAndNoOtherWord) {
    rig.type("Ada", "seek 5 0");
    EXPECT_EQ(rig.type("Bert", "sought all"), rig.type("Bert", "sought"));
    EXPECT_EQ(rig.type("Bert", "sought nobody"), "Usage: sought [all]");
}

TEST_F(SeekRoomTest, AdsAreSwitchedOffAndOnByAnyFormOfTheSetting) {
    for (const char* off : {"set seek 0", "Set Seek 0", "set see 0", "set seek off"}) {
        EXPECT_EQ(rig.type("Bert", off), "You will not see seek ads.") << off;
        rig.takeShown("Bert");
        rig.type("Ada", "seek 5 0");
        EXPECT_EQ(rig.takeShown("Bert"), "") << off;
        EXPECT_EQ(rig.type("Bert", "set seek"), "You will now see seek ads.");
        rig.type("Ada", "seek 5 0");
        EXPECT_NE(rig.takeShown("Bert"), "") << off;
        rig.type("Ada", "unseek");
    }
}

TEST_F(SeekRoomTest, TheGameHasTheColourThatWasAskedFor) {
    rig.type("Ada", "seek 5 0 unrated black");
    rig.type("Bert", "play 1");
    EXPECT_EQ(rig.hall.game(1)->names[1], "Ada");
}

TEST_F(SeekRoomTest, AGameTakesBothPlayersAdsAway) {
    rig.type("Ada", "seek 5 0 unrated");
    rig.type("Ada", "seek 3 0 unrated");
    rig.type("Bert", "seek 1 0");
    rig.type("Bert", "play 1");
    EXPECT_TRUE(rig.hall.seeks.open.empty());
    EXPECT_EQ(rig.type("Ada", "seek 5 0"), "You cannot seek while you play.");
}

TEST_F(SeekRoomTest, AnAdGoesWithItsOwner) {
    rig.type("Ada", "seek 5 0 unrated");
    leaveHall(rig.hall, "Ada");
    EXPECT_EQ(rig.type("Bert", "play 1"), "That seek is not available.");
}

} // namespace
} // namespace practice
