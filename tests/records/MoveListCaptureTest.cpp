// The reader of move lists: every column, the order of its tests, and what stays of the game before.
#include "records/MoveListCapture.h"

#include "common/Fault.h"
#include "records/MoveListRig.h"
#include "records/RecordedMoveLists.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr const char* Header = "Ajido (2281) vs. IMgooeyjim (2068) --- Thu Oct 14, 20:36 PDT 2010\r\n";
constexpr const char* MatchLine = "Rated blitz match, initial time: 5 minutes, increment: 12 seconds.\r\n";
constexpr const char* BothHalves = "  1.  e4      (0:00)     e5      (0:07)\r\n";

struct MoveListCapture : testing::Test {
    std::unique_ptr<GameRecord> owned = std::make_unique<GameRecord>();
    GameRecord& record = *owned;

    MovesLine read(const std::string& line) { return zMovesLines(line, record); }

    // Whether the line is taken and not the last one.
    bool takes(const std::string& line) {
        const MovesLine answer = read(line);
        EXPECT_FALSE(answer.done) << line;
        return answer.taken;
    }
    void header(const std::string& behindDashes) { takes("Anders (1500) vs. Berta (1600) --- " + behindDashes); }
    void match(const std::string& behindComma) { takes("Rated blitz match, initial" + behindComma + "\r\n"); }
};

struct RecordedList : MoveListCapture, testing::WithParamInterface<RecordedMoveList> {
    std::vector<std::string> lines = moveListsIn(GetParam().file).at(static_cast<std::size_t>(GetParam().number));
};

std::string nameOf(const testing::TestParamInfo<RecordedMoveList>& info) { return std::to_string(info.index); }

} // namespace

// Recorded lists

TEST_P(RecordedList, GivesTheRecordOfTheTableFieldByField) {
    const RecordedMoveList& told = GetParam();
    EXPECT_EQ(readMoveList(lines, record), told.ends);
    EXPECT_EQ(record.Header, lines.front());
    EXPECT_EQ(record.MatchLine, lines.at(1));
    EXPECT_EQ(record.Site, "FICS, Fremont, California USA");
    EXPECT_EQ(record.White, told.white);
    EXPECT_EQ(record.WhiteElo, told.whiteElo);
    EXPECT_EQ(record.Black, told.black);
    EXPECT_EQ(record.BlackElo, told.blackElo);
    EXPECT_EQ(record.Date, told.date);
    EXPECT_EQ(record.Time, told.time);
    EXPECT_EQ(record.Event, told.event);
    EXPECT_EQ(record.TimeControl, told.timeControl);
    EXPECT_EQ(record.LastMove, told.lastMove);
    EXPECT_EQ(movesOf(record), told.moves);
    EXPECT_EQ(record.ResultLine, told.result + (told.result.empty() ? "" : "\r\n"));
}

// A record is the same with a strange line anywhere in its list, which is left alone.
TEST_P(RecordedList, IsNotTouchedByLinesOfOtherKindsInBetween) {
    readMoveList(lines, record);
    for (const char* strange :
         {"Berta tells you: e4 (0:00) is a good move, 1.  e4 too\r\n", "Berta shouts: (hello) there, everybody\r\n",
          "--> Berta looks for a partner ) and finds (0) none\r\n", "fics% \r\n",
          "Game notification: Anders (1500) vs. nobody rated blitz 5 0: Game 7\r\n"}) {
        for (std::size_t place = 1; place < lines.size(); ++place) {
            std::vector<std::string> crossed = lines;
            crossed.insert(crossed.begin() + static_cast<long>(place), strange);
            const auto other = std::make_unique<GameRecord>();
            EXPECT_EQ(readMoveList(crossed, *other), GetParam().ends);
            EXPECT_EQ(movesOf(*other), movesOf(record));
            EXPECT_EQ(other->Date + other->Event, record.Date + record.Event);
            EXPECT_EQ(other->LastMove, record.LastMove);
            if (contains(strange, ") vs. ")) continue; // taken for a header
            EXPECT_EQ(other->White, record.White);
        }
    }
}

