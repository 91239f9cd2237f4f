// The capture of the server's seeks: which lines are ads, what they hold, and what ends the answer.
#include "seek/SoughtCapture.h"

#include "common/Fault.h"
#include "seek/SoughtLines.h"

#include <gtest/gtest.h>

namespace {

struct SoughtCapture : testing::Test {
    SeekTable table;
    int cleared = 0;

    bool read(const std::string& line) {
        return zSoughtLines(table, line, [this] { ++cleared; });
    }
    bool read(const SoughtLine& line) { return read(line.text()); }
    // Reads a line into entry 0; true if it was accepted.
    bool accepts(const SoughtLine& line) {
        table.SeekAdCount = 0;
        cleared = 0;
        EXPECT_FALSE(read(line)) << line.text();
        EXPECT_EQ(cleared, table.SeekAdCount) << line.text();
        return table.SeekAdCount == 1;
    }
    const SeekAd& ad(long entry = 0) const { return table.SeekAds[entry]; }
};

std::string ofLength(std::size_t length) {
    std::string line = SoughtLine().bare();
    line.resize(length - 2, ' ');
    return line + "\r\n";
}

// A line without a blank between its columns, which are `shift` to the right; no ad for what stands beside its
// increment.
std::string fullLine(long shift, char besideIncrement = '9') {
    std::string line = "9999"
                       "17119";
    if (shift == 1) line += " ";
    line += "Seventeen_letters ";
    line += std::string("152") + besideIncrement + "345" + besideIncrement;
    return line + "unrated!"
                  "wild/twentyletters_!"
                  "0-9999 mf!\r\n";
}

} // namespace

TEST_F(SoughtCapture, AnAdIsReadByItsColumns) {
    ASSERT_TRUE(accepts({"144", "2563", "doctorweb(C)", "15", "10", "rated", "lightning", " 800-1300 mf"}));
    EXPECT_EQ(ad().AdNumber, 144);
    EXPECT_EQ(ad().AdRating, 2563);
    EXPECT_EQ(ad().AdName, "doctorweb(C)");
    EXPECT_EQ(ad().AdTime, 15);
    EXPECT_EQ(ad().AdInc, 10);
    EXPECT_EQ(ad().AdRated, "rated");
    EXPECT_EQ(ad().AdType, "lightning");
    EXPECT_EQ(ad().AdRange, " 800-1300 mf");
    EXPECT_TRUE(ad().AdComputer);
}

TEST_F(SoughtCapture, EachColumnEndsWhereItsWidthEnds) {
    for (const long shift : {0L, 1L}) {
        read(fullLine(shift));
        EXPECT_EQ(ad().AdNumber, 999);
        EXPECT_EQ(ad().AdRating, 1711);
        EXPECT_EQ(ad().AdName, "Seventeen_letters");
        EXPECT_EQ(ad().AdTime, 152);
        EXPECT_EQ(ad().AdInc, 345);
        EXPECT_EQ(ad().AdRated, "unrated!");
        EXPECT_EQ(ad().AdType, "wild/twentyletters_!");
        EXPECT_EQ(ad().AdRange, "0-9999 mf!");
        EXPECT_EQ(table.SeekAdCount, 0);
    }
}

TEST_F(SoughtCapture, FullColumnsNeedNothingButTheBlanksBesideTheIncrement) {
    for (const long shift : {0L, 1L}) {
        EXPECT_TRUE(zSoughtLine(fullLine(shift, ' '))) << shift;
        read(fullLine(shift, ' '));
        EXPECT_EQ(table.SeekAdCount, shift + 1);
    }
}

TEST_F(SoughtCapture, OnlyTheMarkCMakesAComputer) {
    ASSERT_TRUE(accepts({.name = "Guest(U)"}));
    EXPECT_FALSE(ad().AdComputer);
    ASSERT_TRUE(accepts({.type = "blitz (C)"}));
    EXPECT_FALSE(ad().AdComputer) << "it is no mark of the seeker's";
}

