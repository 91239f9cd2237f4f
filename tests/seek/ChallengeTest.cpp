// The lines of challenges and seeks, byte for byte, and the reading of the dialog's numbers.
#include "seek/Challenge.h"

#include "common/Fault.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

constexpr bool Match = true;
constexpr bool Seek = false;

// Rated, with the first item of both lists, as a dialog that has been read shows them.
Challenge challenge(const char* time, const char* increment) {
    Challenge made;
    made.txtTime = time;
    made.txtInc = increment;
    made.txtOpp = "fred";
    made.cboColor = {0, MatchColors[0]};
    made.cboType = {0, MatchTypes[0]};
    return made;
}

ListChoice typeOf(int index) { return {index, MatchTypes[static_cast<std::size_t>(index)]}; }
ListChoice colorOf(int index) { return {index, MatchColors[static_cast<std::size_t>(index)]}; }

FaultKind faultOf(const Challenge& read) {
    try {
        fieldsOf(read);
    } catch (const Fault& fault) {
        return fault.kind();
    }
    ADD_FAILURE() << "no fault";
    return FaultKind::File;
}

} // namespace

// The exact bytes

TEST(ChallengeLine, TheListsOfColoursAndTypesHaveTheServersWords) {
    const std::vector<std::string> colors{"Auto Color", "White", "Black"};
    EXPECT_EQ(std::vector<std::string>(MatchColors.begin(), MatchColors.end()), colors);
    const std::vector<std::string> types{"Normal Chess", "Crazyhouse", "Bughouse", "Losers",  "Suicide", "Atomic",
                                         "Wild 0",       "Wild 1",     "Wild 2",   "Wild 3",  "Wild 4",  "Wild 5",
                                         "Wild 6",       "Wild 7",     "Wild 8",   "Wild 8a", "Wild fr"};
    EXPECT_EQ(std::vector<std::string>(MatchTypes.begin(), MatchTypes.end()), types);
}

TEST(ChallengeLine, NoItemOfAListIsChosenByDesign) {
    EXPECT_EQ(ListChoice{}.index, -1);
    EXPECT_EQ(Challenge{}.cboColor.index, -1);
    EXPECT_EQ(Challenge{}.cboType.index, -1);
}

TEST(ChallengeLine, ARatedMatchEndsInTheBlankOfTheColour) {
    EXPECT_EQ(challengeLine(challenge("5", "0"), Match), "Match fred 5 0 r ");
}

TEST(ChallengeLine, AnUnratedMatchWithTypeAndColour) {
    Challenge made = challenge("5", "0");
    made.chkRated = false;
    made.cboColor = colorOf(1);
    made.cboType = typeOf(1);
    EXPECT_EQ(challengeLine(made, Match), "Match fred 5 0 Crazyhouse u White ");
}

TEST(ChallengeLine, ARatedSeekEndsInItsRange) {
    EXPECT_EQ(challengeLine(challenge("3", "0"), Seek), "Seek 3 0 r 0-9999");
}

TEST(ChallengeLine, AnUnratedSeekWithTypeColourAndRange) {
    Challenge made = challenge("2", "12");
    made.chkRated = false;
    made.cboColor = colorOf(2);
    made.cboType = typeOf(16);
    made.txtMin = "1500";
    made.txtMax = "1800";
    EXPECT_EQ(challengeLine(made, Seek), "Seek 2 12 Wild fr u Black 1500-1800");
}

TEST(ChallengeLine, WithTheServersSettingsTheHeadGoesOutAloneWithItsBlank) {
    Challenge made = challenge("5", "0");
    made.chkServer = true;
    EXPECT_EQ(challengeLine(made, Match), "Match fred ");
    EXPECT_EQ(challengeLine(made, Seek), "Seek ");
}

TEST(ChallengeLine, TheServersSettingsIgnoreTheTypeAlthoughItsBoxStaysEnabled) {
    Challenge made = challenge("5", "0");
    made.chkServer = true;
    made.cboType = typeOf(5);
    EXPECT_EQ(challengeLine(made, Match), "Match fred ");
}

TEST(ChallengeLine, EveryTypeButTheFirstSendsItsTextAsItStands) {
    for (int index = 1; index < 17; ++index) {
        Challenge made = challenge("1", "0");
        made.cboType = typeOf(index);
        EXPECT_EQ(challengeLine(made, Match), "Match fred 1 0 " + made.cboType.text + " r ") << index;
    }
}

