// Style 12 lines: cutting into tokens, the two ends of a line, and the conversions.
#include "board/BoardRig.h"

#include "common/Fault.h"

#include <gtest/gtest.h>

namespace {

std::optional<Style12Tokens> cutServer(std::string_view line) { return cutStyle12(line, LineEnd::RestIsToken); }
std::optional<Style12Tokens> cutOwn(std::string_view line) { return cutStyle12(line, LineEnd::BlankNeeded); }

// A line whose token `n` is replaced.
std::string lineWith(long n, const std::string& token) {
    const std::string text = LineOf{}.text(" 1 0 0");
    const auto tokens = cutServer(text).value();
    std::string line;
    for (long i = 0; i <= Style12Tokens::last; ++i) line += (i == n ? token : std::string(tokens[i])) + " ";
    return line;
}

// What passing over leaves of `old` after a line whose token `n` is `token`.
Style12Record readOver(Style12Record old, long n, const std::string& token) {
    const std::string line = lineWith(n, token);
    readStyle12PassingOver(cutServer(line).value(), Style12Fields::All, old);
    return old;
}

Style12Record readStrictly(long n, const std::string& token) {
    const std::string line = lineWith(n, token);
    Style12Record record;
    readStyle12(cutServer(line).value(), Style12Fields::All, record);
    return record;
}

// Which of the tokens 10 to 29 a record has taken from a line in which each is its own number, or true, or "t" and its
// number.
std::vector<bool> takenBy(const Style12Record& r) {
    return {r.DoublePushFile == 10, r.WhiteShort,          r.WhiteLong,
            r.BlackShort,           r.BlackLong,           r.Irreversible == 15,
            r.GameNumber == 16,     r.WhiteName == "t17",  r.BlackName == "t18",
            r.Relation == 19,       r.InitialTime == 20,   r.Increment == 21,
            r.WhiteStrength == 22,  r.BlackStrength == 23, r.WhiteClock == 24,
            r.BlackClock == 25,     r.MoveNumber == 26,    r.VerboseMove == "t27",
            r.MoveTime == "t28",    r.PrettyMove == "t29"};
}

std::string lineOfNumbers(long bad, const std::string& token) {
    std::string line = "<12> 8 7 6 5 4 3 2 1 W ";
    for (long n = 10; n <= 29; ++n) {
        const bool text = n == 17 || n == 18 || n >= 27;
        const bool truth = n >= 11 && n <= 14;
        line += (n == bad ? token : truth ? "1" : (text ? "t" : "") + std::to_string(n)) + " ";
    }
    return line + "0";
}

} // namespace

TEST(Style12Line, EveryFieldComesFromItsToken) {
    const std::string line =
        "<12> 8aaaaaaa 7aaaaaaa 6aaaaaaa 5aaaaaaa 4aaaaaaa 3aaaaaaa 2aaaaaaa 1aaaaaaa B 4 1 0 0 1 7 "
        "85 Anders Berta -2 15 12 38 37 99 -6 23 P/e2-e4 (0:12) e4 1 1 0\r\n";
    Style12Record r;
    readStyle12(cutServer(line).value(), Style12Fields::All, r);
    EXPECT_EQ(r.Position, "1aaaaaaa2aaaaaaa3aaaaaaa4aaaaaaa5aaaaaaa6aaaaaaa7aaaaaaa8aaaaaaa");
    EXPECT_EQ(r.SideToMove, 1);
    EXPECT_EQ(r.DoublePushFile, 4);
    EXPECT_TRUE(r.WhiteShort);
    EXPECT_FALSE(r.WhiteLong);
    EXPECT_FALSE(r.BlackShort);
    EXPECT_TRUE(r.BlackLong);
    EXPECT_EQ(r.Irreversible, 7);
    EXPECT_EQ(r.GameNumber, 85);
    EXPECT_EQ(r.WhiteName, "Anders");
    EXPECT_EQ(r.BlackName, "Berta");
    EXPECT_EQ(r.Relation, -2);
    EXPECT_EQ(r.InitialTime, 15);
    EXPECT_EQ(r.Increment, 12);
    EXPECT_EQ(r.WhiteStrength, 38);
    EXPECT_EQ(r.BlackStrength, 37);
    EXPECT_EQ(r.WhiteClock, 99);
    EXPECT_EQ(r.BlackClock, -6);
    EXPECT_EQ(r.MoveNumber, 23);
    EXPECT_EQ(r.VerboseMove, "P/e2-e4");
    EXPECT_EQ(r.MoveTime, "(0:12)");
    EXPECT_EQ(r.PrettyMove, "e4");
    EXPECT_TRUE(r.Flip);
}

