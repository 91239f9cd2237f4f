// Cutting the moves out of a game's text.
#include "records/PgnMoves.h"

#include "common/Fault.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

// What is stored, as "1w e4, 1b -, 1b e5", and behind "/" number and state at the end.
std::string cut(const std::string& text) {
    std::ostringstream told;
    const PgnEnd end = cutPgnMoves(text, [&told](std::int16_t number, int side, std::string_view move) {
        told << number << (side == 0 ? "w " : "b ") << (move.empty() ? "-" : move) << ", ";
    });
    told << "/ " << end.number << " " << end.state;
    return told.str();
}

// Whether a text is taken as a move of black.
bool takenForBlack(const std::string& move) {
    return cut("1. e4 " + move + " 1-0 ") == "1w e4, 1b -, 1b " + move + ", / 1 2";
}

FaultKind faultIn(const std::string& text) {
    try {
        cut(text);
    } catch (const Fault& fault) {
        return fault.kind();
    }
    return FaultKind::File;
}

} // namespace

TEST(PgnMoves, NumbersMovesAndTheResultAreCutAtBlanks) {
    EXPECT_EQ(cut("1. e4 e5 2. Nf3 Nc6 1-0 "), "1w e4, 1b -, 1b e5, 2w Nf3, 2b -, 2b Nc6, / 2 2");
    EXPECT_EQ(cut("  1.   e4  e5   2.  Nf3 1-0   "), "1w e4, 1b -, 1b e5, 2w Nf3, 2b -, / 2 1");
}

TEST(PgnMoves, AnEmptyTextHasNone) {
    EXPECT_EQ(cut(""), "/ 0 2");
    EXPECT_EQ(cut(" "), "/ 0 2");
    EXPECT_EQ(cut("1. e4 e5"), "1w e4, 1b -, / 1 1") << "what no blank stands behind";
}

TEST(PgnMoves, TheLastWordIsNotLookedAt) {
    EXPECT_EQ(cut("1. e4 e5 "), "1w e4, 1b -, / 1 1");
    EXPECT_EQ(cut("1. e4 e5    "), "1w e4, 1b -, / 1 1") << "whatever blanks stand behind it";
    EXPECT_EQ(cut("1. e4 e5 2. "), "1w e4, 1b -, 1b e5, / 1 2");
    EXPECT_EQ(cut("1-0 "), "/ 0 2");
}

TEST(PgnMoves, AGameOfOneMoveOfWhite) { EXPECT_EQ(cut("1. e4 * "), "1w e4, 1b -, / 1 1"); }

TEST(PgnMoves, ANumberWithoutAMoveEndsWithWhiteAwaited) {
    EXPECT_EQ(cut("1. e4 e5 2. 1-0 "), "1w e4, 1b -, 1b e5, / 2 0");
}

TEST(PgnMoves, ANumberIsAWordThatEndsInAPoint) {
    EXPECT_EQ(cut("12... e5 d4 * "), "12w e5, 12b -, 12b d4, / 12 2") << "white's, however many points";
    EXPECT_EQ(cut("x. e4 * "), "0w e4, 0b -, / 0 1");
    EXPECT_EQ(cut(". e4 * "), "0w e4, 0b -, / 0 1");
    EXPECT_EQ(cut("-3. e4 * "), "-3w e4, -3b -, / -3 1");
    EXPECT_EQ(cut("2.5. e4 * "), "2w e4, 2b -, / 2 1") << "a half goes to the even number";
    EXPECT_EQ(cut("1. 2. 3. e4 * "), "3w e4, 3b -, / 3 1");
}

TEST(PgnMoves, ANumberThatItsMoveFollowsAtOnceIsPassedOver) {
    EXPECT_EQ(cut("1.e4 e5 2.Nf3 Nc6 1-0 "), "/ 0 2");
    EXPECT_EQ(cut("1. e4 e5 2.Nf3 Nc6 3. d4 * "), "1w e4, 1b -, 1b e5, 3w d4, 3b -, / 3 1");
}