TEST_P(RecordedList, IsTheSameWithEachLineDoubled) {
    readMoveList(lines, record);
    for (std::size_t place = 0; place < lines.size(); ++place) {
        std::vector<std::string> doubled = lines;
        doubled.insert(doubled.begin() + static_cast<long>(place), lines[place]);
        const auto other = std::make_unique<GameRecord>();
        EXPECT_EQ(readMoveList(doubled, *other), GetParam().ends);
        EXPECT_EQ(movesOf(*other), movesOf(record));
        EXPECT_EQ(other->Header + other->MatchLine + other->ResultLine,
                  record.Header + record.MatchLine + record.ResultLine);
        EXPECT_EQ(other->LastMove, record.LastMove);
    }
}

TEST_P(RecordedList, CutBehindAnyLineIsNotDoneAndHoldsWhatCame) {
    for (std::size_t count = 0; count + 1 < lines.size(); ++count) {
        *owned = {};
        EXPECT_FALSE(readMoveList({lines.begin(), lines.begin() + static_cast<long>(count)}, record));
        EXPECT_TRUE(GetParam().moves.starts_with(movesOf(record))) << movesOf(record);
        EXPECT_EQ(record.White, count > 0 ? GetParam().white : "");
        EXPECT_EQ(record.Event, count > 1 ? GetParam().event : "");
        EXPECT_EQ(record.ResultLine, "");
    }
}

INSTANTIATE_TEST_SUITE_P(OfTheServers, RecordedList, testing::ValuesIn(recordedMoveLists), nameOf);

// The order of the tests

TEST_F(MoveListCapture, AnEmptyLineIsTakenAndOneUnderTwentyCharactersIsNot) {
    EXPECT_TRUE(takes("\r\n"));
    EXPECT_FALSE(takes("Move  a    b     \r\n")) << "19 characters";
    EXPECT_TRUE(takes("Move  a    b      \r\n"));
    EXPECT_FALSE(takes("      {x} 1-0    \r\n"));
}

TEST_F(MoveListCapture, TheLinesRoundTheMovesAreTakenButTheMovelistsOwnIsNot) {
    EXPECT_TRUE(takes("Move  Anders             Berta\r\n"));
    EXPECT_TRUE(takes("----  ----------------   ----------------\r\n"));
    EXPECT_FALSE(takes("Movelist for game 12 of Anders:\r\n"));
    EXPECT_FALSE(takes(" Move Anders             Berta\r\n"));
}

TEST_F(MoveListCapture, ALineThatOnlyResemblesOneOfTheListIsLeftAlone) {
    EXPECT_FALSE(takes("\n"));
    EXPECT_FALSE(takes(""));
    EXPECT_FALSE(takes("  1. e4       (0:00)     e5      (0:07)\r\n"));
    EXPECT_FALSE(takes("Anders (1500) vs.Berta (1600) --- x\r\n"));
    EXPECT_FALSE(takes("Rated blitz match; initial time: 5 minutes.\r\n"));
    EXPECT_FALSE(takes("Move by move, that is how it goes\r\n"));
    EXPECT_FALSE(takes("---- ----------------   ----------------\r\n"));
}

TEST_F(MoveListCapture, AMoveLineIsTakenForOneEvenWithTwoPlayersInIt) {
    EXPECT_TRUE(takes("  1.  e4 (0:00) vs. Berta (1500) --- Mon Oct 14, 20:36\r\n"));
    EXPECT_EQ(record.Header, "");
    EXPECT_EQ(record.WhiteMoves[1], "e4 (0:") << "six columns";
}

TEST_F(MoveListCapture, AHeaderIsTakenForOneEvenWithAMatchInIt) {
    EXPECT_TRUE(takes("A (1) vs. B (2) --- match, initial time: 5\r\n"));
    EXPECT_EQ(record.MatchLine, "");
    EXPECT_EQ(record.White, "A");
}

