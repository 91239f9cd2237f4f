// Tests of challenges: issuing, answering, taking back.
#include "practice/play/MatchRoom.h"
#include "practice/HallRig.h"
#include "practice/play/ComputerRoom.h"
#include "practice/play/Departure.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

struct MatchRoomTest : testing::Test {
    HallRig rig;

    MatchRoomTest() {
        rig.enter("Ada", "1711");
        rig.enter("Bert", "1500");
        rig.enter("Cora");
    }

    // The "Challenge:" line that Bert gets for what Ada types.
    std::string challengeFor(const std::string& line) {
        rig.type("Ada", line);
        const std::string shown = rig.takeShown("Bert");
        const auto begin = shown.find("Challenge: ");
        if (begin == std::string::npos) return shown;
        return shown.substr(begin, shown.find("\nYou can", begin) - begin);
    }
};

TEST_F(MatchRoomTest, AChallengeIsIssuedAndShown) {
    EXPECT_EQ(rig.type("Ada", "Match Bert 5 0 r "), "Issuing: Ada (1711) Bert (1500) rated blitz 5 0.");
    EXPECT_EQ(rig.takeShown("Bert"), "|Challenge: Ada (1711) Bert (1500) rated blitz 5 0.\n"
                                     "You can \"accept\" or \"decline\", or propose different parameters.");
}

TEST_F(MatchRoomTest, EachFormOfTheComposerIsUnderstood) {
    EXPECT_EQ(challengeFor("Match bert 5 0 r "), "Challenge: Ada (1711) Bert (1500) rated blitz 5 0.");
    EXPECT_EQ(challengeFor("Match bert 5 0 Crazyhouse u White "),
              "Challenge: Ada (1711) [white] Bert (1500) unrated crazyhouse 5 0.");
    EXPECT_EQ(challengeFor("Match bert 2 12 Wild fr u Black "),
              "Challenge: Ada (1711) [black] Bert (1500) unrated wild 2 12 Loaded from \n\\   wild/fr.");
    EXPECT_EQ(challengeFor("Match bert 15 0 Wild 5 r "),
              "Challenge: Ada (1711) Bert (1500) rated wild 15 0 Loaded from wild/5.");
    EXPECT_EQ(challengeFor("Match bert 1 0 Suicide u "), "Challenge: Ada (1711) Bert (1500) unrated suicide 1 0.");
    EXPECT_EQ(challengeFor("Match bert 1 0 Losers u "), "Challenge: Ada (1711) Bert (1500) unrated losers 1 0.");
}

TEST_F(MatchRoomTest, WithoutWordsTheServersSettingsHold) {
    EXPECT_EQ(challengeFor("Match Bert "), "Challenge: Ada (1711) Bert (1500) rated blitz 2 12.");
    rig.type("Ada", "withdraw");
    rig.type("Ada", "set time 15");
    rig.takeShown("Bert");
    EXPECT_EQ(challengeFor("Match Bert "), "Challenge: Ada (1711) Bert (1500) rated standard 15 12.");
}

TEST_F(MatchRoomTest, WhetherAGameIsRatedComesFromTheSettingsIfUnsaid) {
    rig.type("Ada", "set rated 0");
    EXPECT_EQ(challengeFor("Match Bert 5 0"), "Challenge: Ada (1711) Bert (1500) unrated blitz 5 0.");
    EXPECT_EQ(challengeFor("Match Bert 5 0 r"), "Challenge: Ada (1711) Bert (1500) rated blitz 5 0.");
    rig.type("Ada", "seek 5 0");
    EXPECT_FALSE(rig.hall.seeks.open.at(1).terms.rated);
    rig.type("Bert", "seek 5 0");
    EXPECT_TRUE(rig.hall.seeks.open.at(2).terms.rated);
}

