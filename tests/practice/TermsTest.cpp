// Tests of the terms of a game: reading them, and what they are called.
#include "practice/games/Terms.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

TEST(Terms, TermsAreReadInFull) {
    const auto reading = readTerms({"10", "5", "rated", "white", "800-1300"}, {});
    EXPECT_EQ(reading.error, "");
    EXPECT_EQ(reading.terms.minutes, 10);
    EXPECT_EQ(reading.terms.increment, 5);
    EXPECT_TRUE(reading.terms.rated);
    EXPECT_EQ(reading.terms.colour, WantedColour::White);
    EXPECT_EQ(reading.terms.lowest, 800);
    EXPECT_EQ(reading.terms.highest, 1300);
}

TEST(Terms, TermsAreReadInShortAndInAnyLetterCase) {
    const auto reading = readTerms({"3", "0", "u", "Black", "0-9999", "m", "f"}, {});
    EXPECT_EQ(reading.error, "");
    EXPECT_FALSE(reading.terms.rated);
    EXPECT_EQ(reading.terms.colour, WantedColour::Black);
    EXPECT_TRUE(reading.terms.manual);
    EXPECT_TRUE(reading.terms.formula);
}

TEST(Terms, TermsNotSaidComeFromTheStandard) {
    Terms standard;
    standard.minutes = 7;
    standard.increment = 3;
    EXPECT_EQ(readTerms({}, standard).terms.minutes, 7);
    EXPECT_EQ(readTerms({}, standard).terms.increment, 3);
    EXPECT_EQ(readTerms({"5"}, standard).terms.increment, 0);
}

TEST(Terms, StrangeTermsAreComplainedAbout) {
    EXPECT_NE(readTerms({"5", "0", "bughouse"}, {}).error, "");
    EXPECT_NE(readTerms({"1000", "0"}, {}).error, "");
    EXPECT_NE(readTerms({"5", "0", "3"}, {}).error, "");
    EXPECT_NE(readTerms({"5", "0", "10000-20000"}, {}).error, "");
    EXPECT_NE(readTerms({"-"}, {}).error, "");
}

TEST(Terms, TimesStayBelowWhatAClientsClockHolds) {
    EXPECT_EQ(readTerms({"546", "999"}, {}).error, "");
    const std::string complaint = "Times go from 0 to 546 minutes and from 0 to 999 seconds a move.";
    EXPECT_EQ(readTerms({"547"}, {}).error, complaint);
    EXPECT_EQ(readTerms({"999", "0"}, {}).error, complaint);
    EXPECT_EQ(readTerms({"5", "1000"}, {}).error, complaint);
}

TEST(Terms, TheKindFollowsTheTimeOfFortyMoves) {
    EXPECT_EQ(gameKind(0, 0), "untimed");
    EXPECT_EQ(gameKind(1, 0), "lightning");
    EXPECT_EQ(gameKind(3, 0), "blitz");
    EXPECT_EQ(gameKind(2, 12), "blitz");
    EXPECT_EQ(gameKind(15, 0), "standard");
    EXPECT_EQ(gameKind(15, 10), "standard");
}

} // namespace
} // namespace practice