TEST_F(MoveListCapture, TheResultNeedsSixBlanksAndABraceWithABlankBehindIt) {
    EXPECT_FALSE(takes("     {White resigns} 1-0\r\n"));
    EXPECT_FALSE(takes("      {White resigns}1-0\r\n"));
    const MovesLine last = read("      {White resigns} 1-0\r\n");
    EXPECT_TRUE(last.taken);
    EXPECT_TRUE(last.done);
    EXPECT_EQ(record.ResultLine, "      {White resigns} 1-0\r\n");
}

TEST_F(MoveListCapture, AGameInProgressEndsTheListLikeAnyResult) {
    EXPECT_TRUE(read("      {Game in progress} *\r\n").done);
}

// Moves

TEST_F(MoveListCapture, BothHalvesOfAMoveAndTheirTimesStandInTheirColumns) {
    EXPECT_TRUE(takes("  2.  Nbxd7+  (1:02)     exd8=Q+ (11:47)\r\n"));
    EXPECT_EQ(record.WhiteMoves[2], "Nbxd7+");
    EXPECT_EQ(record.WhiteTimes[2], "(1:02)");
    EXPECT_EQ(record.BlackMoves[2], "exd8=Q") << "a seventh character is left off";
    EXPECT_EQ(record.BlackTimes[2], "(11:47)");
    EXPECT_EQ(record.LastMove, 2);
}

TEST_F(MoveListCapture, ATimeBeginsAtTheFirstBracketOfItsLine) {
    takes("( 3.  e4      (0:00)     e5      (0:07)\r\n");
    EXPECT_EQ(record.WhiteTimes[0], "( 3.  e4      (0:00)") << "a bracket is no number";
    EXPECT_EQ(record.BlackTimes[0], "(0:07)");
}

TEST_F(MoveListCapture, AWhiteMoveAloneIsHalfAMoveAndPassesTheMinimum) {
    takes(BothHalves);
    takes("  1.  e4      (0:00)\r\n");
    EXPECT_EQ(record.LastMove, 0.5);
    EXPECT_EQ(record.BlackMoves[1] + record.BlackTimes[1], "");
    EXPECT_EQ(record.WhiteTimes[1], "(0:00)");
}

TEST_F(MoveListCapture, ALaterLineLowersTheLastMoveAgain) {
    takes("  5.  e4      (0:00)     e5      (0:00)\r\n");
    takes("  3.  d4      (0:00)\r\n");
    EXPECT_EQ(record.LastMove, 2.5);
}

TEST_F(MoveListCapture, FromThirtyNineCharactersOnThereIsABlackMove) {
    takes("  1.  e4      (0:00)     e5 (0:07)  \r\n");
    EXPECT_EQ(record.LastMove, 0.5) << "38 characters";
    takes("  1.  e4      (0:00)     e5 (0:07)   \r\n");
    EXPECT_EQ(record.LastMove, 1);
    EXPECT_EQ(record.BlackMoves[1], "e5 (0:") << "six columns";
}

TEST_F(MoveListCapture, WithoutItsBracketsAWhiteMoveStandsAloneAndTheRestStays) {
    record.WhiteTimes[1] = "(9:99)";
    record.LastMove = 7;
    takes("  1.  e4      0:00      e5      0:07\r\n");
    EXPECT_EQ(record.WhiteMoves[1], "e4");
    EXPECT_EQ(record.WhiteTimes[1], "(9:99)");
    EXPECT_EQ(record.BlackMoves[1], "");
    takes("  1.  e4      (0:00                     \r\n");
    EXPECT_EQ(record.LastMove, 7);
}

TEST_F(MoveListCapture, WithoutItsBracketsABlackMoveIsReadAndTheLastMoveStays) {
    record.LastMove = 7;
    takes("  1.  e4      (0:00)     e5      0:07)  \r\n");
    EXPECT_EQ(record.BlackMoves[1], "e5");
    EXPECT_EQ(record.BlackTimes[1], "");
    takes("  1.  e4      (0:00)     e5      (0:07  \r\n");
    EXPECT_EQ(record.LastMove, 7);
}