TEST_F(SoughtCapture, EachAcceptedAdTakesTheNextEntry) {
    read(SoughtLine{.number = "1"});
    read(SoughtLine{.number = "2"});
    EXPECT_EQ(table.SeekAdCount, 2);
    EXPECT_EQ(ad(0).AdNumber, 1);
    EXPECT_EQ(ad(1).AdNumber, 2);
    EXPECT_EQ(cleared, 2);
}

TEST_F(SoughtCapture, AnAdIs71To79CharactersLong) {
    for (const std::size_t length : {71U, 79U}) {
        EXPECT_FALSE(read(ofLength(length)));
        EXPECT_TRUE(zSoughtLine(ofLength(length))) << length;
    }
    EXPECT_EQ(table.SeekAdCount, 2);
    for (const std::size_t length : {70U, 80U}) {
        EXPECT_FALSE(read(ofLength(length)));
        EXPECT_FALSE(zSoughtLine(ofLength(length))) << length;
    }
    EXPECT_EQ(table.SeekAdCount, 2);
}

TEST_F(SoughtCapture, PlusSignsAndDashesAreARatingOfMinusOne) {
    for (const char* rating : {"++++", "----"}) {
        ASSERT_TRUE(accepts({.rating = rating}));
        EXPECT_EQ(ad().AdRating, -1);
    }
}

TEST_F(SoughtCapture, AnyOtherMarkIsReadAsANumber) {
    EXPECT_FALSE(accepts({.rating = "+++ "}));
    ASSERT_TRUE(accepts({.rating = "886E"}));
    EXPECT_EQ(ad().AdRating, 886);
    ASSERT_TRUE(accepts({.rating = " -50"}));
    EXPECT_EQ(ad().AdRating, -50);
}

TEST_F(SoughtCapture, ARatingOf0RejectsTheAd) {
    EXPECT_FALSE(accepts({.rating = "   0"}));
    EXPECT_FALSE(accepts({.rating = "    "}));
}

TEST_F(SoughtCapture, ABlankInColumn10MovesAllColumnsByOne) {
    SoughtLine moved{.name = " Detlef"};
    moved.name.resize(19, ' ');
    ASSERT_TRUE(accepts(moved));
    EXPECT_EQ(ad().AdName, "Detlef");
    EXPECT_EQ(ad().AdTime, 2);
    EXPECT_EQ(ad().AdType, "blitz");
    EXPECT_EQ(ad().AdRange, "   0-9999 ");
    EXPECT_TRUE(zSoughtLine(moved.text()));
}

TEST_F(SoughtCapture, ANameOf18CharactersMovesTheColumnsBehindItByOne) {
    SoughtLine longName{.name = "Seventeenletters(C)"};
    longName.name.resize(18);
    longName.time = " 15"; // one column on: the name's 18 fill up to its own
    longName.name += " ";
    ASSERT_TRUE(accepts(longName));
    EXPECT_EQ(ad().AdName, "Seventeenletters(C");
    EXPECT_EQ(ad().AdTime, 15);
    EXPECT_EQ(ad().AdRated, "rated");
    EXPECT_EQ(ad().AdRange, "   0-9999 ");
}

TEST_F(SoughtCapture, ANameOf18CharactersInUnmovedColumnsIsNoAd) {
    SoughtLine longName{.name = std::string(18, 'n')};
    EXPECT_FALSE(accepts(longName));
    EXPECT_TRUE(zSoughtLine(longName.text())) << "which has no such step";
}

TEST_F(SoughtCapture, ANameOf17CharactersMovesNothing) {
    ASSERT_TRUE(accepts({.name = std::string(17, 'n')}));
    EXPECT_EQ(ad().AdTime, 2);
}

TEST_F(SoughtCapture, Time0WithIncrement0RejectsTheAd) {
    EXPECT_FALSE(accepts({.time = "0", .inc = "0"}));
    EXPECT_TRUE(accepts({.time = "0", .inc = "1"}));
    EXPECT_TRUE(accepts({.time = "1", .inc = "0"}));
}

TEST_F(SoughtCapture, AnUntimedAdHas240MinutesBeforeItsTimeIsLookedAt) {
    for (const char* word : {"untimed", "UnTimed"}) {
        ASSERT_TRUE(accepts({.time = "0", .inc = "0", .rated = "unrated", .type = word}));
        EXPECT_EQ(ad().AdTime, 240);
    }
    EXPECT_FALSE(accepts({.time = "0", .inc = "0", .type = "untimed chess"}));
}