TEST(ChallengeLine, TheFirstTypeAddsNotEvenABlank) {
    Challenge made = challenge("1", "0");
    made.cboType = {0, "whatever it shows"};
    EXPECT_EQ(challengeLine(made, Match), "Match fred 1 0 r ");
}

TEST(ChallengeLine, TheFirstColourAddsOneBlank) {
    Challenge made = challenge("1", "0");
    made.cboColor = {0, "whatever it shows"};
    EXPECT_EQ(challengeLine(made, Match), "Match fred 1 0 r ");
}

TEST(ChallengeLine, WithNoItemChosenTheDesignedTextsGoOut) {
    Challenge made;
    made.txtOpp = "fred";
    EXPECT_EQ(challengeLine(made, Match), "Match fred 2 12 Normal r Auto Color ");
    EXPECT_EQ(challengeLine(made, Seek), "Seek 2 12 Normal r Auto Color 0-9999");
}

TEST(ChallengeLine, TheOpponentGoesOutAsTypedWithBlanksAroundIt) {
    Challenge made = challenge("5", "0");
    made.txtOpp = " fred ";
    EXPECT_EQ(challengeLine(made, Match), "Match  fred  5 0 r ");
    made.txtOpp.clear();
    EXPECT_EQ(challengeLine(made, Match), "Match  5 0 r ");
}

TEST(ChallengeLine, OnlyTimeAndIncrementAreTrimmed) {
    Challenge made = challenge("  5 ", " 0  ");
    made.txtMin = " 1 ";
    made.txtMax = " 2";
    EXPECT_EQ(challengeLine(made, Seek), "Seek 5 0 r  1 - 2");
}

TEST(ChallengeLine, ARangeOfZeroToZeroIsSent) {
    Challenge made = challenge("5", "0");
    made.txtMin = made.txtMax = "0";
    EXPECT_EQ(challengeLine(made, Seek), "Seek 5 0 r 0-0");
}

TEST(ChallengeLine, AMatchHasNoRangeAndASeekNoOpponent) {
    Challenge made = challenge("5", "0");
    made.txtMin = "1111";
    EXPECT_EQ(challengeLine(made, Match).find("1111"), std::string::npos);
    EXPECT_EQ(challengeLine(made, Seek).find("fred"), std::string::npos);
}

// The eight values

TEST(ChallengeFields, AreTheBoxesTextsTicksAndIndices) {
    Challenge made = challenge("3", "12");
    made.txtMin = "1500";
    made.txtMax = "1800";
    made.chkServer = true;
    made.cboColor = colorOf(2);
    made.cboType = typeOf(16);
    EXPECT_EQ(fieldsOf(made), (MatchSettings{3, 12, 1, 1, 1500, 1800, 2, 16}));
    made.chkRated = made.chkServer = false;
    made.cboColor.index = made.cboType.index = -1;
    EXPECT_EQ(fieldsOf(made), (MatchSettings{3, 12, 0, 0, 1500, 1800, -1, -1}));
}

TEST(ChallengeFields, AFractionIsRoundedHalfToEven) {
    EXPECT_EQ(fieldsOf(challenge("2.5", "3.5")).Time, 2);
    EXPECT_EQ(fieldsOf(challenge("2.5", "3.5")).Increment, 4);
}

TEST(ChallengeFields, EachOfTheFourBoxesFaultsOnTextThatIsNoNumber) {
    for (std::string Challenge::*box :
         {&Challenge::txtTime, &Challenge::txtInc, &Challenge::txtMin, &Challenge::txtMax}) {
        for (const char* text : {"", " ", "five", "5 0", "5m", "-"}) {
            Challenge made = challenge("5", "0");
            made.*box = text;
            EXPECT_EQ(faultOf(made), FaultKind::TypeMismatch) << text;
        }
    }
}

TEST(ChallengeFields, ANumberBeyond16BitsOverflows) {
    EXPECT_EQ(fieldsOf(challenge("32767", "-32768")).Time, std::numeric_limits<std::int16_t>::max());
    EXPECT_EQ(faultOf(challenge("32768", "0")), FaultKind::Overflow);
    EXPECT_EQ(faultOf(challenge("5", "-32769")), FaultKind::Overflow);
}

TEST(ChallengeFields, BoxesThatTheLineLeavesOutAreReadAllTheSame) {
    Challenge made = challenge("", "0");
    made.chkServer = true;
    EXPECT_EQ(faultOf(made), FaultKind::TypeMismatch);
}