TEST_F(MatchRoomTest, WithoutROpenOnlyThoseWithTheSameRatedSettingMayAsk) {
    rig.type("Bert", "set ropen 0");
    EXPECT_EQ(challengeFor("Match Bert 5 0 u"), "Challenge: Ada (1711) Bert (1500) unrated blitz 5 0.");
    rig.type("Ada", "withdraw");
    rig.type("Ada", "set rated 0");
    EXPECT_EQ(rig.type("Ada", "match bert 5 0"), "Bert is open to those alone who have the same setting of \"rated\".");
    rig.type("Bert", "set rated 0");
    EXPECT_TRUE(has(rig.type("Ada", "match bert 5 0"), "Issuing: "));
}

TEST_F(MatchRoomTest, SeeksOfTheComposerAreUnderstoodToo) {
    rig.type("Ada", "Seek 3 0 r 0-9999");
    EXPECT_EQ(rig.hall.seeks.open.at(1).terms.minutes, 3);
    EXPECT_TRUE(rig.hall.seeks.open.at(1).terms.rated);
    rig.type("Ada", "Seek 2 12 Wild fr u Black 1500-1800");
    const Terms terms = rig.hall.seeks.open.at(2).terms;
    EXPECT_EQ(terms.variant, "wild/fr");
    EXPECT_EQ(terms.colour, WantedColour::Black);
    EXPECT_EQ(terms.lowest, 1500);
    EXPECT_EQ(terms.highest, 1800);
    EXPECT_TRUE(has(rig.type("Ada", "sought"), "unrated wild/fr    [black]  1500-1800"));
    rig.type("Ada", "Seek ");
    EXPECT_EQ(rig.hall.seeks.open.at(3).terms.minutes, 2);
}

TEST_F(MatchRoomTest, BughouseIsRefused) {
    EXPECT_EQ(rig.type("Ada", "Match bert 5 0 Bughouse r "), "You have no partner for bughouse.");
    EXPECT_EQ(rig.takeShown("Bert"), "");
    EXPECT_EQ(rig.type("Ada", "Seek 5 0 Bughouse r 0-9999"), "You have no partner for bughouse.");
}

TEST_F(MatchRoomTest, AcceptingStartsTheGameForBoth) {
    rig.type("Ada", "match bert 5 0 u white");
    rig.shown.clear();
    EXPECT_EQ(rig.type("Bert", "Accept"), "Accepting the match offer from Ada.");
    EXPECT_TRUE(rig.takeShown("Ada").starts_with(
        "|Bert accepts your match offer.|Creating: Ada (1711) Bert (1500) unrated blitz 5 0\n"
        "{Game 1 (Ada vs. Bert) Creating unrated blitz match.}\n"));
    EXPECT_TRUE(rig.takeShown("Bert").starts_with("|Creating: Ada "));
    EXPECT_EQ(rig.type("Bert", "accept"), "There are no offers to accept.");
}

TEST_F(MatchRoomTest, TheChallengerGetsTheColourHeAskedFor) {
    rig.type("Ada", "match bert 5 0 u black");
    rig.type("Bert", "accept");
    EXPECT_EQ(rig.hall.game(1)->names[0], "Bert");
}

TEST_F(MatchRoomTest, DecliningIsToldToTheChallenger) {
    rig.type("Ada", "match bert 5 0");
    EXPECT_EQ(rig.type("Bert", "Decline"), "Declining the match offer from Ada.");
    EXPECT_EQ(rig.takeShown("Ada"), "|Bert declines your match offer.");
    EXPECT_EQ(rig.type("Bert", "decline"), "There are no offers to decline.");
}

TEST_F(MatchRoomTest, WithdrawingIsToldToTheChallenged) {
    rig.type("Ada", "match bert 5 0");
    rig.takeShown("Bert");
    EXPECT_EQ(rig.type("Ada", "withdraw"), "Withdrawing your match offer to Bert.");
    EXPECT_EQ(rig.takeShown("Bert"), "|Ada withdraws the match offer.");
    EXPECT_EQ(rig.type("Ada", "withdraw"), "There are no offers to withdraw.");
}

