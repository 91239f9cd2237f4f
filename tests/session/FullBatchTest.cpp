// How many lines a text in pieces makes, and where the front of what is too much ends.
#include "session/FullBatch.h"

#include "common/Fault.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

constexpr int MostLines = 1001;
const std::string Record = "<12> rnbqkbnr\n\r";

std::string numbered(int count, const std::string& end = "\n\r") {
    std::string text;
    for (int i = 0; i < count; ++i) text += "line " + std::to_string(i) + end;
    return text;
}

std::size_t linesIn(std::string_view text) {
    LineCount count;
    count.add(text);
    return count.lines();
}

// The lines of `text` as a batch has them; none if a batch can not hold it.
std::vector<std::string> batchLines(const std::string& text) {
    static ServerLines lines;
    try {
        const int count = lines.zParse(text);
        std::vector<std::string> all;
        for (int i = 0; i < count; ++i) all.push_back(lines[i]);
        return all;
    } catch (const Fault&) {
        return {};
    }
}

// The text in two batches, cut where it is to be cut.
struct TwoBatches {
    std::string front;
    std::string rest;

    explicit TwoBatches(const std::string& text)
        : front(text.substr(0, frontOfFullBatch(text))), rest(text.substr(front.size())) {}
};

} // namespace

TEST(LineCountTest, ABatchHolds1001Lines) {
    for (const int count : {0, 1, 1000, 1001, 1002, 5000}) {
        LineCount lines;
        lines.add(numbered(count));
        EXPECT_EQ(lines.lines(), std::size_t(count));
        EXPECT_EQ(lines.overfull(), count > MostLines) << count;
    }
}

TEST(LineCountTest, AnUnfinishedLineCountsAsOne) {
    LineCount lines;
    lines.add(numbered(1001) + "f");
    EXPECT_TRUE(lines.overfull());
    lines.add("ics% ");
    EXPECT_EQ(lines.lines(), 1002U);
    lines.add("\n\r");
    EXPECT_EQ(lines.lines(), 1002U);
}

TEST(LineCountTest, CountsLinesWhateverTheirLength) {
    EXPECT_EQ(linesIn(std::string(5'000'000, 'x')), 1U);
    EXPECT_EQ(linesIn(numbered(900, std::string(3000, 'x') + "\n\r")), 900U);
}

TEST(LineCountTest, AMegabyteIsHeldAndAByteMoreIsNot) {
    LineCount count;
    count.add(std::string(MostHeldBytes - 1, 'x'));
    count.add("x");
    EXPECT_FALSE(count.overfull());
    count.add("x");
    EXPECT_TRUE(count.overfull());
}

TEST(LineCountTest, AMegabyteHas1024TimesAsManyBytesAsAKilobyte) { EXPECT_EQ(MostHeldBytes, 1024U * 1024U); }

TEST(LineCountTest, CountsWhatServerLinesMakesInAnyPieces) {
    std::mt19937 random(1001);
    const std::vector<std::string> parts{"\n\r", "\r\n", "\n", "\r", "\n\n\r", "a", "fics% ", "a line", "\t"};
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        for (int i = 0; i < 60; ++i) text += parts[random() % parts.size()];
        LineCount lines;
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t length = 1 + random() % 5;
            lines.add(std::string_view(text).substr(at, length));
            at += length;
        }
        ASSERT_EQ(lines.lines(), batchLines(text).size()) << round;
    }
}

TEST(FullBatchTest, TheFrontIsAThousandLines) {
    for (const char* end : {"\n\r", "\r\n", "\n", "\r"}) {
        for (const int count : {1002, 1300, 4000}) {
            const std::string text = numbered(count, end);
            EXPECT_EQ(TwoBatches(text).front, numbered(1000, end));
        }
    }
}

TEST(FullBatchTest, AnUnfinishedLineIsNotCut) {
    const TwoBatches two(numbered(1001) + "and a tai");
    EXPECT_EQ(two.front, numbered(1000));
    EXPECT_EQ(two.rest, "line 1000\n\rand a tai");
}