TEST(Style12Line, ALineWithoutTheMarkerIsNone) {
    EXPECT_FALSE(cutServer(""));
    EXPECT_FALSE(cutServer("<12>"));
    EXPECT_FALSE(cutServer(LineOf{}.text().substr(1)));
}

TEST(Style12Line, TextBeforeTheMarkerIsIgnored) {
    const std::string line = "fics% 1 2 3 " + LineOf{}.text();
    const auto tokens = cutServer(line);
    ASSERT_TRUE(tokens);
    EXPECT_EQ((*tokens)[0], "<12>");
    EXPECT_EQ((*tokens)[16], "12");
}

TEST(Style12Line, TheFirstMarkerCounts) {
    const std::string line = LineOf{.game = 3}.text(" ") + LineOf{.game = 4}.text();
    EXPECT_EQ(cutServer(line).value()[16], "3");
}

TEST(Style12Line, ALineThatEndsAfterTheFlipIsTakenFromTheServerAndRefusedByABoard) {
    const std::string line = LineOf{}.text("");
    ASSERT_TRUE(cutServer(line));
    EXPECT_EQ((*cutServer(line))[30], "0");
    EXPECT_FALSE(cutOwn(line));
    EXPECT_TRUE(cutServer(line + " "));
    EXPECT_TRUE(cutOwn(line + " "));
}

TEST(Style12Line, ALineOneTokenShortIsRefusedByAll) {
    const std::string whole = LineOf{}.text("");
    const std::string line = whole.substr(0, whole.rfind(' '));
    EXPECT_FALSE(cutServer(line));
    EXPECT_FALSE(cutOwn(line));
    // The blank behind token 29 makes an empty token 30.
    EXPECT_TRUE(cutServer(line + " "));
    EXPECT_FALSE(cutOwn(line + " "));
}

TEST(Style12Line, TwoBlanksInARowGiveAnEmptyToken) {
    const std::string line = "<12>  a" + LineOf{}.text().substr(4);
    EXPECT_EQ(cutServer(line).value()[1], "");
    EXPECT_EQ(cutServer(line).value()[2], "a");
    const std::string end = LineOf{}.text("");
    EXPECT_TRUE(cutOwn(end.substr(0, end.rfind(' ') + 1) + " ")) << "an empty flip";
}

TEST(Style12Line, TokensBehindTheFlipAreIgnored) {
    const std::string line = LineOf{.flip = 1}.text(" these are ignored\r\n");
    EXPECT_EQ(cutServer(line).value()[30], "1");
}

TEST(Style12Line, AFlipBeforeTheLineEndIsRead) {
    for (const int flip : {0, 1}) {
        const std::string line = LineOf{.flip = flip}.text("\r\n");
        Style12Record record;
        record.Flip = flip == 0;
        readStyle12PassingOver(cutServer(line).value(), Style12Fields::All, record);
        EXPECT_EQ(record.Flip, flip == 1);
    }
}

TEST(Style12Line, AnyFlipThatIsNotZeroIsTrueAndTextIsZero) {
    EXPECT_TRUE(readStrictly(30, "-2").Flip);
    EXPECT_TRUE(readStrictly(30, "0.5").Flip);
    EXPECT_FALSE(readStrictly(30, "yes").Flip);
}

TEST(Style12Line, TheSideToMoveIsWhiteForAnExactCapitalWOnly) {
    EXPECT_EQ(readStrictly(9, "W").SideToMove, 0);
    EXPECT_EQ(readStrictly(9, "B").SideToMove, 1);
    EXPECT_EQ(readStrictly(9, "w").SideToMove, 1);
    EXPECT_EQ(readStrictly(9, "").SideToMove, 1);
}

