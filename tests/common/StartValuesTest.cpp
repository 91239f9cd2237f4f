// What the shared records and the program-wide variables hold before anything has come.
#include "common/CommandHistory.h"
#include "common/modChess.h"

#include <gtest/gtest.h>

TEST(StartValues, NoAnswerOfTheServerIsBeingCaptured) {
    const ModChess fresh;
    for (const bool capture : {fresh.gVarsCapture, fresh.MovesCapture, fresh.gSoughtCapture, fresh.gNotesCapture,
                               fresh.gHelpCapture, fresh.HistoryCapture, fresh.ExamineNoMoves})
        EXPECT_FALSE(capture);
    EXPECT_EQ(fresh.HistoryKind, 0);
    EXPECT_EQ(fresh.MovesTarget, 0);
    EXPECT_EQ(fresh.HelpCount, 0);
    EXPECT_EQ(fresh.HelpBlock, 0);
    EXPECT_EQ(fresh.PgnChoice, 0);
    EXPECT_EQ(fresh.FileOneHolder, nullptr);
}

TEST(StartValues, NothingHasBeenToldOrSentAndNothingRuns) {
    const ModChess fresh;
    EXPECT_EQ(fresh.TellType, 0);
    EXPECT_EQ(fresh.LinesSent, 0);
    for (const bool flag : {fresh.NewGameFlag, fresh.AppClosing, fresh.gTestOpen, fresh.MatchMode, fresh.gConsoleQuiet,
                            fresh.gSeekOn, fresh.GameRunning, fresh.SelfCheckOpen})
        EXPECT_FALSE(flag);
    EXPECT_TRUE(fresh.SelfCheckOK) << "a board may take a move";
}

TEST(StartValues, NothingHasBeenReadFromTheSettings) {
    const ModChess fresh;
    EXPECT_EQ(fresh.RegistryState, "No");
    EXPECT_EQ(fresh.ChessSet, 0);
    EXPECT_EQ(fresh.WarnTime, 10);
}

TEST(StartValues, ARecordOfNoLineHoldsNothing) {
    const Style12Record fresh;
    for (const bool flag : {fresh.WhiteShort, fresh.WhiteLong, fresh.BlackShort, fresh.BlackLong, fresh.Flip})
        EXPECT_FALSE(flag);
    for (const int number : {fresh.SideToMove, fresh.DoublePushFile, fresh.Irreversible, fresh.GameNumber,
                             fresh.Relation, fresh.InitialTime, fresh.Increment, fresh.WhiteStrength,
                             fresh.BlackStrength, fresh.WhiteClock, fresh.BlackClock, fresh.MoveNumber})
        EXPECT_EQ(number, 0);
}

TEST(StartValues, ARecordOfNoGameHasNoMovesAndNoRatings) {
    const GameRecord fresh;
    EXPECT_EQ(fresh.WhiteElo, 0);
    EXPECT_EQ(fresh.BlackElo, 0);
    EXPECT_EQ(fresh.LastMove, 0);
}

TEST(StartValues, AHistoryStandsAtTheEditedText) { EXPECT_EQ(CommandHistory{}.CommandCursor, 0); }