TEST(PgnMoves, WhitesIsTakenAsItStands) {
    EXPECT_EQ(cut("1. {Good e5 * "), "1w {Good, 1b -, 1b e5, / 1 2");
    EXPECT_EQ(cut("1. 1-0 e5 * "), "1w 1-0, 1b -, 1b e5, / 1 2");
}

TEST(PgnMoves, BlacksPieceMovesGoOnWithARankAFileOrACapture) {
    for (const char piece : {'K', 'Q', 'R', 'B', 'N'}) {
        for (const char* rest : {"1", "8", "a", "h", "xd7", "Xd7", "bd7", "1d2"}) {
            EXPECT_TRUE(takenForBlack(piece + std::string(rest))) << piece << rest;
        }
        for (const char* rest : {"", "0", "9", "i", "@e4", "D7"}) {
            EXPECT_FALSE(takenForBlack(piece + std::string(rest))) << piece << rest;
        }
    }
}

TEST(PgnMoves, BlacksPawnMovesGoOnWithARankOrACapture) {
    for (const char* move : {"a1", "h8", "exd4", "eXd4", "e8=Q"}) EXPECT_TRUE(takenForBlack(move)) << move;
    for (const char* move : {"e", "e9", "e0", "ed4", "i4", "`4", "E4", "P@e4", "e@"}) {
        EXPECT_FALSE(takenForBlack(move)) << move;
    }
}

TEST(PgnMoves, BlacksCastlingGoesOnWithAHyphen) {
    for (const char* move : {"O-O", "o-o-o", "O-x"}) EXPECT_TRUE(takenForBlack(move)) << move;
    for (const char* move : {"O", "OO", "0-0"}) EXPECT_FALSE(takenForBlack(move)) << move;
}

TEST(PgnMoves, AWordThatIsNoMoveOfBlackEndsTheGame) {
    EXPECT_EQ(cut("1. e4 1-0 2. d4 d5 * "), "1w e4, 1b -, / 1 1");
    EXPECT_EQ(cut("1. e4 {Good move} e5 2. d4 * "), "1w e4, 1b -, / 1 1");
    EXPECT_EQ(cut("1. e4 $1 e5 2. d4 * "), "1w e4, 1b -, / 1 1");
    EXPECT_EQ(cut("1. e4 N@f3 2. d4 * "), "1w e4, 1b -, / 1 1") << "a drop too";
    EXPECT_EQ(cut("1. e4 ~a3 2. d4 * "), "1w e4, 1b -, / 1 1");
}

TEST(PgnMoves, BetweenWholeMovesEveryWordIsPassedOver) {
    EXPECT_EQ(cut("1. e4 e5 {a remark} $3 (x) 2. d4 * "), "1w e4, 1b -, 1b e5, 2w d4, 2b -, / 2 1");
}

TEST(PgnMoves, ARemarkThatEndsInAPointPutsTheNextWordInRow0) {
    EXPECT_EQ(cut("1. e4 e5 {A fine move. White waits} 2. d4 * "), "1w e4, 1b -, 1b e5, 0w White, 0b -, / 0 1");
}

TEST(PgnMoves, AVariationIsReadAsTheGame) {
    EXPECT_EQ(cut("1. e4 e5 ( 1. d4 d5 ) 2. Nf3 * "), "1w e4, 1b -, 1b e5, 1w d4, 1b -, 1b d5, 2w Nf3, 2b -, / 2 1");
}

TEST(PgnMoves, ANumberPast16BitsIsAFault) {
    EXPECT_EQ(cut("32767. e4 * "), "32767w e4, 32767b -, / 32767 1");
    EXPECT_EQ(faultIn("32768. e4 * "), FaultKind::Overflow);
    EXPECT_EQ(faultIn("1e9. e4 * "), FaultKind::Overflow);
}