TEST(Style12Line, ClocksAreLenientMayBeNegativeAndAreRounded) {
    EXPECT_EQ(readStrictly(24, "soon").WhiteClock, 0);
    EXPECT_EQ(readStrictly(24, "12abc").WhiteClock, 12);
    EXPECT_EQ(readStrictly(24, "-7").WhiteClock, -7);
    EXPECT_EQ(readStrictly(24, "-75").WhiteClock, -75);
    EXPECT_EQ(readStrictly(24, ".5").WhiteClock, 0);
    EXPECT_EQ(readStrictly(24, "1:23").WhiteClock, 1);
    EXPECT_EQ(readStrictly(25, "59.6").BlackClock, 60);
    EXPECT_EQ(readStrictly(25, "2.5").BlackClock, 2);
    EXPECT_EQ(readStrictly(25, "").BlackClock, 0);
}

TEST(Style12Line, TheOtherNumbersAreStrict) {
    for (const long token : {10, 11, 12, 13, 14, 15, 16, 19, 20, 21, 22, 23, 26}) {
        EXPECT_THROW(readStrictly(token, "x"), Fault) << token;
        EXPECT_THROW(readStrictly(token, ""), Fault) << token;
        EXPECT_THROW(readStrictly(token, "1x"), Fault) << token;
    }
    EXPECT_THROW(readStrictly(16, "32768"), Fault);
    EXPECT_EQ(readStrictly(16, "32767").GameNumber, 32767);
    EXPECT_TRUE(readStrictly(11, "True").WhiteShort);
}

TEST(Style12Line, ABadFieldEndsAStrictReadingBehindTheFieldsInFrontOfIt) {
    for (const long bad : {10, 11, 12, 13, 14, 15, 16, 19, 20, 21, 22, 23, 24, 25, 26}) {
        const std::string line = lineOfNumbers(bad, "99999x");
        Style12Record record;
        EXPECT_THROW(readStyle12(cutServer(line).value(), Style12Fields::All, record), Fault) << bad;
        std::vector<bool> expected(20, false);
        std::fill_n(expected.begin(), bad - 10, true);
        EXPECT_EQ(takenBy(record), expected) << bad;
    }
}

TEST(Style12Line, PassingOverKeepsTheOldValueOfOneFieldAndGoesOn) {
    Style12Record old;
    old.GameNumber = 77;
    old.Relation = -3;
    const Style12Record record = readOver(old, 16, "many");
    EXPECT_EQ(record.GameNumber, 77);
    EXPECT_EQ(record.Relation, 1);
    EXPECT_EQ(record.WhiteName, "Anders");

    old.WhiteClock = 55;
    EXPECT_EQ(readOver(old, 24, "99999").WhiteClock, 55) << "a clock past 16 bits is an error at its field";
    EXPECT_EQ(readOver(old, 24, "99999").BlackClock, 300);
}

TEST(Style12Line, PositionOnlyLeavesAllOtherFields) {
    Style12Record record;
    record.GameNumber = 5;
    record.PrettyMove = "Nf3";
    const std::string line = LineOf{.turn = "B", .flip = 1}.text();
    readStyle12(cutServer(line).value(), Style12Fields::PositionOnly, record);
    EXPECT_EQ(record.SideToMove, 1);
    EXPECT_TRUE(record.Flip);
    EXPECT_EQ(record.Position.substr(0, 8), "RNBQKBNR");
    EXPECT_EQ(record.GameNumber, 5);
    EXPECT_EQ(record.PrettyMove, "Nf3");
}

TEST(Style12Line, RankTextIsJoinedWhateverItsLength) {
    EXPECT_EQ(readStrictly(8, "R").Position.size(), 57U);
    EXPECT_EQ(readStrictly(1, "rnbqkbnrr").Position.size(), 65U);
}

TEST(Style12Line, TheFixedStartLineIsReadByABoard) {
    const auto tokens = cutOwn(FixedStartLine);
    ASSERT_TRUE(tokens);
    EXPECT_EQ(FixedStartLine,
              "<12> rnbqkbnr pppppppp -------- -------- -------- -------- PPPPPPPP RNBQKBNR W -1 1 1 1 1 0 72 "
              "quillfen Marrowdale -1 0 0 39 39 0 0 1 none (0:00) none 1 0 0");
    EXPECT_EQ((*tokens)[16], "72");
    EXPECT_EQ((*tokens)[19], "-1");
    EXPECT_EQ((*tokens)[30], "1");
}
