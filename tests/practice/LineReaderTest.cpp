// Tests of cutting a client's bytes into lines.
#include "practice/wire/LineReader.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

using Lines = std::vector<std::string>;

TEST(LineReader, LinesEndWithLineFeedOrReturnLineFeed) {
    LineReader reader;
    EXPECT_EQ(reader.take("who\ngames\r\n"), (Lines{"who", "games"}));
}

TEST(LineReader, ALineMayComeInPieces) {
    LineReader reader;
    EXPECT_TRUE(reader.take("ga").empty());
    EXPECT_TRUE(reader.take("mes\r").empty());
    EXPECT_EQ(reader.take("\n"), Lines{"games"});
}

TEST(LineReader, EmptyLinesAreLinesToo) {
    LineReader reader;
    EXPECT_EQ(reader.take("\n\r\n"), (Lines{"", ""}));
}

TEST(LineReader, ALineIsCutAtItsLimitAndTheRestIsDropped) {
    LineReader reader;
    const Lines lines = reader.take(std::string(5000, 'x') + "\nwho\n");
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].size(), LineReader::limit);
    EXPECT_EQ(lines[1], "who");
}

TEST(LineReader, TelnetCommandsAreLeftOut) {
    LineReader reader;
    EXPECT_EQ(reader.take("\xFF\xFD\x01who\n"), Lines{"who"});
    EXPECT_EQ(reader.take("a\xFF\xF1"
                          "b\n"),
              Lines{"ab"});
    EXPECT_EQ(reader.take("a\xFF\xFA\x1f\x01\x02\xFF\xF0"
                          "b\n"),
              Lines{"ab"});
}

TEST(LineReader, ATelnetCommandMayComeInPieces) {
    LineReader reader;
    EXPECT_TRUE(reader.take("\xFF").empty());
    EXPECT_TRUE(reader.take("\xFB").empty());
    EXPECT_EQ(reader.take("\x01ok\n"), Lines{"ok"});
}

TEST(LineReader, AStrayTelnetByteNeverGluesLinesTogether) {
    LineReader reader;
    EXPECT_EQ(reader.take("a\xFF\nb\n"), (Lines{"a\xFF", "b"}));
    EXPECT_EQ(reader.take("a\xFF\xFB\nb\n"), (Lines{"a", "b"}));
    EXPECT_EQ(reader.take("a\xFF\xFAxyz\nb\n"), (Lines{"a", "b"}));
    EXPECT_EQ(reader.take("a\xFF\xFAxyz\xFF\nb\n"), (Lines{"a", "b"}));
}

TEST(LineReader, TheCommandByteIsTextWhereItIsDoubledOrNoCommandFollows) {
    LineReader reader;
    EXPECT_EQ(reader.take("tell ada \xFF\xFF\xE4\n"), Lines{"tell ada \xFF\xE4"});
    EXPECT_EQ(reader.take("a\xFF"
                          "b\xFF\xEF\n"),
              Lines{"a\xFF"
                    "b\xFF\xEF"});
    EXPECT_EQ(reader.take("\xFF\xFF\xFD\x01\n"), Lines{"\xFF\xFD\x01"}) << "a doubled one begins no command";
}

TEST(LineReader, EveryByteIsTaken) {
    LineReader reader;
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    for (int i = 0; i < 50; ++i) reader.take(bytes);
    const Lines lines = reader.take("\n\nwho\n");
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.back(), "who");
}

} // namespace
} // namespace practice
