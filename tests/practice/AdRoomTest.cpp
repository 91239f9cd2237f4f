// Tests of the computers' ads: which stand open, how they come and go, and what a taken one means.
#include "practice/play/AdRoom.h"
#include "practice/HallRig.h"
#include "practice/play/ComputerRoom.h"
#include "practice/play/GameEnd.h"

#include <gtest/gtest.h>

#include <set>

namespace practice {
namespace {

bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

struct AdRoomTest : testing::Test {
    HallRig rig;

    void open(int pace) {
        rig.hall.adPace = pace;
        openComputerRoom(rig.hall);
        rig.enter("Ada", "1711");
        rig.enter("Bert", "1500");
    }

    std::set<std::string> owners() const {
        std::set<std::string> result;
        for (const auto& [number, ad] : rig.hall.seeks.open) result.insert(ad.owner);
        return result;
    }

    Game* gameOf(const std::string& name) { return rig.hall.game(rig.hall.find(name)->playing); }
};

std::size_t countOf(Role role) {
    const auto& all = computers();
    return static_cast<std::size_t>(
        std::count_if(all.begin(), all.end(), [&](const Computer& each) { return each.role == role; }));
}

TEST_F(AdRoomTest, AtLeastTwelveAdsOfDifferentKindsAreThereWhenAUserLogsOn) {
    open(15'000);
    std::set<std::string> kinds;
    for (const auto& [number, ad] : rig.hall.seeks.open)
        kinds.insert(ratedText(ad.terms) + " " + kindText(ad.terms) + " " + colourText(ad.terms));
    EXPECT_GE(rig.hall.seeks.open.size(), 12U);
    EXPECT_GE(kinds.size(), 8U);
}

TEST_F(AdRoomTest, AllAdsTogetherHaveEveryLook) {
    open(0);
    EXPECT_EQ(rig.hall.seeks.open.size(), countOf(Role::Host) + countOf(Role::Visitor));
    std::set<std::string> seen;
    int weakest = 9999;
    int strongest = 0;
    std::set<std::size_t> widths;
    for (const auto& [number, ad] : rig.hall.seeks.open) {
        const Terms& terms = ad.terms;
        for (const std::string& look :
             {kindText(terms), ratedText(terms), colourText(terms), "title " + ad.title, "rating " + ad.rating})
            seen.insert(look);
        if (terms.manual) seen.insert("manual");
        if (terms.formula) seen.insert("formula");
        if (terms.lowest > 0 || terms.highest < 9999) seen.insert("range");
        const int rating = rig.hall.find(ad.owner)->ratingValue();
        if (rating > 0) weakest = std::min(weakest, rating);
        strongest = std::max(strongest, rating);
        widths.insert((ad.owner + ad.title).size());
    }
    for (const char* look : {"untimed",   "lightning", "blitz",       "standard",    "crazyhouse", "suicide", "losers",
                             "wild/2",    "wild/fr",   "rated",       "unrated",     "[white]",    "[black]", "title ",
                             "title (C)", "title (U)", "rating ++++", "rating ----", "manual",     "formula", "range"})
        EXPECT_TRUE(seen.contains(look)) << look;
    EXPECT_LE(weakest, 700);
    EXPECT_GE(strongest, 2700);
    EXPECT_TRUE(widths.contains(17) && widths.contains(18));
}

TEST_F(AdRoomTest, AStrongerVisitorLooksAtLeastAsDeepAndErrsNoMore) {
    const Computer* last = nullptr;
    for (const Computer& each : computers()) {
        if (each.role != Role::Visitor || each.rating == 0) continue;
        if (last) {
            EXPECT_GT(each.rating, last->rating) << each.name;
            EXPECT_GE(each.depth, last->depth) << each.name;
            EXPECT_LE(each.margin, last->margin) << each.name;
        }
        last = &each;
    }
}

TEST_F(AdRoomTest, AdsComeAndGoByThemselves) {
    open(10'000);
    std::set<std::set<std::string>> states{owners()};
    for (int i = 0; i < 20; ++i) {
        rig.pass(16'000);
        states.insert(owners());
        EXPECT_GE(owners().size(), 12U);
    }
    EXPECT_GT(states.size(), 10U);
}

TEST_F(AdRoomTest, NewAdsAreAnnouncedToThoseWhoWantThem) {
    open(10'000);
    rig.type("Bert", "set seek 0");
    rig.shown.clear();
    rig.pass(120'000);
    const std::string shown = rig.takeShown("Ada");
    EXPECT_TRUE(has(shown, ") seeking ")) << shown;
    EXPECT_TRUE(has(shown, " to respond)")) << shown;
    EXPECT_EQ(rig.takeShown("Bert"), "");
}

TEST_F(AdRoomTest, WithoutAPaceAllAdsStand) {
    open(0);
    const auto before = owners();
    rig.shown.clear();
    rig.pass(600'000);
    EXPECT_EQ(owners(), before);
    EXPECT_EQ(rig.takeShown("Ada"), "");
}

TEST_F(AdRoomTest, HostsAdsDoNotGoByThemselves) {
    open(5'000);
    for (int i = 0; i < 60; ++i) {
        rig.pass(5'000);
        for (const char* name : {"Sprout", "Willow", "Granite", "Spark"}) ASSERT_TRUE(owners().contains(name)) << name;
    }
}

TEST_F(AdRoomTest, EachAdStartsAGameByItsNumberAndByItsOwner) {
    open(0);
    const auto ads = rig.hall.seeks.open;
    bool byNumber = false;
    for (const auto& [number, ad] : ads) {
        const bool fits = 1711 >= ad.terms.lowest && 1711 <= ad.terms.highest;
        byNumber = !byNumber;
        const int now = rig.hall.seeks.numbersOf(ad.owner).front();
        const std::string answer = rig.type("Ada", "Play " + (byNumber ? std::to_string(now) : ad.owner));
        EXPECT_EQ(answer, fits ? "" : "Your rating is outside of what this ad asks for.") << ad.owner;
        if (!fits) continue;
        ASSERT_NE(gameOf("Ada"), nullptr) << ad.owner;
        EXPECT_EQ(gameOf("Ada")->terms, ad.terms);
        EXPECT_EQ(gameOf("Ada")->opponentOf("Ada"), ad.owner);
        rig.type("Ada", "resign");
    }
}

TEST_F(AdRoomTest, AComputerWhoseAdWasTakenIsBusyUntilItsGameEnds) {
    open(0);
    const std::string number = std::to_string(rig.hall.seeks.numbersOf("Reed").front());
    EXPECT_EQ(rig.type("Ada", "play reed"), "");
    EXPECT_FALSE(owners().contains("Reed"));
    EXPECT_EQ(rig.type("Bert", "play " + number), "That seek is not available.");
    EXPECT_EQ(rig.type("Bert", "play reed"), "Reed is not seeking any games.");
    EXPECT_EQ(rig.type("Bert", "match reed 5 0"), "Reed is playing a game.");
    EXPECT_TRUE(has(rig.type("Bert", "who"), "1560^Reed(C)"));
    EXPECT_TRUE(has(rig.type("Bert", "finger reed"), "(playing game 2: "));
    rig.pass(600'000);
    if (gameOf("Ada")) rig.type("Ada", "resign");
    EXPECT_EQ(rig.hall.find("Reed")->playing, 0);
}

TEST_F(AdRoomTest, ATakenAdComesBackLaterUnderANewNumber) {
    open(0);
    const int number = rig.hall.seeks.numbersOf("Reed").front();
    rig.type("Ada", "play reed");
    rig.type("Ada", "resign");
    EXPECT_FALSE(owners().contains("Reed"));
    rig.shown.clear();
    rig.pass(12'000);
    ASSERT_TRUE(owners().contains("Reed"));
    EXPECT_NE(rig.hall.seeks.numbersOf("Reed").front(), number);
    EXPECT_TRUE(has(rig.takeShown("Bert"), "|Reed(C) (1560) seeking 5 5 unrated blitz (\"play "));
}

TEST_F(AdRoomTest, AnAdForWhichThereIsNoRoomComesBackWhenThereIs) {
    open(0);
    rig.type("Ada", "play sprout");
    rig.type("Ada", "resign");
    while (rig.hall.seeks.post({"Dora", "", "1500", {}}) != 0) continue;
    rig.pass(60'000);
    EXPECT_FALSE(owners().contains("Sprout"));
    rig.hall.seeks.removeOwner("Dora");
    rig.pass(12'000);
    EXPECT_TRUE(owners().contains("Sprout"));
}

TEST_F(AdRoomTest, AnAdDoesNotComeBackWhileItsOwnerPlaysAgain) {
    open(0);
    rig.type("Ada", "play reed");
    rig.type("Ada", "resign");
    rig.type("Bert", "match reed 9 9");
    rig.pass(1'000);
    ASSERT_NE(gameOf("Bert"), nullptr);
    gameOf("Bert")->pending = true; // the game stands still
    rig.pass(60'000);
    EXPECT_FALSE(owners().contains("Reed"));
    EXPECT_EQ(rig.hall.seeks.numbersOf("Reed").size(), 0U);
}

TEST_F(AdRoomTest, HostsTakeSeveralChallengesButOfferNoGameMeanwhile) {
    open(0);
    for (const char* name : {"Ada", "Bert"}) {
        rig.type(name, "match sprout 5 0");
        rig.pass(150);
    }
    ASSERT_EQ(rig.hall.gamesOf(*rig.hall.find("Sprout")).size(), 2U);
    EXPECT_FALSE(owners().contains("Sprout"));
    rig.type("Ada", "resign");
    gameOf("Bert")->pending = true;
    rig.pass(20'000);
    EXPECT_FALSE(owners().contains("Sprout")) << "the other game goes on";
    gameOf("Bert")->pending = false;
    rig.type("Bert", "resign");
    rig.pass(12'000);
    EXPECT_TRUE(owners().contains("Sprout"));
}

TEST_F(AdRoomTest, WhoLooksLikeAPersonSaysWhatHeIsInHisNotes) {
    open(0);
    for (const Computer& each : computers())
        EXPECT_TRUE(has(rig.type("Ada", "finger " + each.name), "2: The practice hall's engine plays my games."))
            << each.name;
    EXPECT_TRUE(has(rig.type("Ada", "finger driftwood"), "Driftwood has not played any rated games."));
    EXPECT_TRUE(has(rig.type("Ada", "finger lantern"), "Lantern is NOT a registered player."));
    EXPECT_TRUE(has(rig.type("Ada", "finger pebble"), "Blitz       640 "));
}

TEST_F(AdRoomTest, AThousandTakenAdsLeaveNothingBehind) {
    open(1'000);
    rig.type("Ada", "set seek 0");
    rig.type("Bert", "set seek 0");
    std::size_t taken = 0;
    std::size_t timersLater = 0;
    while (taken < 1'000) {
        const auto ads = rig.hall.seeks.open;
        for (const auto& [number, ad] : ads) {
            if (rig.type("Ada", "play " + std::to_string(number)).empty()) {
                ++taken;
                rig.type("Ada", taken % 2 == 0 ? "resign" : "abort");
            }
        }
        rig.shown.clear();
        rig.pass(13'000);
        if (taken < 100) timersLater = std::max(timersLater, rig.timers());
    }
    EXPECT_LE(rig.timers(), timersLater + 10);
    EXPECT_LE(rig.hall.games.size(), 1U) << "that of the pair";
    EXPECT_LE(rig.hall.seeks.open.size(), countOf(Role::Host) + countOf(Role::Visitor));
    EXPECT_LE(rig.hall.archive.shelves.size(), computers().size() + 1);
    EXPECT_TRUE(rig.hall.offers.open.empty());
    for (const auto& [number, ad] : rig.hall.seeks.open) EXPECT_LE(number, SeekTable::highestNumber);
}

} // namespace
} // namespace practice