TEST_F(MatchRoomTest, SeveralOffersAreToldApartByNumberOrName) {
    rig.type("Ada", "match bert 5 0 u");
    rig.type("Cora", "match bert 3 0");
    EXPECT_TRUE(rig.type("Bert", "accept").starts_with("There is more than one pending offer.\n"));
    EXPECT_EQ(rig.type("Bert", "decline 9"), "There is no such offer to decline.");
    EXPECT_EQ(rig.type("Bert", "decline ada"), "Declining the match offer from Ada.");
    EXPECT_EQ(rig.type("Bert", "accept 2"), "Accepting the match offer from Cora.");
    EXPECT_NE(rig.hall.find("Cora")->playing, 0);
}

TEST_F(MatchRoomTest, AllOffersAreDeclinedAtOnce) {
    rig.type("Ada", "match bert 5 0 u");
    rig.type("Cora", "match bert 3 0");
    EXPECT_EQ(rig.type("Bert", "decline all"),
              "Declining the match offer from Ada.\nDeclining the match offer from Cora.");
}

TEST_F(MatchRoomTest, PendingListsOffersOfBothDirections) {
    EXPECT_EQ(rig.type("Ada", "pending"),
              "There are no offers pending TO other players.\n\nThere are no offers pending FROM other players.");
    rig.type("Ada", "match bert 3 0 u black");
    EXPECT_TRUE(has(rig.type("Ada", "pending"), "Offers TO other players:\n 1: Ada is offering a challenge: Ada (1711) "
                                                "[black] Bert (1500) unrated blitz 3\n\\    0.\n\nIf you wish to"));
    EXPECT_TRUE(has(rig.type("Bert", "pending"), "Offers FROM other players:\n 1: Ada is offering a challenge: "));
    EXPECT_TRUE(rig.type("Bert", "pending")
                    .ends_with("\n\nIf you wish to accept any of these offers type 'accept n'\n"
                               "or just 'accept' if there is only one offer."));
}

TEST_F(MatchRoomTest, AnIdenticalChallengeIsNotIssuedTwice) {
    rig.type("Ada", "match bert 5 0 u");
    rig.takeShown("Bert");
    EXPECT_EQ(rig.type("Ada", "match bert 5 0 u"), "You are already offering an identical match to Bert.");
    EXPECT_EQ(rig.takeShown("Bert"), "");
}

TEST_F(MatchRoomTest, AnotherChallengeUpdatesTheFirst) {
    rig.type("Ada", "match bert 5 0 u");
    rig.takeShown("Bert");
    EXPECT_EQ(rig.type("Ada", "match bert 3 0 u"), "Updating offer already made to \"Bert\".\nUpdating match request "
                                                   "to: Ada (1711) Bert (1500) unrated blitz 3 0.");
    EXPECT_TRUE(rig.takeShown("Bert").starts_with("|Ada updates the match request.\nChallenge: Ada "));
    EXPECT_EQ(rig.hall.offers.open.size(), 1U);
}

TEST_F(MatchRoomTest, AFittingChallengeOfTheOtherSideStartsTheGame) {
    rig.type("Ada", "match bert 5 0 u white");
    rig.shown.clear();
    EXPECT_EQ(rig.type("Bert", "match ada 5 0 u black"), "Your challenge intercepts Ada's challenge.");
    EXPECT_TRUE(rig.takeShown("Bert").starts_with("|Creating: Ada "));
    EXPECT_TRUE(rig.takeShown("Ada").starts_with("|Bert's challenge intercepts your challenge.|Creating: Ada "));
}

TEST_F(MatchRoomTest, OtherChallengesFallWithTheStartOfAGame) {
    rig.type("Ada", "match bert 5 0 u");
    rig.type("Cora", "match ada 5 0 u");
    rig.type("Bert", "match cora 1 0 u");
    rig.shown.clear();
    rig.type("Bert", "accept");
    EXPECT_EQ(rig.takeShown("Cora"), "|Bert, who was challenging you, has joined a match with Ada.\n"
                                     "Challenge from Bert removed."
                                     "|Ada, whom you were challenging, has joined a match with Bert.\n"
                                     "Challenge to Ada withdrawn.");
    EXPECT_TRUE(rig.hall.offers.open.empty());
}

