// Where arrivals end: whole lines, prompts, pairs of line ends, and nothing lost in any split.
#include "platform/ArrivalCutter.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

const std::string Prompt = "fics% ";

// A cutter with a hand-driven time.
struct Session {
    ArrivalCutter cutter;
    std::int64_t now = 1000;
    std::string prompt = Prompt;

    void append(std::string_view bytes) { cutter.append(bytes, now); }
    std::string take() { return cutter.take(prompt, now); }
    std::string takeAfter(std::int64_t ms) {
        now += ms;
        return take();
    }
    std::string arrivalsOf(std::string_view bytes) { // each followed by "|"
        append(bytes);
        std::string all;
        for (std::string arrival = take(); !arrival.empty(); arrival = take()) all += arrival + "|";
        return all;
    }
};

// What the server sends at once, and the arrivals that it gives, each followed by "|".
struct Step {
    std::string_view bytes;
    std::string_view arrivals;
};

struct ArrivalCutterTest : testing::Test {
    Session session;

    // The steps follow each other at once.
    void expectArrivals(std::initializer_list<Step> steps) {
        for (const auto& [bytes, arrivals] : steps) EXPECT_EQ(session.arrivalsOf(bytes), arrivals) << bytes;
    }
};

std::string lines(std::size_t count, std::size_t length) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) text += std::string(length - 2, 'x') + "\n\r";
    return text;
}

} // namespace

TEST_F(ArrivalCutterTest, NothingWaitingGivesNothing) {
    EXPECT_EQ(session.take(), "");
    session.append("");
    EXPECT_EQ(session.take(), "");
    EXPECT_FALSE(session.cutter.dueInMs(session.now).has_value());
}

TEST_F(ArrivalCutterTest, WholeLinesGoAtOnce) {
    expectArrivals({{"one\n\rtwo\n\r", "one\n\rtwo\n\r|"}, {"one\r\n", "one\r\n|"}});
    EXPECT_EQ(session.cutter.waiting(), 0U);
}

TEST_F(ArrivalCutterTest, TheLearntPromptRestsAndGoesAtOnceWithWhatPrecedesIt) {
    expectArrivals({{"told Anders\n\rfics% ", "told Anders\n\rfics% |"}, {"fics% ", "fics% |"}});
}

TEST_F(ArrivalCutterTest, LogonPromptsRest) {
    expectArrivals({{"\n\rlogin: ", "\n\rlogin: |"}, {"password: ", "password: |"}});
}

TEST_F(ArrivalCutterTest, ATailThatOnlyBeginsLikeThePromptWaits) { expectArrivals({{"fics", ""}, {"% ", "fics% |"}}); }

TEST_F(ArrivalCutterTest, BeforeAPromptIsLearntATailWaitsThirtyMilliseconds) {
    session.prompt.clear();
    EXPECT_EQ(session.arrivalsOf("a\n\rfics% "), "a\n\r|");
    EXPECT_EQ(session.cutter.dueInMs(session.now), 30);
    EXPECT_EQ(session.takeAfter(29), "");
    EXPECT_EQ(session.takeAfter(1), "fics% ");
}

TEST_F(ArrivalCutterTest, AnUnfinishedLineStaysBackUntilItsRestComes) {
    EXPECT_EQ(session.arrivalsOf("one\n\rtw"), "one\n\r|");
    session.now += 20;
    EXPECT_EQ(session.arrivalsOf("o\n\r"), "two\n\r|");
}

TEST_F(ArrivalCutterTest, TheThirtyMillisecondsCountFromTheLastByte) {
    session.append("on");
    session.now += 25;
    session.append("e");
    EXPECT_EQ(session.takeAfter(25), "");
    EXPECT_EQ(session.takeAfter(5), "one");
}

TEST_F(ArrivalCutterTest, TheThirtyMillisecondsMayBeginAnew) {
    session.append("unfinished");
    session.now += 1000;
    session.cutter.waitOn(session.now);
    EXPECT_EQ(session.takeAfter(29), "");
    EXPECT_EQ(session.cutter.dueInMs(session.now), 1);
    EXPECT_EQ(session.takeAfter(1), "unfinished");
}

TEST_F(ArrivalCutterTest, AtMost8192BytesGoInOneArrival) {
    session.append(lines(100, 100));
    const std::string arrival = session.take();
    EXPECT_EQ(arrival, lines(81, 100));
    EXPECT_EQ(session.take(), lines(19, 100));
}

TEST_F(ArrivalCutterTest, Exactly8192BytesAreOneArrival) {
    session.append(lines(64, 128));
    EXPECT_EQ(session.take().size(), 8192U);
}

TEST_F(ArrivalCutterTest, ALineWithoutEndIn8192BytesGoesInPieces) {
    session.append(std::string(20000, 'x'));
    EXPECT_EQ(session.take().size(), 8192U);
    EXPECT_EQ(session.take().size(), 8192U);
    EXPECT_EQ(session.take(), "") << "the last piece waits for its rest";
    EXPECT_EQ(session.takeAfter(30).size(), 20000U - 2 * 8192U);
}

