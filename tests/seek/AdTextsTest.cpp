// What the graph says and shows of an ad.
#include "seek/AdTexts.h"

#include <gtest/gtest.h>

namespace {

SeekAd typed(const char* type) {
    SeekAd ad;
    ad.AdType = type;
    return ad;
}

SeekAd named(const char* name) {
    SeekAd ad;
    ad.AdName = name;
    return ad;
}

} // namespace

TEST(AdTexts, TheTextHasAllOfTheAdInItsOrder) {
    const SeekAd ad{12, 1711, "GUILTYKING", 2, 12, "rated", "crazyhouse", "   0-9999 mf", false};
    EXPECT_EQ(adText(ad), "GUILTYKING (1711) seeks crazyhouse 2 12 rated    0-9999 mf");
}

TEST(AdTexts, TheSeekerIsTheNameUpToItsFirstMark) {
    EXPECT_EQ(seekerOf(named("meru(C)")), "meru");
    EXPECT_EQ(seekerOf(named("Anders(TD)(*)")), "Anders");
    EXPECT_EQ(seekerOf(named("GUILTYKING")), "GUILTYKING");
}

TEST(AdTexts, AMarkInOneOfTheFirstTwoColumnsIsPartOfTheName) {
    EXPECT_EQ(seekerOf(named("(C)")), "(C)");
    EXPECT_EQ(seekerOf(named("(meru(C)")), "(meru(C)") << "whatever mark follows";
    EXPECT_EQ(seekerOf(named("a(C)")), "a(C)");
    EXPECT_EQ(seekerOf(named("ab(C)")), "ab");
}

TEST(AdTexts, ADotIsTealAComputersRedAndAVariantsMagentaWhoeverSeeksIt) {
    EXPECT_EQ(dotColor(typed("blitz")), 0x808000);
    SeekAd computer = typed("blitz");
    computer.AdComputer = true;
    EXPECT_EQ(dotColor(computer), 255);
    computer.AdType = "wild/fr";
    EXPECT_EQ(dotColor(computer), 0xFF00FF);
}

TEST(AdTexts, AVariantIsKnownByItsFirstFourLetters) {
    for (const char* type : {"wild/4", "Wild", "bughouse", "CRAZYhouse", "fischerandom", "suicide", "style"}) {
        EXPECT_EQ(dotColor(typed(type)), 0xFF00FF) << type;
    }
    for (const char* type : {"", "wil", "losers", "atomic", "blitz wild", "awild"}) {
        EXPECT_EQ(dotColor(typed(type)), 0x808000) << type;
    }
}

TEST(AdTexts, OnlyTheExactWordRatedFillsADot) {
    SeekAd ad;
    ad.AdRated = "rated";
    EXPECT_TRUE(dotFilled(ad));
    for (const char* word : {"unrated", "Rated", ""}) {
        ad.AdRated = word;
        EXPECT_FALSE(dotFilled(ad)) << word;
    }
}
