// Tests of the board line.
#include "practice/chess/Style12.h"
#include "practice/text/Text.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

BoardLine startLine() {
    BoardLine line;
    line.position = readFen(startFen).value();
    line.gameNumber = 1;
    line.white = "Ada";
    line.black = "Bert";
    line.relation = 1;
    line.minutes = 10;
    line.increment = 5;
    line.whiteClock = line.blackClock = 600;
    return line;
}

TEST(Style12, StartOfAGameIsOneLineOf33Tokens) {
    EXPECT_EQ(
        composeStyle12(startLine()),
        "<12> rnbqkbnr pppppppp -------- -------- -------- -------- PPPPPPPP RNBQKBNR W -1 1 1 1 1 0 1 Ada Bert 1 10 "
        "5 39 39 600 600 1 none (0:00) none 0 0 0");
    EXPECT_EQ(words(composeStyle12(startLine())).size(), 33U);
}

TEST(Style12, BlackPlayerSeesTheBoardFlippedAndTheClocksTick) {
    BoardLine line = startLine();
    line.position = readFen("rnbqkbnr/pppp1ppp/8/4p3/4P3/8/PPPP1PPP/RNBQKBNR w KQkq - 0 2").value();
    line.relation = -1;
    line.doublePushFile = 4;
    line.verboseMove = "P/e7-e5";
    line.moveTime = "(0:07)";
    line.prettyMove = "e5";
    line.flip = true;
    line.ticking = true;
    EXPECT_EQ(
        composeStyle12(line),
        "<12> rnbqkbnr pppp-ppp -------- ----p--- ----P--- -------- PPPP-PPP RNBQKBNR W 4 1 1 1 1 0 1 Ada Bert -1 10 "
        "5 39 39 600 600 2 P/e7-e5 (0:07) e5 1 1 0");
}

TEST(Style12, CastlingRightsCountersAndStrengthsComeFromThePosition) {
    BoardLine line = startLine();
    line.position = readFen("r3k3/8/8/8/8/8/8/4K2R b Kq - 9 31").value();
    const auto tokens = words(composeStyle12(line));
    EXPECT_EQ(tokens[9], "B");
    EXPECT_EQ(tokens[11] + tokens[12] + tokens[13] + tokens[14], "1001");
    EXPECT_EQ(tokens[15], "9");
    EXPECT_EQ(tokens[22], "5");
    EXPECT_EQ(tokens[23], "5");
    EXPECT_EQ(tokens[26], "31");
}

TEST(Style12, AClockMayBeBelowZero) {
    BoardLine line = startLine();
    line.blackClock = -3;
    EXPECT_EQ(words(composeStyle12(line))[25], "-3");
}

} // namespace
} // namespace practice