TEST_F(MatchRoomTest, WhoLeavesTakesHisChallengesWithHim) {
    rig.type("Ada", "match bert 5 0 u");
    rig.takeShown("Bert");
    leaveHall(rig.hall, "Ada");
    EXPECT_EQ(rig.takeShown("Bert"), "|Ada, who was challenging you, has departed.\nChallenge from Ada removed.");
    EXPECT_TRUE(rig.hall.offers.open.empty());
}

TEST_F(MatchRoomTest, ChallengesThatCannotBeAreRefused) {
    EXPECT_EQ(rig.type("Ada", "match ada 5 0"), "You can't match yourself.");
    EXPECT_EQ(rig.type("Ada", "match nobody 5 0"), "No player named \"nobody\" is online.");
    EXPECT_EQ(rig.type("Ada", "match bert 5 0 frog"), "\"frog\" is not understood here.");
    rig.type("Bert", "set open 0");
    EXPECT_EQ(rig.type("Ada", "match bert 5 0"), "Bert is not open to match requests.");
    rig.type("Bert", "set open 1");
    rig.match("Bert", "Cora");
    EXPECT_EQ(rig.type("Ada", "match bert 5 0"), "Bert is playing a game.");
    EXPECT_EQ(rig.type("Bert", "match ada 5 0"), "You are playing a game already.");
}

TEST_F(MatchRoomTest, GamesWithAGuestBecomeUnrated) {
    EXPECT_EQ(rig.type("Cora", "Match bert 5 0 r "), "You are unregistered - setting to unrated.\n"
                                                     "Issuing: Cora (++++) Bert (1500) unrated blitz 5 0.");
    EXPECT_EQ(rig.type("Ada", "Match cora 5 0 r "), "Cora is unregistered - setting to unrated.\n"
                                                    "Issuing: Ada (1711) Cora (++++) unrated blitz 5 0.");
    rig.type("Cora", "accept");
    EXPECT_FALSE(rig.hall.game(1)->terms.rated);
}

TEST_F(MatchRoomTest, AnotherProposalDeclinesTheFirst) {
    rig.type("Ada", "match bert 5 0 u");
    rig.takeShown("Bert");
    EXPECT_EQ(rig.type("Bert", "match ada 3 0 u"),
              "Declining the match offer from Ada and proposing different parameters.\n"
              "Issuing: Bert (1500) Ada (1711) unrated blitz 3 0.");
    EXPECT_TRUE(rig.takeShown("Ada").starts_with(
        "|Bert declines your match offer and proposes different parameters.|Challenge: Bert (1500) "));
    EXPECT_EQ(rig.type("Bert", "accept"), "There are no offers to accept.");
    rig.type("Ada", "accept");
    EXPECT_EQ(rig.hall.game(1)->terms.minutes, 3);
}

TEST_F(MatchRoomTest, AnOfferOfSomebodyBusyIsAcceptedWithoutAFalseWord) {
    rig.type("Ada", "match bert 5 0 u");
    rig.type("Ada", "examine");
    rig.shown.clear();
    EXPECT_EQ(rig.type("Bert", "accept"), "That offer does not stand any more.");
    EXPECT_EQ(rig.takeShown("Ada"), "");
    EXPECT_EQ(rig.takeShown("Bert"), "");
    EXPECT_TRUE(rig.hall.offers.open.empty());
}

TEST_F(MatchRoomTest, WildKindsThatAreNotPlayedAreRefused) {
    EXPECT_EQ(rig.type("Ada", "Match bert 5 0 Wild 6 r "), "No such category/board: wild/6");
    EXPECT_EQ(rig.type("Ada", "Match bert 5 0 Wild 7 u Black "), "No such category/board: wild/7");
    EXPECT_TRUE(rig.type("Ada", "Match bert 5 0 Atomic r ").starts_with("Atomic is not played here"));
    EXPECT_EQ(rig.takeShown("Bert"), "");
}