TEST_F(SoughtCapture, TheNumberIsComparedAsText) {
    EXPECT_FALSE(accepts({.number = " -5"})) << "a minus sign sorts below 0";
    EXPECT_TRUE(accepts({.number = "  0"}));
    EXPECT_TRUE(accepts({.number = "999"}));
    ASSERT_TRUE(accepts({.number = "1e3"})) << "1000 sorts below 999";
    EXPECT_EQ(ad().AdNumber, 1000);
}

TEST_F(SoughtCapture, BlanksStandBesideTheIncrement) {
    std::string line = SoughtLine().text();
    line[30] = 'x';
    EXPECT_FALSE(read(line));
    EXPECT_FALSE(zSoughtLine(line));
    line[30] = ' ';
    line[34] = 'x';
    EXPECT_FALSE(read(line));
    EXPECT_FALSE(zSoughtLine(line));
    EXPECT_EQ(table.SeekAdCount, 0);
}

TEST_F(SoughtCapture, WhatIsNotAcceptedStaysInItsEntryUntilTheNextLineOverwritesIt) {
    read(SoughtLine{.rating = "   0", .name = "Rejected"});
    EXPECT_EQ(ad().AdName, "Rejected");
    EXPECT_EQ(table.SeekAdCount, 0);
    EXPECT_EQ(cleared, 0);
    read(SoughtLine{.name = "Accepted"});
    EXPECT_EQ(ad().AdName, "Accepted");
    EXPECT_EQ(table.SeekAdCount, 1);
}

TEST_F(SoughtCapture, WhatIsNotAcceptedLeavesTheMarkOfAComputer) {
    read(SoughtLine{.name = "Engine(C)"});
    table.SeekAdCount = 0;
    read(SoughtLine{.rating = "   0", .name = "Rejected"});
    EXPECT_EQ(ad().AdName, "Rejected");
    EXPECT_TRUE(ad().AdComputer);
}

TEST_F(SoughtCapture, TheLastEntryTakesWhatIsNotAcceptedToo) {
    table.SeekAdCount = 200;
    read(SoughtLine{.rating = "   0", .name = "Rejected"});
    EXPECT_EQ(ad(200).AdName, "Rejected");
}

TEST_F(SoughtCapture, TheCountLineEndsTheAnswerAndIsTaken) {
    EXPECT_TRUE(read("0 ads displayed.\r\n"));
    EXPECT_EQ(cleared, 1);
}

TEST_F(SoughtCapture, TheCountLineCutsAndNeverRaises) {
    for (int i = 0; i < 3; ++i) read(SoughtLine{});
    EXPECT_TRUE(read("41 ads displayed.\r\n"));
    EXPECT_EQ(table.SeekAdCount, 3);
    EXPECT_TRUE(read("2 ads displayed.\r\n"));
    EXPECT_EQ(table.SeekAdCount, 2);
    EXPECT_TRUE(read("No ads displayed.\r\n"));
    EXPECT_EQ(table.SeekAdCount, 0) << "no number is 0";
}

TEST_F(SoughtCapture, ACountOfAnySizeIsReadAndOnlyALowerOneTaken) {
    read(SoughtLine{});
    EXPECT_TRUE(read("99999999999999999999 ads displayed.\r\n"));
    EXPECT_EQ(table.SeekAdCount, 1);
}

TEST_F(SoughtCapture, TheSingularCountLineEndsNothing) {
    EXPECT_FALSE(read("1 ad displayed.\r\n"));
    EXPECT_EQ(cleared, 0);
    EXPECT_FALSE(zSoughtLine("1 ad displayed.\r\n"));
}

TEST_F(SoughtCapture, ACountLineAsLongAsAnAdIsReadAsOne) {
    std::string line = "41 ads displayed.";
    line.resize(71, ' ');
    EXPECT_FALSE(read(line + "\r\n"));
    EXPECT_EQ(cleared, 0);
}