TEST_F(ArrivalCutterTest, APairIsNotSplitAtTheLimit) {
    session.append(std::string(8191, 'x') + "\n\rfics% ");
    EXPECT_EQ(session.take(), std::string(8191, 'x'));
    EXPECT_EQ(session.take(), "\n\rfics% ");
}

TEST_F(ArrivalCutterTest, AForcedCutComesRightBehindThePromptInFrontOfIt) {
    expectArrivals(
        {{"said\n\rfics% \n\r<12> rnbq", "said\n\rfics% |"}, {" end\n\rfics% ", "\n\r<12> rnbq end\n\rfics% |"}});
}

TEST_F(ArrivalCutterTest, ALineBreakBehindThePromptWaitsForTheLineThatItPrecedes) {
    expectArrivals({{"said\n\rfics% \n\r", "said\n\rfics% |"},
                    {"<12> rnbq\n\rfics% ", "\n\r<12> rnbq\n\rfics% |"},
                    {"\n\r", ""},
                    {"<12> rnbq\n\r", "\n\r<12> rnbq\n\r|"}});
}

TEST_F(ArrivalCutterTest, AnEmptyLineAtTheEndWaitsForTheLineThatItPrecedes) {
    expectArrivals(
        {{"fics% Illegal move.\n\r\n\r", "fics% |Illegal move.\n\r|"}, {"<12> rnbq\n\r", "\n\r<12> rnbq\n\r|"}});
}

TEST_F(ArrivalCutterTest, ALineBreakAloneGoesAfterThirtyMilliseconds) {
    EXPECT_EQ(session.arrivalsOf("fics% \n\r"), "fics% |");
    EXPECT_EQ(session.cutter.dueInMs(session.now), 30);
    EXPECT_EQ(session.takeAfter(29), "");
    EXPECT_EQ(session.takeAfter(1), "\n\r");
    session.prompt.clear();
    EXPECT_EQ(session.arrivalsOf("fics% \n\r"), "fics% \n\r|") << "no prompt is learnt";
}

TEST_F(ArrivalCutterTest, AtTheLimitTooTheCutComesRightBehindThePrompt) {
    const std::string before = lines(80, 100) + "fics% \n\r";
    session.append(before + std::string(500, 'y') + "\n\r");
    EXPECT_EQ(session.take(), lines(80, 100) + "fics% ");
    EXPECT_EQ(session.take(), "\n\r" + std::string(500, 'y') + "\n\r");
}

TEST_F(ArrivalCutterTest, APromptEndsAnArrivalWhateverFollowsIt) {
    EXPECT_EQ(session.arrivalsOf("one\n\rfics% \n\rtwo\n\rfics% three\n\rfics% "),
              "one\n\rfics% |\n\rtwo\n\rfics% |three\n\rfics% |");
}

TEST_F(ArrivalCutterTest, APromptInTheMiddleOfALineIsNoPlaceToCut) {
    EXPECT_EQ(session.arrivalsOf("my fics% \n\rab"), "my fics% \n\r|");
}

TEST_F(ArrivalCutterTest, AnEmptyLineStaysWithTheLineBehindIt) {
    expectArrivals({{"{Game 1}\n\r\n\r<12> rn", "{Game 1}\n\r|"}, {"bq\n\r", "\n\r<12> rnbq\n\r|"}});
}

TEST_F(ArrivalCutterTest, EmptyLinesAloneAreNotCutFromAnUnfinishedLine) {
    EXPECT_EQ(session.arrivalsOf("\n\r\n\rab"), "");
    EXPECT_EQ(session.takeAfter(30), "\n\r\n\rab");
}

TEST_F(ArrivalCutterTest, NothingButLineEndsBeyondTheLimitGoesOn) {
    std::string all;
    session.append(std::string(20000, '\n'));
    for (std::string arrival = session.take(); !arrival.empty(); arrival = session.takeAfter(30)) all += arrival;
    EXPECT_EQ(all.size(), 20000U);
}

TEST_F(ArrivalCutterTest, ALoneLineEndAtTheVeryEndWaitsForItsPartner) {
    expectArrivals({{"one\n\rtwo\n", "one\n\r|"}, {"\rthree\n\r", "two\n\rthree\n\r|"}});
}

TEST_F(ArrivalCutterTest, ALoneEndOfAnEmptyLineWaitsToo) {
    expectArrivals({{"one\n\r\n", "one\n\r|"}, {"\r<12> x\n\r", "\n\r<12> x\n\r|"}});
}

TEST_F(ArrivalCutterTest, AfterAVainWaitNoLineWaitsForPartners) {
    EXPECT_EQ(session.arrivalsOf("one\n"), "");
    EXPECT_EQ(session.takeAfter(30), "one\n");
    EXPECT_EQ(session.arrivalsOf("two\n"), "two\n|");
}