TEST_F(MoveListCapture, BlacksTimeIsTheNextBracketWhereverItStands) {
    takes("  1.  e4      (0:00) (0:07)             \r\n");
    EXPECT_EQ(record.BlackTimes[1], "(0:07)");
    EXPECT_EQ(record.LastMove, 1);
}

TEST_F(MoveListCapture, ANumberThatIsNoneIsMoveZero) {
    takes("abc.  e4      (0:00)     e5      (0:07)\r\n");
    EXPECT_EQ(record.WhiteMoves[0], "e4");
    EXPECT_EQ(record.LastMove, 0);
}

TEST_F(MoveListCapture, ANumberBeyondTheArraysFaults) {
    EXPECT_NO_THROW(read("200.  e4      (0:00)     e5      (0:07)\r\n"));
    EXPECT_EQ(record.BlackMoves[200], "e5");
    EXPECT_THROW(read("201.  e4      (0:00)     e5      (0:07)\r\n"), Fault);
    EXPECT_THROW(read(" -1.  e4      (0:00)     e5      (0:07)\r\n"), Fault);
    EXPECT_THROW(read("9e9.  e4      (0:00)     e5      (0:07)\r\n"), Fault);
}

// The header

TEST_F(MoveListCapture, TheHeaderGivesPlayersRatingsDateAndTime) {
    takes(Header);
    EXPECT_EQ(record.Header, Header);
    EXPECT_EQ(record.White, "Ajido");
    EXPECT_EQ(record.WhiteElo, 2281);
    EXPECT_EQ(record.Black, "IMgooeyjim");
    EXPECT_EQ(record.BlackElo, 2068);
    EXPECT_EQ(record.DateText, "Thu Oct 14 2010");
    EXPECT_EQ(record.Date, "2010.10.14");
    EXPECT_EQ(record.Time, "20:36");
}

TEST_F(MoveListCapture, TheSiteIsTheSameForEveryServer) {
    takes("A () vs. B () anywhere\r\n");
    EXPECT_EQ(record.Site, "FICS, Fremont, California USA");
}

TEST_F(MoveListCapture, AHeaderWithoutANameIsKeptWithItsSite) {
    takes("() vs. nobody at all\r\n");
    EXPECT_EQ(record.Header, "() vs. nobody at all\r\n");
    EXPECT_EQ(record.Site, "FICS, Fremont, California USA");
    record.White = "before";
    takes("(x) vs. Anders (1500) vs. Berta (1600)\r\n");
    EXPECT_EQ(record.White, "before") << "whatever bracket follows";
}

TEST_F(MoveListCapture, BlackAndTheDateAreLookedForBehindTheRatingInFrontOfThem) {
    takes("vs. --- Anders (1500) vs. Berta (1600) Thu Oct 14, 20:36 PDT 2010\r\n");
    EXPECT_EQ(record.White, "vs. --- Anders");
    EXPECT_EQ(record.Black, "Berta");
    EXPECT_EQ(record.BlackElo, 1600);
    EXPECT_EQ(record.DateText, "");
}

TEST_F(MoveListCapture, ARatingThatIsNoNumberIsZeroAndOneBeyondItsFieldFaults) {
    takes("Anders (++++) vs. Berta (----) --- x\r\n");
    EXPECT_EQ(record.WhiteElo, 0);
    takes("Anders (12ab) vs. Berta ( 7) --- x\r\n");
    EXPECT_EQ(record.WhiteElo, 12);
    EXPECT_EQ(record.BlackElo, 7);
    EXPECT_THROW(read("Anders (40000) vs. Berta (1) --- x\r\n"), Fault);
    EXPECT_THROW(read("Anders (1) vs. Berta (40000) --- x\r\n"), Fault);
}