TEST_F(MatchRoomTest, ARematchHasTheSameTermsWithTheColoursTurned) {
    EXPECT_EQ(rig.type("Ada", "rematch"), "You have not played anybody.");
    rig.type("Ada", "match bert 3 1 Crazyhouse u white");
    rig.type("Bert", "accept");
    rig.type("Bert", "resign");
    EXPECT_EQ(rig.type("Bert", "rematch"), "Issuing: Bert (1500) [white] Ada (1711) unrated crazyhouse 3 1.");
    rig.type("Bert", "withdraw");
    EXPECT_EQ(rig.type("Ada", "rematch"), "Issuing: Ada (1711) [black] Bert (1500) unrated crazyhouse 3 1.");
    leaveHall(rig.hall, "Bert");
    EXPECT_EQ(rig.type("Ada", "rematch"), "Bert is no longer logged on.");
}

TEST_F(MatchRoomTest, AComputerAcceptsInAMoment) {
    openComputerRoom(rig.hall);
    rig.shown.clear();
    EXPECT_EQ(rig.type("Ada", "match spark 1 0 u white"),
              "Issuing: Ada (1711) [white] Spark (1400) unrated lightning 1 0.\n--** Spark is a computer **--");
    EXPECT_EQ(rig.hall.find("Ada")->playing, 0);
    rig.pass(200);
    EXPECT_TRUE(rig.takeShown("Ada").starts_with("|Spark accepts your match offer.|Creating: Ada "));
}

TEST_F(MatchRoomTest, ComputersAcceptEveryKindThatIsPlayed) {
    openComputerRoom(rig.hall);
    for (const Variant& variant : variants()) {
        rig.type("Ada", "match granite 5 0 " + variant.name + " u");
        rig.pass(200);
        const Game* game = rig.hall.game(rig.hall.find("Ada")->playing);
        ASSERT_NE(game, nullptr) << variant.name;
        EXPECT_EQ(game->terms.variant, variant.name);
        rig.type("Ada", "resign");
    }
}

TEST_F(MatchRoomTest, AComputerThatLooksLikeAPersonIsNotCalledOne) {
    openComputerRoom(rig.hall);
    EXPECT_EQ(rig.type("Ada", "match pebble 10 0 u white"),
              "Issuing: Ada (1711) [white] Pebble (640) unrated blitz 10 0.");
    EXPECT_TRUE(rig.type("Ada", "match lantern 5 0 r").starts_with("Lantern is unregistered - setting to unrated.\n"));
}

TEST_F(MatchRoomTest, ThePairThatAlwaysPlaysIsNotDisturbed) {
    openComputerRoom(rig.hall);
    EXPECT_EQ(rig.type("Ada", "match skipper 5 0"), "Skipper is not open to match requests.");
}

TEST_F(MatchRoomTest, AChallengeTakenBackInTimeStartsNothing) {
    openComputerRoom(rig.hall);
    rig.type("Ada", "match spark 1 0 u");
    rig.type("Ada", "withdraw");
    rig.pass(500);
    EXPECT_EQ(rig.hall.find("Ada")->playing, 0);
}

TEST_F(MatchRoomTest, TheStartNamesTheKind) {
    rig.type("Ada", "match bert 5 0 Wild 5 u white");
    rig.shown.clear();
    rig.type("Bert", "accept");
    const std::string shown = rig.takeShown("Ada");
    EXPECT_TRUE(has(shown, "Creating: Ada (1711) Bert (1500) unrated wild/5 5 0\n"
                           "{Game 1 (Ada vs. Bert) Creating unrated wild/5 match.}\n"));
    EXPECT_TRUE(has(shown, "\n\n<12> RNBKQBNR PPPPPPPP -------- -------- -------- -------- pppppppp rnbkqbnr W "));
}

TEST_F(MatchRoomTest, MovesWaitUntilTheRulesKnowTheStart) {
    rig.holdRules = true;
    rig.type("Ada", "match bert 5 0 suicide u white");
    rig.type("Bert", "accept");
    EXPECT_EQ(rig.type("Ada", "e4"), "It is not your move.");
    EXPECT_EQ(rig.askedRules.engineName, "suicide");
    rig.holdRules = false;
    rig.release();
    EXPECT_EQ(rig.type("Ada", "e4"), "");
}

} // namespace
} // namespace practice