TEST_F(SoughtCapture, AnyOtherLineIsLeftAlone) {
    EXPECT_FALSE(read("fics% "));
    EXPECT_FALSE(read("3 ads displayed\r\n")) << "without its point";
    EXPECT_FALSE(read(""));
    EXPECT_FALSE(read("\\   0-9999\r\n"));
    EXPECT_EQ(cleared, 0);
    EXPECT_EQ(table.SeekAdCount, 0);
}

TEST_F(SoughtCapture, TheTableTakes201AdsAndThe202ndAcceptedOneIsAFault) {
    for (int i = 0; i < 201; ++i) read(SoughtLine{});
    EXPECT_EQ(table.SeekAdCount, 201);
    EXPECT_FALSE(read(SoughtLine{.rating = "   0"})) << "not accepted";
    EXPECT_TRUE(read("201 ads displayed.\r\n"));
    try {
        read(SoughtLine{});
        FAIL() << "a 202nd ad was taken";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.kind(), FaultKind::Subscript);
        EXPECT_STREQ(fault.what(), "subscript 201 is outside 0 to 200 (ads of the server)");
    }
    EXPECT_EQ(table.SeekAdCount, 201);
}

TEST_F(SoughtCapture, ANumberBeyond16BitsIsAFaultThatTheOtherTestDoesNotRaise) {
    const SoughtLine line{.rating = "9e99"};
    EXPECT_THROW(read(line), Fault);
    EXPECT_FALSE(zSoughtLine(line.text()));
}

TEST_F(SoughtCapture, TheNextCaptureGoesOnWhereTheLatestLeftTheTable) {
    read(SoughtLine{.number = "1"});
    EXPECT_TRUE(read("1 ads displayed.\r\n"));
    read(SoughtLine{.number = "2"});
    EXPECT_EQ(table.SeekAdCount, 2);
    EXPECT_EQ(ad(0).AdNumber, 1);
}

// zSoughtLine

TEST(SoughtLineTest, AnAdAndTheCountLineBelongToTheAnswer) {
    EXPECT_TRUE(zSoughtLine(SoughtLine{}.text()));
    EXPECT_TRUE(zSoughtLine(SoughtLine{.rating = "++++"}.text()));
    EXPECT_TRUE(zSoughtLine("41 ads displayed.\r\n"));
}

TEST(SoughtLineTest, ARatingOf0ANumberBelow0AndNoTimeAtAllDoNot) {
    EXPECT_FALSE(zSoughtLine(SoughtLine{.rating = "   0"}.text()));
    EXPECT_FALSE(zSoughtLine(SoughtLine{.number = " -1"}.text()));
    EXPECT_FALSE(zSoughtLine(SoughtLine{.time = "0", .inc = "0"}.text()));
}

TEST(SoughtLineTest, AnIncrementAloneIsATime) {
    EXPECT_TRUE(zSoughtLine(SoughtLine{.time = "0", .inc = "1"}.text()));
    EXPECT_TRUE(zSoughtLine(SoughtLine{.time = "0", .inc = "100"}.text()));
}

TEST(SoughtLineTest, ItsColumnsAreThoseOfTheTable) {
    EXPECT_FALSE(zSoughtLine(SoughtLine{.number = "-50"}.text())) << "from the first character on";
    EXPECT_TRUE(zSoughtLine(SoughtLine{.time = "5  "}.text())) << "from the first of its three";
    SoughtLine moved{.name = " Detlef", .time = "0", .inc = "12"};
    moved.name.resize(19, ' ');
    EXPECT_TRUE(zSoughtLine(moved.text()));
}

TEST(SoughtLineTest, AnUntimedAdDoesNot) {
    EXPECT_FALSE(zSoughtLine(SoughtLine{.time = "0", .inc = "0", .type = "untimed"}.text()));
}

TEST(SoughtLineTest, AnnouncementsAreOfAnotherShape) {
    EXPECT_FALSE(zSoughtLine("ChezzPupil (1257P) seeking 2 10 rated blitz [white] (\"play 62\" to respond)\r\n"));
    EXPECT_FALSE(zSoughtLine("fics% "));
    EXPECT_FALSE(zSoughtLine(""));
}
