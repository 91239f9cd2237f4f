// Tests of seek ads: the table of ads and their texts.
#include "practice/games/Seeks.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

Seek ad(const std::string& owner, int minutes, int increment) {
    Seek seek{owner, "", "1711", {}};
    seek.terms.minutes = minutes;
    seek.terms.increment = increment;
    return seek;
}

TEST(Seeks, ANumberThatWasGivenBackRestsUntilAllOthersWereGiven) {
    SeekTable table;
    EXPECT_EQ(table.post(ad("Ada", 3, 0)), 1);
    EXPECT_EQ(table.post(ad("Bert", 3, 0)), 2);
    EXPECT_EQ(table.post(ad("Cora", 3, 0)), 3);
    EXPECT_EQ(table.removeOwner("Bert"), 1);
    EXPECT_EQ(table.post(ad("Dora", 3, 0)), 4);
    table.lastNumber = SeekTable::highestNumber;
    EXPECT_EQ(table.post(ad("Emma", 3, 0)), 2) << "1, 3 and 4 are taken";
    EXPECT_EQ(table.post(ad("Emma", 3, 0)), 5);
}

TEST(Seeks, TheTableIsFullAt200Ads) {
    SeekTable table;
    for (int i = 1; i <= 200; ++i) EXPECT_EQ(table.post(ad("Ada", 3, 0)), i);
    EXPECT_EQ(table.post(ad("Ada", 3, 0)), 0);
    EXPECT_EQ(table.numbersOf("Ada").size(), 200U);
    EXPECT_EQ(table.numbersOf("Bert").size(), 0U);
}

TEST(Seeks, TheAnnouncementEndsWithTheCommandThatTakesIt) {
    Seek seek = ad("Ada", 5, 0);
    EXPECT_EQ(announcement(12, seek), "Ada (1711) seeking 5 0 unrated blitz (\"play 12\" to respond)");
    seek.terms.rated = seek.terms.manual = seek.terms.formula = true;
    seek.terms.colour = WantedColour::White;
    EXPECT_EQ(announcement(3, seek), "Ada (1711) seeking 5 0 rated blitz [white] m f (\"play 3\" to respond)");
}

TEST(Seeks, AGuestIsAnnouncedWithoutHisMark) {
    Seek seek{"Bert", "(U)", "++++", {}};
    seek.terms.minutes = 3;
    seek.terms.increment = 0;
    EXPECT_EQ(announcement(4, seek), "Bert (++++) seeking 3 0 unrated blitz (\"play 4\" to respond)");
    seek.title = "(C)";
    EXPECT_TRUE(announcement(4, seek).starts_with("Bert(C) (++++) seeking "));
}

TEST(Seeks, TheRowOfAnAdKeepsItsColumns) {
    Seek seek = ad("Willow", 15, 10);
    seek.title = "(C)";
    EXPECT_EQ(soughtRow(2, seek), "  2 1711 Willow(C)          15  10 unrated standard               0-9999 ");
    seek.terms.rated = true;
    seek.terms.colour = WantedColour::White;
    seek.terms.lowest = 800;
    seek.terms.highest = 1300;
    seek.terms.manual = seek.terms.formula = true;
    EXPECT_EQ(soughtRow(127, seek), "127 1711 Willow(C)          15  10 rated   standard   [white]   800-1300 mf");
}

TEST(Seeks, TheTableEndsWithTheCount) {
    SeekTable table;
    EXPECT_EQ(soughtTable(table), "0 ads displayed.");
    table.post(ad("Ada", 3, 0));
    EXPECT_TRUE(soughtTable(table).ends_with("\n1 ad displayed."));
    table.post(ad("Bert", 3, 0));
    EXPECT_TRUE(soughtTable(table).ends_with("\n2 ads displayed."));
}

} // namespace
} // namespace practice