TEST_F(ArrivalCutterTest, AnotherByteInThePartnersPlaceMakesTheWaitVain) {
    expectArrivals({{"one\n", ""}, {"two\n", "one\ntwo\n|"}, {"three\n", "three\n|"}});
}

TEST_F(ArrivalCutterTest, APairSplitOverArrivalsMakesLinesWaitForPartnersAgain) {
    EXPECT_EQ(session.arrivalsOf("one\n"), "");
    EXPECT_EQ(session.takeAfter(30), "one\n");
    expectArrivals({{"two\n", "two\n|"}, {"\rthree\n\r", "\rthree\n\r|"}, {"four\n", ""}, {"\r", "four\n\r|"}});
}

TEST_F(ArrivalCutterTest, ThePartnerOfAGivenLineEndIsNotLone) {
    session.append("one\r");
    EXPECT_EQ(session.takeAfter(30), "one\r");
    EXPECT_EQ(session.arrivalsOf("\n"), "\n|");
}

TEST_F(ArrivalCutterTest, AfterTheEndNothingWaits) {
    session.append("half a li");
    EXPECT_EQ(session.take(), "");
    session.cutter.finish();
    EXPECT_EQ(session.take(), "half a li");
}

TEST_F(ArrivalCutterTest, NulBytesPassUnchanged) {
    const std::string text("a\0b\0\n\r", 6);
    session.append(text);
    EXPECT_EQ(session.take(), text);
}

TEST_F(ArrivalCutterTest, OneByteASecondArrivesByteForByte) {
    std::string all;
    const std::string text = "ab\n\rfics% \n\r<12> x\n\r";
    for (const char c : text) {
        session.append({&c, 1});
        all += session.take();
        all += session.takeAfter(30);
        session.now += 970;
        EXPECT_EQ(session.cutter.waiting(), 0U);
    }
    EXPECT_EQ(all, text);
}

TEST_F(ArrivalCutterTest, ATenMegabyteLineComesThroughWhole) {
    std::string text;
    for (int i = 0; text.size() < 10'000'000; ++i) text += std::to_string(i);
    session.append(text);
    std::string all;
    for (std::string arrival = session.take(); !arrival.empty(); arrival = session.takeAfter(30)) {
        ASSERT_LE(arrival.size(), 8192U);
        all += arrival;
    }
    EXPECT_TRUE(all == text);
}

namespace {

// Feeds `text` in random pieces with random pauses; gives the arrivals.
std::vector<std::string> randomArrivals(const std::string& text, std::mt19937& random, int longestPiece) {
    Session session;
    std::vector<std::string> arrivals;
    const auto drain = [&] {
        for (std::string arrival = session.take(); !arrival.empty(); arrival = session.take()) {
            arrivals.push_back(arrival);
        }
    };
    for (std::size_t at = 0; at < text.size();) {
        const auto length = static_cast<std::size_t>(std::uniform_int_distribution<int>(1, longestPiece)(random));
        session.append(std::string_view(text).substr(at, length));
        at += length;
        if (random() % 3 != 0) drain();
        session.now += std::uniform_int_distribution<int>(0, 39)(random);
        if (random() % 3 == 0) drain();
    }
    session.cutter.finish();
    drain();
    return arrivals;
}

void expectWhole(const std::string& text, const std::vector<std::string>& arrivals) {
    std::string all;
    for (const std::string& arrival : arrivals) {
        ASSERT_GE(arrival.size(), 1U);
        ASSERT_LE(arrival.size(), 8192U);
        all += arrival;
    }
    ASSERT_TRUE(all == text);
}

} // namespace

TEST_F(ArrivalCutterTest, RandomSplitsOfRandomTextLoseDoubleAndReorderNothing) {
    std::mt19937 random(12);
    const std::vector<std::string> parts{"\n",
                                         "\r",
                                         "\n\r",
                                         "\r\n",
                                         "fics% ",
                                         "login:",
                                         "x",
                                         std::string(1, '\0'),
                                         "<12> rnbqkbnr",
                                         std::string(3000, 'y')};
    for (int round = 0; round < 300; ++round) {
        std::string text;
        for (int i = 0; i < 60; ++i) text += parts[random() % parts.size()];
        expectWhole(text, randomArrivals(text, random, round % 2 == 0 ? 9 : 9000));
    }
}

TEST_F(ArrivalCutterTest, LinesOfAFastStreamNeverSplit) {
    std::mt19937 random(5);
    std::string text;
    for (int i = 0; i < 3000; ++i) text += "line " + std::to_string(i * 7919) + (i % 9 ? "\n\r" : "\n\rfics% \n\r");
    for (std::size_t at = 0; at < text.size(); at += 1460) {
        session.append(std::string_view(text).substr(at, 1460));
        for (std::string arrival = session.take(); !arrival.empty(); arrival = session.take()) {
            const bool wholeLines = arrival.ends_with("\n\r");
            EXPECT_TRUE(wholeLines || arrival.ends_with("fics% ")) << arrival.substr(arrival.size() - 20);
        }
    }
}
