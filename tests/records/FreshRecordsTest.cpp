// What readings and lists of games hold before anything was read.
#include "common/modChess.h"
#include "records/HistoryLists.h"
#include "records/MoveDecoder.h"
#include "records/MoveListCapture.h"
#include "records/PgnGames.h"
#include "records/PgnMoves.h"

#include <gtest/gtest.h>

TEST(FreshRecords, TheKindsOfListsHaveTheNumbersOfTheVariable) {
    EXPECT_EQ(HistoryKindGames, 0);
    EXPECT_EQ(HistoryKindJournal, 1);
    EXPECT_EQ(HistoryKindStored, 2);
    EXPECT_EQ(HistoryLists{}.HistCount, 0);
}

TEST(FreshRecords, AReadingOfNoTextNamesNoPieceAndNoSquare) {
    const MoveReading reading;
    EXPECT_EQ(reading.castling, MoveReading::Castling::None);
    EXPECT_EQ(reading.piece, 0);
    EXPECT_EQ(reading.file, -1);
    EXPECT_EQ(reading.rank, -1);
    EXPECT_FALSE(reading.drop);
}

TEST(FreshRecords, AMoveThatWasNotFoundIsNotGood) {
    const MoveSquares squares;
    EXPECT_FALSE(squares.ok);
    EXPECT_EQ(squares.from, 0);
    EXPECT_EQ(squares.to, 0);
}

TEST(FreshRecords, ALineIsNeitherTakenNorTheLast) {
    EXPECT_FALSE(MovesLine{}.taken);
    EXPECT_FALSE(MovesLine{}.done);
}

TEST(FreshRecords, AGameOfAFileBeginsNowhereAndCuttingAwaitsANumber) {
    EXPECT_EQ(PgnGame{}.Line, 0);
    EXPECT_EQ(PgnEnd{}.number, 0);
    EXPECT_EQ(PgnEnd{}.state, 2);
}