TEST_F(MoveListCapture, WhatStandsBehindAMissingPieceOfTheHeaderStays) {
    record.White = "White before";
    record.Black = "Black before";
    record.WhiteElo = 2;
    record.BlackElo = 3;
    takes("Anders) vs. Berta (1600\r\n");
    EXPECT_EQ(record.WhiteElo, 2);
    record.White = "White before";
    takes(" (1) vs. B (2) --- x ...\r\n");
    EXPECT_EQ(record.White, "White before") << "a bracket in column 2 has no name in front of it";
    takes("Anders) vs. nobody at all\r\n");
    EXPECT_EQ(record.White, "White before");
    takes("Anders ) vs. Berta (1600 ...\r\n");
    EXPECT_EQ(record.White, "Anders ) vs. Berta");
    EXPECT_EQ(record.Black, "Black before") << "the first bracket is never closed";
    takes("Anders (1) vs. Berta ...\r\n");
    EXPECT_EQ(record.Black, "Black before");
    takes("Anders (1) vs. Berta (1600 ...\r\n");
    EXPECT_EQ(record.Black, "Berta");
    EXPECT_EQ(record.BlackElo, 3);
    takes("Anders (1) vs. (1600) ...\r\n");
    EXPECT_EQ(record.Black, "");
    EXPECT_EQ(record.BlackElo, 1600);
}

TEST_F(MoveListCapture, WithoutDashesThereIsNoNewDate) {
    record.Date = "1999.01.01";
    record.DateText = "Thu Oct 14 2010";
    takes("Anders (1500) vs. Berta (1600)  Thu Oct 14, 20:36 PDT 2010\r\n");
    EXPECT_EQ(record.Date, "1999.01.01");
}

TEST_F(MoveListCapture, WithoutACommaTheDateIsThatOfTheGameBefore) {
    header("2026-11-21 02:42 UTC\r\n");
    EXPECT_EQ(record.Date, "");
    EXPECT_EQ(record.Time, "");
    record.DateText = "Thu Oct 14 2010";
    header("2026-11-21 02:42 UTC\r\n");
    EXPECT_EQ(record.Date, "2010.10.14");
}

TEST_F(MoveListCapture, MinutesOfTwentyAreNotTakenForTheYear) {
    header("Mon Nov  4, 08:20 CET 2002\r\n");
    EXPECT_EQ(record.Date, "2002.11.04");
    EXPECT_EQ(record.Time, "08:20");
}

TEST_F(MoveListCapture, AYearThatDoesNotBeginWithTwentyIsNotFound) {
    header("Wed Feb 11, 08:38 CET 1998\r\n");
    EXPECT_EQ(record.DateText, "Wed Feb 11");
    EXPECT_EQ(record.Date, "b 11.02.11");
    EXPECT_EQ(record.Time, "08:38");
}

TEST_F(MoveListCapture, ADateOfNineCharactersOrLessIsLeftOut) {
    record.Date = "1999.01.01";
    header("Wed Feb 1, 08:38 CET 1998\r\n");
    EXPECT_EQ(record.Date, "1999.01.01");
    EXPECT_EQ(record.DateText, "Wed Feb 1");
}

TEST_F(MoveListCapture, WithoutAColonThereIsNeitherYearNorTime) {
    header("Wed Feb 11, noon CET 2002\r\n");
    EXPECT_EQ(record.DateText, "Wed Feb 11");
    EXPECT_EQ(record.Time, "");
}

TEST_F(MoveListCapture, TheTimeIsFiveCharactersTrimmed) {
    header("Wed Feb 11,  8:38 CET 2002\r\n");
    EXPECT_EQ(record.Time, "8:38");
}

TEST_F(MoveListCapture, TheColonIsLookedForTwoBehindTheCommaAndTheYearTwoBehindTheColon) {
    takes("A (1) vs. B (2) --- Thu Oct 14,:20 PDT 2010\r\n");
    EXPECT_EQ(record.DateText, "Thu Oct 14");
    EXPECT_EQ(record.Time, "");
    takes("A (1) vs. B (2) --- Thu Oct 14, :20 PDT 2010\r\n");
    EXPECT_EQ(record.DateText, "Thu Oct 14 2010");
    EXPECT_EQ(record.Time, ", :20");
    takes("A (1) vs. B (2) --- Thu Oct 14, 20:320119\r\n");
    EXPECT_EQ(record.DateText, "Thu Oct 14 2011");
    EXPECT_EQ(record.Time, "20:32") << "five columns";
}