TEST(FullBatchTest, AVeryLongLineIsNotCut) {
    const TwoBatches two(numbered(1000) + std::string(100'000, 'x') + "\n\rb\n\r");
    EXPECT_EQ(two.front, numbered(1000));
}

TEST(FullBatchTest, OfMoreThanAMegabyteTheWholeLinesWithinItGo) {
    const std::string lines = numbered(20);
    EXPECT_EQ(TwoBatches(lines + std::string(MostHeldBytes, 'x')).front, lines);
    EXPECT_EQ(TwoBatches(lines + std::string(MostHeldBytes, 'x') + "\n\r").front, lines);
    const std::string exact = std::string(MostHeldBytes - 2, 'x') + "\n\r";
    EXPECT_EQ(TwoBatches(exact + "y").front, exact);
}

TEST(FullBatchTest, OfMoreThanAMegabyteTheRestDoesNotBeginWithARecordEither) {
    const TwoBatches two(numbered(9) + "\n\r" + Record + std::string(MostHeldBytes, 'x'));
    EXPECT_EQ(two.front, numbered(9));
}

TEST(FullBatchTest, OnlyALineOfMoreThanAMegabyteIsCutAndNotBetweenTheHalvesOfItsEnd) {
    const std::string line(MostHeldBytes, 'x');
    EXPECT_EQ(TwoBatches(line + "yz").rest, "yz");
    EXPECT_EQ(TwoBatches(line + "\n\ry").rest, "\n\ry");
    EXPECT_EQ(TwoBatches(line.substr(1) + "\n\ry").rest, "\n\ry");
    EXPECT_EQ(TwoBatches(line + "\r").rest, "\r");
}

TEST(FullBatchTest, AnEndThatABatchHasNoRoomForIsNotCutInTwo) {
    const std::string last = std::string(MostHeldBytes - 1, 'x') + "\n\r";
    EXPECT_EQ(TwoBatches(last).rest, "\n\r");
    EXPECT_EQ(TwoBatches("a\n\r" + last.substr(3)).front, "a\n\r");
}

TEST(FullBatchTest, TheRestDoesNotBeginWithARecord) {
    const TwoBatches two(numbered(999) + "\n\r" + Record + numbered(50));
    EXPECT_EQ(two.front, numbered(999));
    EXPECT_EQ(two.rest, "\n\r" + Record + numbered(50));
}

TEST(FullBatchTest, TheRestDoesNotBeginBehindARecordOrABughouseLine) {
    EXPECT_EQ(TwoBatches(numbered(999) + Record + numbered(50)).front, numbered(998));
    EXPECT_EQ(TwoBatches(numbered(999) + "<b1> game 7 white [P] black []\n\r" + numbered(50)).front, numbered(999));
}

TEST(FullBatchTest, ItGoesBackAsFarAsItMust) {
    std::string records;
    for (int i = 0; i < 700; ++i) records += Record;
    EXPECT_EQ(TwoBatches(numbered(500) + records).front, numbered(499)) << "the line before the first goes with it";
    EXPECT_EQ(TwoBatches(numbered(2) + records + records).front, numbered(1));
}

TEST(FullBatchTest, NothingButRecordsIsCutAllTheSame) {
    std::string records;
    for (int i = 0; i < 1100; ++i) records += Record;
    EXPECT_EQ(linesIn(TwoBatches(records).front), 1000U);
    EXPECT_EQ(TwoBatches(Record + std::string(MostHeldBytes, 'x')).front, Record);
}

TEST(FullBatchTest, TwoBatchesHaveTheLinesOfTheWholeAndFit) {
    std::mt19937 random(12);
    const std::vector<std::string> parts{"\n\r", "\r\n", "\n",     "\r",   "a\n\r",
                                         "b\r",  "c~\n", "a line", Record, "\n\r<b1> x\r\n"};
    for (int round = 0; round < 300; ++round) {
        std::string text;
        std::string part;
        LineCount lines;
        for (const std::size_t wanted = 1002 + random() % 400; lines.lines() < wanted; lines.add(part)) {
            part = parts[random() % parts.size()];
            text += part;
        }
        const TwoBatches two(text);
        const auto front = batchLines(two.front);
        const auto rest = batchLines(two.rest);
        ASSERT_FALSE(front.empty());
        ASSERT_FALSE(rest.empty());
        ASSERT_LE(front.size(), 1000U);
        ASSERT_EQ(front.size() + rest.size(), linesIn(text)) << "no line and no pair is cut in two";
        const bool record = rest[0].find("<12> ") != std::string::npos ||
                            front.back().find("<12> ") != std::string::npos ||
                            front.back().find("<b1>") != std::string::npos;
        ASSERT_FALSE(record) << round;
    }
}