TEST_F(MoveListCapture, ADayHasTwoDigits) {
    header("Thu Oct 145, 20:36 PDT 2010\r\n");
    EXPECT_TRUE(record.Date.ends_with(".10.14")) << record.Date;
}

TEST_F(MoveListCapture, MonthsHaveTheirNumbersAndAnUnknownOneIsZero) {
    const std::vector<std::string> months{"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul",
                                          "Aug", "Sep", "Oct", "Nov", "Dec", "Mai"};
    std::string numbers;
    for (const std::string& month : months) {
        header("Wed " + month + " 11, 08:38 CET 2002\r\n");
        numbers += record.Date.substr(5, 2);
    }
    EXPECT_EQ(numbers, "01020304050607080910111200");
}

// The match line

TEST_F(MoveListCapture, TheMatchLineGivesEventAndTimeControl) {
    EXPECT_TRUE(takes(MatchLine));
    EXPECT_EQ(record.MatchLine, MatchLine);
    EXPECT_EQ(record.Event, "Rated blitz match");
    EXPECT_EQ(record.TimeControl, "5+12");
}

TEST_F(MoveListCapture, TheFirstWordsOfTheMatchLineCount) {
    takes("initial time: 5 minutes, match, initial time: 7 minutes, increment: 1 seconds\r\n");
    EXPECT_EQ(record.TimeControl, "5+1");
    takes("increment: 3 seconds match, initial time: 5 minutes, increment: 4 seconds\r\n");
    EXPECT_EQ(record.TimeControl, "5+3");
}

TEST_F(MoveListCapture, MinutesAreNumbersWithAFractionOnlyWhereThereIsOne) {
    match(" time: 0.5 minutes, increment: 007 seconds");
    EXPECT_EQ(record.TimeControl, "0.5+7");
    match(" time: 15, increment: 7 seconds");
    EXPECT_EQ(record.TimeControl, "15+7") << "the number may stand alone";
    match(" time: none, increment: -0 seconds");
    EXPECT_EQ(record.TimeControl, "0+0");
}

TEST_F(MoveListCapture, ManyMinutesAreWrittenWithAllTheirDigits) {
    match(" time: 100000 minutes, increment: 2000000 seconds");
    EXPECT_EQ(record.TimeControl, "100000+2000000");
    match(" time: 1e40 minutes, increment: 1e-40 seconds");
    EXPECT_EQ(record.TimeControl, "1e+40+1e-40");
}

TEST_F(MoveListCapture, WithoutSecondsTheIncrementIsLeftOff) {
    match(" time: 5 minutes, increment: 12 of them");
    EXPECT_EQ(record.TimeControl, "5");
    match(" time: 7 minutes, no increment of seconds");
    EXPECT_EQ(record.TimeControl, "7");
}

TEST_F(MoveListCapture, WithoutMinutesTheTimeControlIsThatOfTheGameBefore) {
    record.TimeControl = "3+0";
    match(" minutes: 5, increment: 12 seconds");
    EXPECT_EQ(record.TimeControl, "3+0");
    match(" time: 5 minutes");
    EXPECT_EQ(record.TimeControl, "3+0") << "no comma behind it";
    EXPECT_EQ(record.Event, "Rated blitz match");
}

TEST_F(MoveListCapture, AnEmptyListKeepsTheFieldsOfTheGameBefore) {
    takes(Header);
    takes(MatchLine);
    takes(BothHalves);
    takes("Carl (1) vs. Dora (2) and nothing else\r\n");
    EXPECT_TRUE(read("      {Still in progress} *\r\n").done);
    EXPECT_EQ(record.White + " " + record.Date + " " + record.TimeControl, "Carl 2010.10.14 5+12");
    EXPECT_EQ(record.LastMove, 1);
}
